// SPDX-License-Identifier: Apache-2.0
//
// The job ticket: the option string, argv[5]. Each module brings a table of the keys that it reads;
// GetTicketFromArray stores what it finds in the fields of the module's record.
//
// A ticket table is a row file, Modules/<Module>/<Module>Ticket.def. Nothing about a key stands
// elsewhere; an entry is
//
//     KV_KEY(delayPrintTime, TextField<17>, kDelayPrintTicketKey, KV_TICKET "DelayPrintTicketKey",
//            "text", "time of a delay print")
//
// the field, its type (std::int32_t, float or TextField<bytes>), the key's constant, the key, what
// may be given and what it means; then the getter, where it is not the one that the type implies.
// The key itself is left out where its constant has one already, below or in another entry.
// KV_SHARED_KEY is the same for a text of JobBuffers.h in place of a field of the record.
//
// The module includes its file once for each thing that is made of it, with KV_KEY defined as one
// of these; the file's last line undefines it:
//     KV_KEY_CONSTANT  the constants of the keys
//     KV_KEY_FIELD     the fields of the record
//     KV_KEY_ROW       the rows of the table, for the record that is called `ticket`; with
//                      KV_SHARED_KEY defined as KV_SHARED_KEY_ROW if the file has such entries
#pragma once

#include <cups/cups.h>

#include <cstddef>
#include <cstdint>

#include "CommonSource/FilterFrame/Source/BoundedText.h"

// The keys of the printer's own print-dialog plug-ins begin with this.
#define KV_TICKET "com.korvell.tav.printsettings."

// A getter stores the value of `key` in `destination`, `size` bytes (for texts with their NUL, 4
// for numbers). It returns 1 when the ticket has the key, else 0.
using TicketGetterFunction = int(const char *key, int optionCount, cups_option_t *options,
                                 void *destination, std::int32_t size);
using TicketGetter = TicketGetterFunction *;

// One row of a module's ticket table. When two rows have the same destination, the later one wins.
struct ticketData {
    const char *key;
    void *destination;
    std::int32_t size;
    TicketGetter getter;
    const char *field = "";    // the destination's name
    const char *values = "";   // what may be given: "1 = off, 2 = on", "true, false", "millimetres"
    const char *meaning = "";  // what the value is, in words
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

// 0 when the key is present, 1 when it is absent. Returns 1 always.
TicketGetterFunction CheckTicketKey;

// The number that the value begins with; -1 for an absent key.
TicketGetterFunction GetTicketInteger;
TicketGetterFunction GetTicketFloat;

// The text in the printer's encoding, as it stands and with slash codes decoded. An absent key
// leaves an empty text, here and below.
TicketGetterFunction GetTicketString;
TicketGetterFunction GetTicketStringConvertedToPrtLang;

// The text decoded, in UTF-8 and as the PPD's encoding asks for it (TextEncoding.h). Kept as
// interface; no job reaches these.
TicketGetterFunction GetTicketStringConvertedToPrtLangForUTF8;
TicketGetterFunction GetTicketStringConvertedToPPDEncodingString;

// The number of pages on a sheet, from the key or else from the layout's rows and columns: "N4" and
// "1", and for the job information "4" and "1". These return 1 always.
TicketGetterFunction GetNumberUpTicketString;
TicketGetterFunction GetNumberUpTicketStringForComment;

// Decodes in place a slash-coded text ("/72/105" is "Hi"), in a buffer of `size` bytes.
void numstrtochar(char *text, std::int32_t size);

// System keys that several modules read.
constexpr char kNumberUpTicketKey[] = "number-up";
constexpr char kNumPunchHolesTicketKey[] = "KVNumPunchHoles";
constexpr char kLayoutDirectionTicketKey[] = "com.apple.print.PrintSettings.PMLayoutDirection..n.";
constexpr char kLayoutRowCountTicketKey[] = "com.apple.print.PrintSettings.PMLayoutRows..n.";
constexpr char kLayoutColumnCountTicketKey[] = "com.apple.print.PrintSettings.PMLayoutColumns..n.";

// The system's paper rectangle, of the page format and of the job; its elements are the origin's Y
// and X, the height and the width.
// clang-format off
#define KV_PAGE_FORMAT "com.apple.print.subTicket.page_format_ticket..d."
#define KV_PAPER_RECT                                 \
    "com.apple.print.subTicket.paper_info_ticket..d." \
    "com.apple.print.PaperInfo.PMUnadjustedPaperRect..a."
constexpr char KPaperInfoRectOriginXTicketKey[]      = KV_PAGE_FORMAT KV_PAPER_RECT "1..n.";
constexpr char KPaperInfoRectOriginYTicketKey[]      = KV_PAGE_FORMAT KV_PAPER_RECT "0..n.";
constexpr char KPaperInfoRectHeightTicketKey[]       = KV_PAGE_FORMAT KV_PAPER_RECT "2..n.";
constexpr char KPaperInfoRectWidthTicketKey[]        = KV_PAGE_FORMAT KV_PAPER_RECT "3..n.";
constexpr char KAdobePaperInfoRectOriginXTicketKey[] = KV_PAPER_RECT "1..n.";
constexpr char KAdobePaperInfoRectOriginYTicketKey[] = KV_PAPER_RECT "0..n.";
constexpr char KAdobePaperInfoRectHeightTicketKey[]  = KV_PAPER_RECT "2..n.";
constexpr char KAdobePaperInfoRectWidthTicketKey[]   = KV_PAPER_RECT "3..n.";
#undef KV_PAPER_RECT
#undef KV_PAGE_FORMAT
// clang-format on

// What a row file is expanded with.
#define KV_KEY_CONSTANT(field, type, constant, key, ...) KV_CONSTANT_IF_GIVEN(constant, key)
#define KV_CONSTANT_IF_GIVEN(constant, ...) \
    __VA_OPT__(inline constexpr char constant[] = __VA_ARGS__;)
#define KV_KEY_FIELD(field, type, ...) type field;
#define KV_KEY_ROW(field, type, constant, key, ...) \
    TicketRow<type>(constant, ticket.field, #field, __VA_ARGS__),
#define KV_SHARED_KEY_ROW(text, type, constant, key, ...) \
    TicketRow<type>(constant, text, #text, __VA_ARGS__),

// The getter that a field's type implies.
template <class Type>
constexpr TicketGetter kGetterOf = GetTicketStringConvertedToPrtLang;
template <>
inline constexpr TicketGetter kGetterOf<std::int32_t> = GetTicketInteger;
template <>
inline constexpr TicketGetter kGetterOf<float> = GetTicketFloat;

// A row that stores a value of `Type`, for which `destination` has room.
template <class Type, class Destination>
consteval ticketData TicketRow(const char *key, Destination &destination, const char *field,
                               const char *values, const char *meaning,
                               TicketGetter getter = kGetterOf<Type>) {
    static_assert(sizeof(Type) <= sizeof(Destination));
    return {key, &destination, sizeof(Type), getter, field, values, meaning};
}
