// SPDX-License-Identifier: Apache-2.0
//
// The special pages of a job as an XML job ticket in the printer's KPIF vocabulary: which sheets
// are covers, where sheets are inserted, and which page ranges take other media. Each special page
// is one ticket value, its fields separated by commas. Fields go into the document as the print
// dialog wrote them, unescaped.
#pragma once

#include <cstddef>
#include <cstdint>

// Bytes of a field, its NUL included; what is longer is cut.
constexpr std::size_t kSpecialPageFieldSize = 50;

// Copies the first field of `source` into `field`, kSpecialPageFieldSize bytes that the caller has
// cleared, without a NUL. Returns how far the next field is from `source`, 0 when there is none,
// -1 when a pointer is null.
std::int32_t getOneValue(const char *source, char *field);

// Writes the document to standard output if argv[5] asks for special pages, by the counts of
// psOptionSpecialPage; raises negative counts to 0.
void InjectKPIFCommandSP(char *const argv[]);
