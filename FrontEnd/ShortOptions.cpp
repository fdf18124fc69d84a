// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ShortOptions.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/Confidential.h"
#include "FrontEnd/IPPAttributes.h"
#include "FrontEnd/QueueMarking.h"
#include "FrontEnd/ShortOptionFunctions.h"
#include "FrontEnd/SpecialPageOptions.h"
#include "FrontEnd/WatermarkOptions.h"

using enum OwnValue;

// clang-format off
const ShortOption kShortOptions[] = {
#include "FrontEnd/ShortOptions.def"
};
// clang-format on
const std::size_t kShortOptionCount = std::size(kShortOptions);

namespace {

constexpr std::string_view kTicketPrefix = KV_TICKET;

// The next word of `text`, which is left with the rest.
std::string_view NextWord(std::string_view &text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

bool UnderstandOwnValue(const ShortOption &row, std::string_view value) {
    if (row.own == None) return false;
    const int length = static_cast<int>(std::min<std::size_t>(value.size(), 4096));
    // What is too long is for AddText: it knows how many bytes the letters take on the printer.
    if (row.own != Whole) return length >= row.least;
    int number = 0;
    const char *end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    return error == std::errc() && stop == end && number >= row.least && number <= row.most;
}

// The keys of `value`, or null.
const char *KeysOf(const ShortOption &row, std::string_view value) {
    const char *own = nullptr;
    for (const ShortOptionKeys &becomes : row.becomes) {
        if (!becomes.choice) break;
        if (becomes.choice == value) return becomes.keys;
        if (std::string_view(becomes.choice) == "*") own = becomes.keys;
    }
    return own;
}

void AddKeysOf(const ShortOption &row, std::string_view value, CompletionContext &context) {
    const char *keys = KeysOf(row, value);
    std::string_view rest = keys ? keys : "";
    for (std::string_view word; !(word = NextWord(rest)).empty();) {
        const std::size_t equals = word.find('=');
        const std::string key = std::string(kTicketPrefix).append(word.substr(0, equals));
        const std::string_view text = word.substr(equals + 1);
        if (text != "%") {
            AddKey(context, key, text);
        } else if (row.own == Whole) {
            AddKey(context, key, value);
        } else {
            AddText(context, key, value, static_cast<std::size_t>(row.most));
        }
    }
}

// Takes `value` if the row allows it and says what is wrong with it otherwise.
bool Take(CompletionContext &context, std::size_t row, TicketSource source, const char *option,
          std::string_view value) {
    const ShortOption &shortOption = kShortOptions[row];
    ShortValue &found = context.shortValues[row];
    if (UnderstandShortOption(shortOption, value, found.value)) {
        found.source = source;
        found.option = option;
        found.given = value;
        found.isGiven = true;
        return true;
    }
    BeginOption(context, source, option, value, DiscretionOf(shortOption));
    const bool confidential = IsConfidentialOption(shortOption.name);
    Note(context, confidential ? TicketNotice::Refused : TicketNotice::Dropped,
         "is not understood; allowed: " + AllowedValues(shortOption));
    return false;
}

}  // namespace

const ShortOption *FindShortOption(std::string_view name) {
    const ShortOption *end = kShortOptions + kShortOptionCount;
    const ShortOption *row = std::find_if(
        kShortOptions, end, [&](const ShortOption &option) { return SameName(option.name, name); });
    return row == end ? nullptr : row;
}

bool UnderstandShortOption(const ShortOption &row, std::string_view value,
                           std::string &understood) {
    std::string_view choices = row.choices;
    for (std::string_view choice; !(choice = NextWord(choices)).empty();) {
        if (!SameName(choice, value)) continue;
        understood = choice;
        return true;
    }
    if (IsCustomChoice(value)) value.remove_prefix(kCustomChoice.size());
    if (!UnderstandOwnValue(row, value)) return false;
    understood = value;
    return true;
}

Discretion DiscretionOf(const ShortOption &row) {
    return row.own == Secret ? Discretion::Password
           : row.own == Name ? Discretion::Name
                             : Discretion::Open;
}

std::string AllowedValues(const ShortOption &row) {
    std::string allowed;
    std::string_view choices = row.choices;
    for (std::string_view choice; !(choice = NextWord(choices)).empty();) {
        allowed.append(allowed.empty() ? "" : ", ").append(choice);
    }
    if (row.own == None) return allowed;
    if (row.own == Whole) {
        return allowed + ", a number from " + std::to_string(row.least) + " to " +
               std::to_string(row.most);
    }
    return allowed + ", a text of at most " + std::to_string(row.most) + " bytes";
}

void FindShortOptionValues(CompletionContext &context) {
    context.shortValues.resize(kShortOptionCount);
    for (std::size_t row = 0; row < kShortOptionCount; row++) {
        const char *name = kShortOptions[row].name;
        const char *value = JobValue(context, name);
        if (value && Take(context, row, TicketSource::ShortOption, name, value)) continue;
        const IPPOption attribute = ShortOptionOfIPPAttribute(context, name);
        if (attribute.value &&
            Take(context, row, TicketSource::IPPAttribute, attribute.name, attribute.value)) {
            continue;
        }
        const std::string marked = MarkedChoice(context.ppd, name);
        if (!marked.empty()) Take(context, row, TicketSource::QueueDefault, name, marked);
    }
}

void AddShortOptions(CompletionContext &context) {
    for (std::size_t row = 0; row < kShortOptionCount; row++) {
        const ShortOption &option = kShortOptions[row];
        const char *value = ShortOptionValue(context, option.name);
        if (!value) continue;
        BeginShortOption(context, option.name);
        if (option.expand) {
            option.expand(value, context);
        } else {
            AddKeysOf(option, value, context);
        }
    }
}
