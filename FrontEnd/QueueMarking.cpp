// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/QueueMarking.h"

#include <cups/cups.h>

#include <algorithm>
#include <cstring>

#include "FrontEnd/IPPAttributes.h"
#include "FrontEnd/MarkedChoice.h"
#include "FrontEnd/ShortOptions.h"

namespace {

constexpr char kColorMode[] = "KVColorMode";
constexpr char kSides[] = "sides";
constexpr const char *kSidesAllowed[] = {"one-sided", "two-sided-long-edge",
                                         "two-sided-short-edge"};

struct ColorModeChoice {
    const char *mode;  // print-color-mode
    const char *choice;
};
constexpr ColorModeChoice kColorModes[] = {
    {"color", "Color"},           {"monochrome", "Black"},
    {"auto-monochrome", "Black"}, {"process-monochrome", "Black"},
    {"bi-level", "Black"},        {"process-bi-level", "Black"},
};

ppd_choice_t *FindChoice(ppd_option_t *option, std::string_view name) {
    ppd_choice_t *end = option->choices + option->num_choices;
    ppd_choice_t *choice = std::find_if(
        option->choices, end, [&](const ppd_choice_t &c) { return SameName(c.choice, name); });
    return choice == end ? nullptr : choice;
}

std::string Choices(const ppd_option_t *option) {
    std::string names;
    for (int i = 0; i < option->num_choices; i++) {
        names.append(i ? ", " : "").append(option->choices[i].choice);
    }
    return names;
}

// Whether the queue knows the value of one of its own options, which is then spelled as it does.
bool Understood(CompletionContext &context, JobOption &given) {
    if (given.name == kSides) {
        return std::any_of(std::begin(kSidesAllowed), std::end(kSidesAllowed),
                           [&](const char *sides) { return given.value == sides; });
    }
    ppd_option_t *option = ppdFindOption(context.ppd, given.name.c_str());
    if (!option || FindShortOption(given.name)) return true;
    if (const ppd_choice_t *choice = FindChoice(option, given.value)) {
        given.value = choice->choice;
        return true;
    }
    const bool isSize = SameName(given.name, "PageSize") || SameName(given.name, "PageRegion");
    if (isSize) return ppdPageSize(context.ppd, given.value.c_str()) != nullptr;
    return IsCustomChoice(given.value) && ppdFindCustomOption(context.ppd, option->keyword);
}

void DropMisunderstood(CompletionContext &context) {
    std::erase_if(context.job, [&](JobOption &given) {
        if (Understood(context, given)) return false;
        const ppd_option_t *option = ppdFindOption(context.ppd, given.name.c_str());
        BeginOption(context, TicketSource::Job, given.name, given.value);
        Note(context, TicketNotice::Dropped,
             "is not understood; allowed: " +
                 (option ? Choices(option)
                         : std::string("one-sided, two-sided-long-edge, two-sided-short-edge")));
        return true;
    });
}

// Whether a mapping of the PPD, "*KVStaple None *KVPunch None", sets the option to that value.
bool Sets(const char *mapping, const JobOption &option) {
    const std::string words = std::string(" ") + (mapping ? mapping : "") + " ";
    return words.find(" *" + option.name + " " + option.value + " ") != std::string::npos;
}

bool SetByNoFinishing(ppd_file_t *ppd, const JobOption &option) {
    constexpr char kMapping[] = "cupsIPPFinishings";
    for (const ppd_attr_t *row = ppdFindAttr(ppd, kMapping, nullptr); row;
         row = ppdFindNextAttr(ppd, kMapping, nullptr)) {
        if (std::strcmp(row->spec, "3") == 0 && Sets(row->value, option)) return true;
    }
    return false;
}

// lp sends finishings=3 (none) and the queue's print-color-mode in every job. What the scheduler
// has made of these nobody has chosen, so the queue's own defaults stand.
void DropClientDefaults(CompletionContext &context, bool colorModeChosen) {
    const char *finishings = JobValue(context, "finishings");
    const bool noFinishing = finishings && std::strcmp(finishings, "3") == 0;
    std::erase_if(context.job, [&](const JobOption &option) {
        if (noFinishing && option.name == "finishings") return true;
        if (!colorModeChosen && option.name == "print-color-mode") return true;
        if (!option.derived) return false;
        if (noFinishing && SetByNoFinishing(context.ppd, option)) return true;
        return !colorModeChosen && (option.name == kColorMode || option.name == "ColorModel");
    });
}

// PPDs cannot map print-color-mode without being beaten by what lp sends; so it is done here.
void AddColorMode(CompletionContext &context) {
    const char *mode = JobValue(context, "print-color-mode");
    if (!mode || JobValue(context, kColorMode)) return;
    for (const auto &[name, choice] : kColorModes) {
        if (std::strcmp(mode, name) != 0) continue;
        context.job.push_back({kColorMode, choice, true});  // moves what `mode` points to
        return;
    }
}

void MarkJob(CompletionContext &context) {
    int count = 0;
    cups_option_t *options = nullptr;
    for (const JobOption &option : context.job) {
        count = cupsAddOption(option.name.c_str(), option.value.c_str(), count, &options);
    }
    cupsMarkOptions(context.ppd, count, options);
    cupsFreeOptions(count, options);
    // What the job names itself holds against what attributes stand for.
    for (const JobOption &option : context.job) {
        if (!option.derived && ppdFindOption(context.ppd, option.name.c_str())) {
            ppdMarkOption(context.ppd, option.name.c_str(), option.value.c_str());
        }
    }
}

JobOption *FindJobOption(CompletionContext &context, std::string_view name) {
    const auto found = std::find_if(context.job.begin(), context.job.end(),
                                    [&](const JobOption &o) { return SameName(o.name, name); });
    return found == context.job.end() ? nullptr : &*found;
}

// The one option in conflict that the job names itself, or null if there is none or more.
ppd_option_t *ChosenInConflict(CompletionContext &context) {
    ppd_option_t *chosen = nullptr;
    for (const JobOption &given : context.job) {
        ppd_option_t *option = ppdFindOption(context.ppd, given.name.c_str());
        if (!option || !option->conflicted) continue;
        if (chosen) return nullptr;
        chosen = option;
    }
    return chosen;
}

void Change(CompletionContext &context, const char *name, const char *value) {
    const std::string before = MarkedChoice(context.ppd, name);
    if (before.empty() || SameName(before, value)) return;
    cups_option_t *others = nullptr;
    const int count = cupsGetConflicts(context.ppd, name, before.c_str(), &others);
    std::string with;
    for (int i = 0; i < count; i++) {
        with.append(with.empty() ? "" : ", ").append(others[i].name).append("=");
        with.append(others[i].value);
    }
    cupsFreeOptions(count, others);
    BeginOption(context, TicketSource::Resolved, name, before);
    Note(context, TicketNotice::Resolved,
         "is not possible with " + with + ": " + name + "=" + value + " is used");
    ppdMarkOption(context.ppd, name, value);
    context.resolved.emplace_back(name);
    if (JobOption *given = FindJobOption(context, name)) given->value = value;
}

void ResolveConflicts(CompletionContext &context) {
    if (ppdConflicts(context.ppd) == 0) return;
    const ppd_option_t *keep = ChosenInConflict(context);
    const std::string choice = keep ? MarkedChoice(context.ppd, keep->keyword) : "";
    cups_option_t *changes = nullptr;
    int count = 0;
    if (!cupsResolveConflicts(context.ppd, keep ? keep->keyword : nullptr,
                              keep ? choice.c_str() : nullptr, &count, &changes)) {
        BeginOption(context, TicketSource::Resolved, "options", "");
        Note(context, TicketNotice::Resolved, "of this job are not possible together");
    }
    for (int i = 0; i < count; i++) Change(context, changes[i].name, changes[i].value);
    cupsFreeOptions(count, changes);
}

}  // namespace

void MarkQueue(CompletionContext &context) {
    if (!context.ppd) return;
    ppdMarkDefaults(context.ppd);
    DropMisunderstood(context);
    const bool colorModeChosen = ColorModeWasChosen(context);
    DropClientDefaults(context, colorModeChosen);
    AddColorMode(context);
    MarkJob(context);
    ResolveConflicts(context);
}
