// SPDX-License-Identifier: Apache-2.0
//
// The control symbols of a command's format string, and the characters that fill "%c".
#pragma once

#include <cstddef>
#include <cstdint>

// How the value of a control symbol is printed.
enum CtrlSymType : std::int32_t {
    kCtrlSymTypeDec = 0,     // a signed 32-bit integer, in decimal
    kCtrlSymTypeChar = 1,    // one byte
    kCtrlSymTypeString = 2,  // a NUL-terminated text
};

struct CtrlSymEntry {
    const char *sym;  // two characters
    CtrlSymType type;
};

inline constexpr char CtrlSym_Dec[] = "%d";
inline constexpr char CtrlSym_Char[] = "%c";
inline constexpr char CtrlSym_String[] = "%s";

inline constexpr CtrlSymEntry ctrlSymTalbe[] = {
    {CtrlSym_Dec, kCtrlSymTypeDec},
    {CtrlSym_Char, kCtrlSymTypeChar},
    {CtrlSym_String, kCtrlSymTypeString},
};
inline constexpr std::int32_t CtrlSymNum = 3;
static_assert(sizeof ctrlSymTalbe / sizeof *ctrlSymTalbe == CtrlSymNum);

// The control symbols in `format`, which takes as many values.
constexpr std::size_t CountCtrlSyms(const char *format) {
    std::size_t count = 0;
    for (; *format != '\0'; format++) {
        for (const CtrlSymEntry &entry : ctrlSymTalbe) {
            if (format[0] == entry.sym[0] && format[1] == entry.sym[1]) count++;
        }
    }
    return count;
}

inline constexpr char CTRLSym_ESC = 0x1B;
inline constexpr char CTRLSym_CR = 0x0D;
inline constexpr char CTRLSym_LF = 0x0A;
inline constexpr char CTRLSym_PERCENTAGE = '%';
inline constexpr char CTRLSym_DOUBLE = '"';
