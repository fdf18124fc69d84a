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
extern const PBindParam PerfectBindParam[];
extern const std::size_t kPerfectBindParamNum;  // without the last row

// Copies the keyword for `value` into `destination` of `size` bytes, where `value` itself may
// stand; what is longer is cut. A value without a keyword gives an empty text.
void convertPBindPPDValue(const char *value, char *destination, std::size_t size);
