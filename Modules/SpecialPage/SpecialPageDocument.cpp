// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageDocument.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "Modules/SpecialPage/SpecialPageTemplates.h"
#include "Modules/SpecialPage/SpecialPageTicket.h"

namespace {

constexpr char xmlVersion[] = "1.0";
constexpr char encoding[] = "UTF-8";
constexpr char kpifSYSTEM[] = "kpif-v02030a.dtd";
constexpr char kpifVersion[] = "1.0";
constexpr char cpssVersion[] = "2.01";
constexpr char xmlLang[] = "en-US";

constexpr std::size_t kTextSize = 2048;  // bytes of a filled template, the NULs included,
constexpr std::size_t kKeySize = 256;    // of a key
constexpr std::size_t kValueSize = 256;  // and of a value

// The longest template has nine fields and comes out whole.
constexpr std::size_t kMostSlots = 9;
static_assert(sizeof ExceptionBlockData + kMostSlots * kSpecialPageFieldSize <= kTextSize);

// The fields of a value; fields that it lacks repeat its last one. A template is filled from the
// second or third field on.
constexpr std::size_t kFieldCount = 11;
using Field = char[kSpecialPageFieldSize];
struct Fields {
    Field field[kFieldCount];
};

// The media mode: how a value describes its media.
constexpr std::string_view kMediaNamed = "0";   // by a name of the interposer's
constexpr std::string_view kMediaByType = "1";  // by type, colour and size

void Put(const char *text) {
    KVfwrite(text, 1, std::strlen(text), stdout);
}

void PutStart() {
    char text[kTextSize];
    const int length = std::snprintf(text, sizeof text, KPIFCommandBlockStart, xmlVersion, encoding,
                                     kpifSYSTEM, kpifVersion, cpssVersion, xmlLang);
    KVfwrite(text, 1, static_cast<std::size_t>(length), stdout);
}

// Writes a template filled from slot[0] on; slots that it does not have are passed over.
void PutFilled(const char *format, const Field *slot) {
    char text[kTextSize] = "";
    std::snprintf(text, sizeof text, format, slot[0], slot[1], slot[2], slot[3], slot[4], slot[5],
                  slot[6], slot[7], slot[8]);
    Put(text);
}

// Writes the template that `mediaMode` selects; none for an unknown mode.
void PutBody(std::string_view mediaMode, const char *named, const char *byType, const Field *slot) {
    if (mediaMode == kMediaNamed) PutFilled(named, slot);
    if (mediaMode == kMediaByType) PutFilled(byType, slot);
}

void PutCover(const Fields &value) {
    const std::string_view position = value.field[0];
    const bool isFront = position == "0";
    if (!isFront && position != "1") return;
    Put(isFront ? CoverFrontBlockStart : CoverBackBlockStart);
    PutBody(value.field[1], CoverInterposerBlockData, CoverBlockData, value.field + 2);
    Put(isFront ? CoverFrontBlockEnd : CoverBackBlockEnd);
}

void PutInsertion(const Fields &value) {
    PutBody(value.field[0], InsertionInterposerBlockData, InsertionBlockData, value.field + 1);
}

void PutException(const Fields &value) {
    PutBody(value.field[0], ExceptionInterposerBlockData, ExceptionBlockData, value.field + 1);
}

Fields Split(const char *value) {
    Fields fields{};
    for (Field &field : fields.field) value += getOneValue(value, field);
    return fields;
}

// The number that `name` ends with, or -1.
std::int32_t TrailingNumber(const char *name) {
    const char *digits = name + std::strlen(name);
    while (digits != name && digits[-1] >= '0' && digits[-1] <= '9') digits--;
    return *digits != '\0' ? LeadingInteger(digits) : -1;
}

// The numbers below `count` that some option's name ends with, in order. No other number completes
// a key that the ticket has; so a ticket of few options with a count of 2147483647 takes no longer
// than any. None, and writeError, where memory is short.
std::vector<std::int32_t> NumbersInTicket(const TicketOptions &options, std::int32_t count) try {
    std::vector<std::int32_t> numbers;
    for (int i = 0; i < options.count; i++) {
        const std::int32_t number = TrailingNumber(options.list[i].name);
        if (number >= 0 && number < count) numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
} catch (const std::bad_alloc &) {  // GCOVR_EXCL_START: fault
    if (writeError == 0) writeError = ENOMEM;
    return {};
}  // GCOVR_EXCL_STOP

// Calls `put` for each of the first `count` values that the ticket has.
void PutValues(const TicketOptions &options, const char *valueKey, std::int32_t count,
               void (*put)(const Fields &)) {
    for (const std::int32_t number : NumbersInTicket(options, count)) {
        char key[kKeySize];
        char value[kValueSize];
        std::snprintf(key, sizeof key, "%s%d", valueKey, number);
        if (GetTicketStringConvertedToPrtLang(key, options.count, options.list, value,
                                              sizeof value)) {
            put(Split(value));
        }
    }
}

}  // namespace

std::int32_t getOneValue(const char *source, char *field) {
    if (!source || !field) return -1;
    const char *comma = std::strchr(source, ',');
    const std::size_t length =
        comma ? static_cast<std::size_t>(comma - source) : std::strlen(source);
    std::memcpy(field, source, std::min(length, kSpecialPageFieldSize - 1));
    return comma ? static_cast<std::int32_t>(length) + 1 : 0;
}

void InjectKPIFCommandSP(char *const argv[]) {
    SpecialPageOptions &ticket = psOptionSpecialPage;
    for (std::int32_t *count :
         {&ticket.coverCount, &ticket.insertionCount, &ticket.exceptionCount}) {
        *count = std::max(*count, 0);
    }
    if (std::max({ticket.coverCount, ticket.insertionCount, ticket.exceptionCount}) == 0) return;
    const TicketOptions options(argv[5]);
    PutStart();
    PutValues(options, kSPKPCoverValueKey, ticket.coverCount, PutCover);
    if (ticket.insertionCount > 0) {
        Put(InsertionBlockStart);
        PutValues(options, kSPKPInsertionValueKey, ticket.insertionCount, PutInsertion);
        Put(InsertionBlockEnd);
    }
    if (ticket.exceptionCount > 0) {
        Put(ExceptionBlockStart);
        PutValues(options, kSPKPExceptionValueKey, ticket.exceptionCount, PutException);
        Put(ExceptionBlockEnd);
    }
    Put(KPIFCommandBlockEnd);
}
