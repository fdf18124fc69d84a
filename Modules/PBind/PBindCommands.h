// SPDX-License-Identifier: Apache-2.0
//
// The commands of a perfect-bound book, one line each on standard output. They are made from the
// ticket (PBindTicket.h, filled before) and the page sizes of the job's PPD; lengths are tenths of
// a millimetre. Numbers that a hostile ticket drives beyond 32 bits are written as the nearest
// 32-bit number.
#pragma once

#include <cstdint>

// When an adjustment changes its sign: the printer counts from the edge that the book is bound at.
enum PBindSign : std::int32_t {
    kPBindSignAsGiven = 0,
    kPBindSignTurnsForRight = 1,
    kPBindSignTurnsForTopAndLeft = 2,
};

// Writes all lines, or none if the book is not bound. Replaces the sizes, media and tray in the
// record by their keywords.
void OutputKPJLCommandforPerfectBind();

// Writes the attribute with a text; a line is cut to 99 bytes.
void OutputKPJLCommandforPBindNormal(const char *value, const char *attribute);

// Writes the attribute with the number that `value` begins with, times `factor`, its sign turned as
// `mode` (a PBindSign) says for the bind position. Writes nothing if `value` is empty.
void OutputKPJLCommandforPBindDigital(const char *value, std::int32_t factor, const char *attribute,
                                      const char *bindPosition, std::int32_t mode);
