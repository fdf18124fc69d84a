// SPDX-License-Identifier: Apache-2.0
//
// Feature and settings lines, and what only looks like them, to sprinkle into documents.
#pragma once

#include <string>
#include <vector>

inline std::vector<std::string> FeatureLines() {
    const std::string nul(1, '\0');
    std::vector<std::string> lines = {
        "%%BeginFeature: *KVTonerSaver Mode2",
        "%%BeginFeature: *KVOutputMode 1200x1200",
        "%%BeginFeature: *KVOutputMode 600x600",
        "%%BeginFeature: *KVOutputMode HighSpeed",
        "%%BeginFeature: *KVHalftone Fineness",
        "%%BeginFeature: *KVHalftone Gradation",
        "%%BeginFeature: *KVColorDensityMagentaMid +1",
        "%%BeginFeature:   *KVBrightnes    Dark5   and more",
        "%%BeginFeature: *PageSize A4",
        "%%BeginFeature: *KVTonerSaver",
        "%%BeginFeature:",
        "%%BeginFeature: *KVTonerSaver" + std::string(100, ' ') + "Mode2",
        "%%BeginFeature: *KVTonerSaver Mode2" + nul,
        "%%BeginFeature: " + nul + " *KVTonerSaver Mode2",
        " %%BeginFeature: *KVTonerSaver Mode2",
        "%%BeginFeature *KVTonerSaver Mode2",
        "%%beginFeature: *KVTonerSaver Mode2",
        "%%BeginFeature: TSCR 1 GSCR 2 ISCR 3 TTRC 4 GTRC 5 ITRC 6",
        "/TTRC 5 /GTRC 12 /ITRC 7 /TSCR 64 /GSCR 64 /ISCR 64",
        "/TTRC 5 /GTRC 12 /ITRC 7 /TSCR 64 /GSCR 64",
        "/TCPR 1 /GCPR 23 /ICPR 456",
        "/TCPR 1 /GCPR 23",
        "12 TCPRGCPRICPR 7 " + nul + " 88",
        "TSCRGSCRISCRTTRCGTRCITRC" + nul + nul + nul + nul + nul + "9",
        "TCPR GCPR ICPR",
    };
    std::string manyDigits = "TCPR GCPR ICPR ";
    for (int i = 0; i < 130; i++) manyDigits += i % 3 ? "4 " : "/ABCD 12";
    lines.push_back(manyDigits);
    return lines;
}
