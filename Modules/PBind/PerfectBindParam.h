// SPDX-License-Identifier: Apache-2.0
//
// What the print dialog calls the media of a perfect-bound book and what the printer calls them.
// The dialog sends the choice names of the PPD.
#pragma once

#include <cstddef>

struct PBindParam {
    const char *ppdValue;  // null in the last row
    const char *keyword;
};
constexpr std::size_t kPerfectBindParamNum = 77;  // without the last row
extern const PBindParam PerfectBindParam[];

// Copies the keyword for `value` into `destination` of `size` bytes, where `value` itself may
// stand; what is longer is cut. A value without a keyword gives an empty text.
void convertPBindPPDValue(const char *value, char *destination, std::size_t size);
