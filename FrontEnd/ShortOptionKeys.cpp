// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ShortOptionKeys.h"

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/Confidential.h"
#include "FrontEnd/IPPAttributes.h"
#include "FrontEnd/MarkedChoice.h"
#include "FrontEnd/OptionString.h"
#include "FrontEnd/ShortOptionFunctions.h"
#include "FrontEnd/ShortOptions.h"
#include "FrontEnd/SpecialPageOptions.h"
#include "FrontEnd/WatermarkOptions.h"

namespace {

constexpr std::string_view kTicketPrefix = KV_TICKET;

// Adds the keys that `value` stands for, or notes why not.
using ExpandShortOption = void (*)(const char *value, CompletionContext &context);

// Of each row of kShortOptions its function, or null.
// clang-format off
#define KV_KEYS(...)          nullptr
#define KV_FUNCTION(function) function
#define KV_ELSEWHERE          nullptr
#define KV_SHORT_OPTION(name, choices, own, least, most, becomes, meaning, example) becomes,
constexpr ExpandShortOption kFunctions[] = {
#include "FrontEnd/ShortOptions.def"
};
// clang-format on

void AddKeysOf(const ShortOption &row, std::string_view value, CompletionContext &context) {
    const char *keys = ShortOptionKeysOf(row, value);
    std::string_view rest = keys ? keys : "";
    for (std::string_view word; !(word = NextWord(rest)).empty();) {
        const std::size_t equals = word.find('=');
        const std::string key = std::string(kTicketPrefix).append(word.substr(0, equals));
        const std::string_view text = word.substr(equals + 1);
        if (text != "%") {
            AddKey(context, key, text);
        } else if (row.own == OwnValue::Whole) {
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
        if (kFunctions[row]) {
            kFunctions[row](value, context);
        } else {
            AddKeysOf(option, value, context);
        }
    }
}
