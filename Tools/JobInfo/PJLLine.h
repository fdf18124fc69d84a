// SPDX-License-Identifier: Apache-2.0
//
// What a line of a job's header says.
#pragma once

#include <string>
#include <string_view>

#include "Tables/PJLNames.h"

// The universal exit language: where a job, and its trailer, begins.
inline constexpr std::string_view kExitLanguage = "\x1b%-12345X";
inline constexpr std::string_view kPJL = "@PJL";

// What people read about a line that ends where its value should stand.
inline constexpr char kHalfLine[] = "half a line, its value is missing";

// A line taken apart. Everything but `row` points into the line.
struct PJLLine {
    PJLKind kind = kPJLCommand;
    std::string_view name;         // "HOLD", "JOAU"; empty if the line is no PJL
    std::string_view value;        // as it stands, without the quotation marks around it
    const PJLName *row = nullptr;  // null for a name that this filter does not use
};

// Takes apart `line`, given without its line end. What stands in front of "@PJL" is passed over if
// it is the universal exit language.
PJLLine ParsePJL(std::string_view line);

// What the line tells the printer, in words.
std::string MeaningOf(const PJLLine &line);

// The line with a password or key in it replaced by asterisks, as many for each.
std::string MaskSecret(std::string_view line);

// Whether its value must not be shown: a password or key, by its row, or by its name where it has
// no row.
bool IsSecret(const PJLLine &line);
