// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/OptionString.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

namespace {

// The last attribute that the scheduler itself adds to a job. What it derives follows.
constexpr char kLastOfTheJob[] = " time-at-processing=";

const char *DerivedOptions(const char *options) {
    const char *found = nullptr;
    for (const char *at = options; (at = std::strstr(at, kLastOfTheJob)); at++) {
        if (at == options || at[-1] != '\\') found = at;  // "\ " is a blank within a value
    }
    return found;
}

// Adds what was parsed, without what `given`, the job's own part if this is not it, has already.
void Add(const TicketOptions &parsed, const TicketOptions *given, std::vector<JobOption> &options) {
    for (int i = 0; i < parsed.count; i++) {
        const cups_option_t &option = parsed.list[i];
        if (!option.name || !option.value) throw std::bad_alloc();
        if (!given || !cupsGetOption(option.name, given->count, given->list)) {
            options.push_back({option.name, option.value, given != nullptr});
        }
    }
}

std::vector<JobOption> ParseOnce(const char *text) {
    std::vector<JobOption> options;
    const char *derived = DerivedOptions(text);
    const char *end = derived ? derived : text + std::strlen(text);
    const TicketOptions given(std::string(text, end).c_str());
    Add(given, nullptr, options);
    if (derived) Add(TicketOptions(derived), &given, options);
    return options;
}

}  // namespace

bool IsCustomChoice(std::string_view value) {
    return SameName(value.substr(0, kCustomChoice.size()), kCustomChoice);
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

std::vector<JobOption> ParseOptionString(const char *text) {
    std::vector<JobOption> options = ParseOnce(text);
    // The parser forgets what it has read when memory runs out, and goes on. A lost password would
    // be a job in the open: only what two readings agree on counts.
    const std::vector<JobOption> again = ParseOnce(text);
    const bool same =
        std::equal(options.begin(), options.end(), again.begin(), again.end(),
                   [](const JobOption &a, const JobOption &b) {
                       return a.name == b.name && a.value == b.value;  // GCOVR_EXCL_BR_LINE: fault
                   });
    if (!same) throw std::bad_alloc();  // GCOVR_EXCL_BR_LINE: fault
    return options;
}

void AppendOption(std::string &options, std::string_view name, std::string_view value) {
    if (!options.empty()) options += ' ';
    options += name;
    options += '=';
    // An opening brace or quote at the start would begin a collection or a quoted text.
    constexpr std::string_view kSpecial = " \t\n\v\f\r\\'\"{";
    for (const char byte : value) {
        if (kSpecial.find(byte) != kSpecial.npos) options += '\\';
        options += byte;
    }
}

std::string_view NextWord(std::string_view &text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}
