// SPDX-License-Identifier: Apache-2.0
//
// The job ticket: the option string, argv[5]. Each module brings a table of the keys that it reads;
// GetTicketFromArray stores what it finds in the fields of the module's record.
#pragma once

#include <cups/cups.h>

#include <cstddef>
#include <cstdint>

// The keys of the printer's own print-dialog plug-ins begin with this.
#define KV_TICKET "com.korvell.tav.printsettings."

// Stores the value of `key` in `destination`, `size` bytes (for texts with their NUL, 4 for
// numbers). Returns 1 when the ticket has the key, else 0.
using TicketGetter = int (*)(const char *key, int optionCount, cups_option_t *options,
                             void *destination, std::int32_t size);

// One row of a module's ticket table. When two rows have the same destination, the later one wins.
struct ticketData {
    const char *key;
    void *destination;
    std::int32_t size;
    TicketGetter getter;
};

// The options of one option string, released with this object.
struct TicketOptions {
    explicit TicketOptions(const char *optionString);
    ~TicketOptions();
    TicketOptions(const TicketOptions &) = delete;
    TicketOptions &operator=(const TicketOptions &) = delete;

    int count;
    cups_option_t *list;
};

// Reads `count` rows of `table` from argv[5], in order. Returns 1.
int GetTicketFromArray(char *const argv[], const ticketData *table, std::int32_t count);

// The getters. An absent key leaves texts empty and numbers at -1.
int CheckTicketKey(const char *, int, cups_option_t *, void *, std::int32_t);  // 0 when present!
int GetTicketInteger(const char *, int, cups_option_t *, void *, std::int32_t);
int GetTicketFloat(const char *, int, cups_option_t *, void *, std::int32_t);
int GetTicketString(const char *, int, cups_option_t *, void *, std::int32_t);
// As above, with slash-coded values decoded.
int GetTicketStringConvertedToPrtLang(const char *, int, cups_option_t *, void *, std::int32_t);
int GetTicketStringConvertedToPrtLangForUTF8(const char *, int, cups_option_t *, void *,
                                             std::int32_t);
int GetTicketStringConvertedToPPDEncodingString(const char *, int, cups_option_t *, void *,
                                                std::int32_t);
// The number of pages on a sheet, from the key or else from the layout's rows and columns: "N4" and
// "1", and for the job information "4" and "1". These return 1 always.
int GetNumberUpTicketString(const char *, int, cups_option_t *, void *, std::int32_t);
int GetNumberUpTicketStringForComment(const char *, int, cups_option_t *, void *, std::int32_t);

// Decodes in place a slash-coded text ("/72/105" is "Hi"), in a buffer of `size` bytes.
void numstrtochar(char *text, std::int32_t size);

// Writes the positive `number` right-aligned into `buffer` of `size` bytes and returns its first
// digit; zero is an empty text. Digits that do not fit on the left are dropped.
char *itoa(std::int32_t number, char *buffer, std::int32_t size);

// The decimal integer that `text` begins with, after blanks and a sign, clamped to 32 bits; 0 if
// there is none. Independent of the locale.
std::int32_t LeadingInteger(const char *text);

// System keys that several modules read.
constexpr char kNumberUpTicketKey[] = "number-up";
constexpr char kLayoutDirectionTicketKey[] = "com.apple.print.PrintSettings.PMLayoutDirection..n.";
constexpr char kLayoutRowCountTicketKey[] = "com.apple.print.PrintSettings.PMLayoutRows..n.";
constexpr char kLayoutColumnCountTicketKey[] = "com.apple.print.PrintSettings.PMLayoutColumns..n.";
