// SPDX-License-Identifier: Apache-2.0
//
// The filter's own PostScript in a document: its lines, and what they do.
#pragma once

#include <string_view>

// What the piece that begins with `line` (without its end) does, or null if the line is not of the
// filter's making. `inFeature` says that the line follows "%%BeginNonPPDFeatures".
const char *MeaningOfOwnPostScript(std::string_view line, bool inFeature);
