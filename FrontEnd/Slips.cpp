// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Slips.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "FrontEnd/Confidential.h"
#include "FrontEnd/QueueDefaults.h"
#include "FrontEnd/ShortOptions.h"

namespace {

constexpr char kPrefix[] = "KV";
constexpr char kSwitch[] = "KVFrontEnd";
constexpr std::size_t kMostSlip = 2;      // letters
constexpr std::size_t kLongestName = 40;  // of PPD options
constexpr int kMostSlips = 20;            // that are looked into; an option string may be hostile

char Lower(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

std::vector<const char *> KnownNames(ppd_file_t *ppd) {
    std::vector<const char *> names{kSwitch};
    for (std::size_t i = 0; i < kShortOptionCount; i++) names.push_back(kShortOptions[i].name);
    for (const char *const *key = kQueueTicketKeys; *key; key++) names.push_back(*key);
    for (ppd_option_t *option = ppd ? ppdFirstOption(ppd) : nullptr; option;
         option = ppdNextOption(ppd)) {
        if (SameName(std::string_view(option->keyword).substr(0, 2), kPrefix)) {
            names.push_back(option->keyword);
        }
    }
    return names;
}

bool IsKnown(const std::vector<const char *> &names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char *known) { return SameName(known, name); });
}

const char *Nearest(const std::vector<const char *> &names, std::string_view name,
                    std::size_t &distance) {
    const char *nearest = nullptr;
    distance = kMostSlip + 1;
    for (const char *known : names) {
        // Each letter by which one is longer has to be added.
        const auto [least, most] = std::minmax({std::strlen(known), name.size()});
        if (most - least >= distance) continue;
        const std::size_t slip = SlipDistance(known, name);
        if (slip < distance) nearest = known, distance = slip;
    }
    return nearest;
}

}  // namespace

std::size_t SlipDistance(std::string_view a, std::string_view b) {
    if (a.size() > kLongestName || b.size() > kLongestName) return kLongestName;
    std::size_t rows[3][kLongestName + 1];
    for (std::size_t j = 0; j <= b.size(); j++) rows[0][j] = j;
    for (std::size_t i = 1; i <= a.size(); i++) {
        std::size_t *row = rows[i % 3];
        const std::size_t *above = rows[(i + 2) % 3];
        const std::size_t *twoAbove = rows[(i + 1) % 3];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); j++) {
            const bool same = Lower(a[i - 1]) == Lower(b[j - 1]);
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (same ? 0 : 1)});
            const bool swapped = i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) &&
                                 Lower(a[i - 2]) == Lower(b[j - 1]);
            if (swapped) row[j] = std::min(row[j], twoAbove[j - 2] + 1);
        }
    }
    return rows[a.size() % 3][b.size()];
}

void NoteSlips(CompletionContext &context) {
    const std::vector<const char *> names = KnownNames(context.ppd);
    int slips = 0;
    for (const JobOption &option : context.job) {
        if (option.derived || IsKnown(names, option.name)) continue;
        const bool ours = SameName(std::string_view(option.name).substr(0, 2), kPrefix);
        std::size_t distance = 0;
        const char *nearest = Nearest(names, option.name, distance);
        if (!ours && distance > 1) continue;
        const ShortOption *meant = nearest ? FindShortOption(nearest) : nullptr;
        if (slips++ == kMostSlips) return;
        // What was meant to be a name or a password is none of the log's business.
        BeginOption(context, TicketSource::Job, option.name, option.value,
                    meant ? DiscretionOf(*meant) : Discretion::Open);
        if (!nearest) {
            Note(context, TicketNotice::Unknown, "is no option of this queue");
            continue;
        }
        Note(context, IsConfidentialOption(nearest) ? TicketNotice::Refused : TicketNotice::Unknown,
             std::string("is no option of this queue; is ") + nearest + " meant?");
    }
}
