// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

// What data that is no job of this filter's, or a document that is no PostScript, looks like by
// its first bytes: "a PDF document"; null if nobody knows.
const char *NameOfData(std::string_view beginning);
