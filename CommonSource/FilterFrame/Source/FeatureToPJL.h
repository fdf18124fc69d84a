// SPDX-License-Identifier: Apache-2.0
//
// What the printer is told in PJL of the settings that stand in a document: the PPD features that
// the user chose, and the screen and colour-rendering settings of the printer's own PostScript.
// All commands go to standard output.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Features with a rule of their own; the other values of the first and all other features are rows
// of Tables/FeaturePJLTable.h.
constexpr std::string_view kOutputModeKeyword = "*KVOutputMode";  // resolution
constexpr std::string_view kHalftoneKeyword = "*KVHalftone";      // screens of monochrome devices
constexpr std::string_view kFrameModeKeyword = "*KVFrameMode";    // stays PostScript

// Bytes of a feature line, and digits of a settings line, that are looked at.
constexpr std::size_t kFeatureTextLength = 99;
constexpr std::size_t kMostDigits = 100;

// What is remembered from feature to feature of a document.
struct FeatureState {
    bool monochrome;                // the PPD's ColorDevice is "False"
    bool resolutionPending = true;  // only the first resolution is sent
};

// The state at the start of a document, for the device of the job's PPD.
FeatureState StartFeatures();

// Writes what becomes of a line "%%BeginFeature: *Keyword Value", given without its line end.
// Blanks separate the tokens; nothing is written for a line that has fewer than three.
void PutFeaturePJL(std::string_view line, FeatureState &state);

// Writes a job attribute for each number, of one or two digits, on a line of settings such as
// "/TSCR 64 /GSCR 64": its name is the four bytes in front of the byte before the number. A number
// without room for a name in front of it is skipped.
void PutSettingsPJL(std::string_view line);

// A new string of the bytes of `text` from `start` to `end`, both included; null if there is no
// memory. The caller frees it.
char *GetSubString(const char *text, std::int32_t start, std::int32_t end);
