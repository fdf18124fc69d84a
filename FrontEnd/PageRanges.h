// SPDX-License-Identifier: Apache-2.0
//
// Pages as people write them, in the notation of IPP's page-ranges, and the pieces of such texts.
#pragma once

#include <limits>
#include <string_view>
#include <vector>

struct PageRange {
    int first, last;
};

// The last page of a range that is open at its end: IPP's largest integer.
inline constexpr int kLastPage = std::numeric_limits<int>::max();

// Appends the ranges of "3,7,10-12,-2,20-" to `ranges`; the pages count from `least`. False if the
// text is not all understood.
bool ReadPageRanges(std::string_view text, int least, std::vector<PageRange> &ranges);

// Stores the decimal number that `text` is, if it is one and lies in the range.
bool ReadWholeNumber(std::string_view text, int least, int most, int &number);

// The pieces of `text` between separators, at least one.
std::vector<std::string_view> SplitAt(char separator, std::string_view text);
