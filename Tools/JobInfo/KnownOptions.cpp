// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/KnownOptions.h"

#include <cups/ppd.h>

#include <algorithm>
#include <cctype>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/ShortOptions.h"
#include "FrontEnd/Slips.h"

namespace {

constexpr std::size_t kMostSlip = 2;  // letters

// In the names of fields and options that hold a password.
constexpr std::string_view kSecretWords[] = {"password", "passwd", "pin", "secret"};

bool SoundsSecret(std::string_view name) {
    std::string lower(name);
    for (char &byte : lower)
        byte = static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    return std::any_of(std::begin(kSecretWords), std::end(kSecretWords),
                       [&](std::string_view word) {
                           const std::size_t place = lower.find(word);
                           // "pin" is a word of its own at a name's end: "spine" and "opinion" are
                           // none.
                           return place != lower.npos && (word != "pin" || lower.ends_with(word));
                       });
}

void AddShortOptions(std::vector<KnownOption> &options) {
    for (std::size_t i = 0; i < kShortOptionCount; i++) {
        const ShortOption &row = kShortOptions[i];
        options.push_back({OptionKind::kShortOption, "Short options", row.name, AllowedValues(row),
                           row.meaning, row.example, "",
                           DiscretionOf(row) == Discretion::Password});
    }
}

void AddQueueOptions(std::vector<KnownOption> &options) {
    ppd_file_t *ppd = JobPPD();
    for (ppd_option_t *row = ppd ? ppdFirstOption(ppd) : nullptr; row; row = ppdNextOption(ppd)) {
        const auto known = std::find_if(options.begin(), options.end(), [&](const auto &option) {
            return SameName(option.name, row->keyword);
        });
        if (known != options.end()) {
            known->choice = row->defchoice;  // a short option that the queue offers
            continue;
        }
        std::string values;
        for (int i = 0; i < row->num_choices; i++) {
            values += (i > 0 ? ", " : "") + std::string(row->choices[i].choice);
        }
        options.push_back({OptionKind::kQueueOption, "The queue's options", row->keyword, values,
                           row->text, "", row->defchoice, SoundsSecret(row->keyword)});
    }
}

void AddTicketKeys(std::vector<KnownOption> &options) {
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) {
            options.push_back({OptionKind::kTicketKey, table.title, row.key, row.values,
                               row.meaning, "", "",
                               SoundsSecret(row.field) || SoundsSecret(row.key)});
        }
    }
}

// Whether `name` is the key, or one that it numbers: "KPIFCoverValueTicket_" and a number.
bool IsKey(const std::string &key, std::string_view name) {
    if (SameName(key, name)) return true;
    const std::string_view begin = name.substr(0, std::min(key.size(), name.size()));
    return key.ends_with('_') && SameName(key, begin) &&
           name.find_first_not_of("0123456789", key.size()) == name.npos;
}

}  // namespace

std::vector<KnownOption> KnownOptions() {
    std::vector<KnownOption> options;
    if (!JobPPD() || FrontEndIsCUPS()) AddShortOptions(options);
    AddQueueOptions(options);
    AddTicketKeys(options);
    return options;
}

const KnownOption *FindKnownOption(const std::vector<KnownOption> &options, std::string_view name) {
    const auto found = std::find_if(options.begin(), options.end(), [&](const KnownOption &option) {
        return IsKey(option.name, name);
    });
    return found == options.end() ? nullptr : &*found;
}

std::string NearestOption(const std::vector<KnownOption> &options, std::string_view name) {
    std::size_t least = kMostSlip + 1;
    std::string nearest;
    for (const KnownOption &option : options) {
        // The dialog's keys have a beginning in common that is longer than what slips are sought
        // in.
        const std::string_view prefix = KV_TICKET;
        const bool isKey = option.name.starts_with(prefix) && name.starts_with(prefix);
        const std::size_t common = isKey ? prefix.size() : 0;
        const std::string_view known = option.name;
        const std::size_t distance = SlipDistance(known.substr(common), name.substr(common));
        if (distance >= least || distance >= (name.size() - common) / 2) continue;
        least = distance;
        nearest = option.name;
    }
    return nearest;
}

bool IsSecretOption(const std::vector<KnownOption> &options, std::string_view name) {
    const KnownOption *known = FindKnownOption(options, name);
    return SoundsSecret(name) || (known && known->isSecret);
}
