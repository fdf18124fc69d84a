// SPDX-License-Identifier: Apache-2.0
//
// Texts that people typed, on their way into the ticket: in the letters that the printer knows,
// with nothing in them that could end the PJL string that will hold them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

struct PrinterText {
    std::string bytes;  // in the printer's encoding
    std::string shown;  // the same for people, in UTF-8
    bool changed;       // something of the text was left out, replaced or cut
};

// What the printer gets of `text`, UTF-8: at most `size` bytes. Quotation marks become apostrophes;
// control characters and what the printer's encoding lacks are left out.
PrinterText MakePrinterText(std::string_view text, std::size_t size);

// The same as a value of the option string, of which the ticket's getters make the bytes.
std::string TicketValueOf(const PrinterText &text);

// `text` as its bytes, which the getters decode: "/72/105" for "Hi". Four characters a byte, so
// what exceeds kMostSlashCoded bytes is cut: the getters read 1023.
constexpr std::size_t kMostSlashCoded = 255;
std::string SlashCoded(std::string_view text);

// The bytes that the getters will make of a ticket's text value for a field of `size` bytes with
// its NUL. `faithful` says whether they are the whole text, unchanged, and safe in a PJL string.
std::string PrinterBytes(const char *value, std::size_t size, bool &faithful);

// Whether the job's PPD says that the printer reads names in UTF-8, in ISO Latin-1.
bool PrinterReadsUTF8();
bool PrinterReadsLatin1();
