// SPDX-License-Identifier: Apache-2.0
//
// A small PPD with lines of a test's own.
#pragma once

#include <string>

// A valid PPD that holds `lines` ("*KVPSDecompMode: \"1\"\n").
inline std::string PpdWith(const std::string &lines = "") {
    return "*PPD-Adobe: \"4.3\"\n"
           "*FormatVersion: \"4.3\"\n"
           "*FileVersion: \"1.0\"\n"
           "*LanguageVersion: English\n" +
           lines +
           "*Manufacturer: \"Korvell\"\n"
           "*Product: \"(Korvell Test)\"\n"
           "*ModelName: \"Korvell Test\"\n"
           "*ShortNickName: \"Korvell Test\"\n"
           "*NickName: \"Korvell Test\"\n"
           "*PSVersion: \"(3010.000) 0\"\n"
           "*OpenUI *PageSize/Page Size: PickOne\n"
           "*OrderDependency: 10 AnySetup *PageSize\n"
           "*DefaultPageSize: A4\n"
           "*PageSize A4/A4: \"<</PageSize[595 842]>>setpagedevice\"\n"
           "*PageSize Letter/Letter: \"<</PageSize[612 792]>>setpagedevice\"\n"
           "*CloseUI: *PageSize\n"
           "*DefaultImageableArea: A4\n"
           "*ImageableArea A4/A4: \"0 0 595 842\"\n"
           "*ImageableArea Letter/Letter: \"0 0 612 792\"\n"
           "*DefaultPaperDimension: A4\n"
           "*PaperDimension A4/A4: \"595 842\"\n"
           "*PaperDimension Letter/Letter: \"612 792\"\n";
}
