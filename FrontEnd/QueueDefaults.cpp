// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/QueueDefaults.h"

#include <algorithm>

#include "FrontEnd/MarkedChoice.h"

const char *const kQueueTicketKeys[] = {
    "KVStaple",
    "KVPunch",
    "KVNumPunchHoles",
    "KVSignature",
    "KVSigVol",
    "KVColorMode",
    "KVLineWeightAdjustment",
    "KVPBindPosition",
    "KVPBindTrimming",
    "KVPBindPageSize",
    "KVPBindCutPageSize",
    "KVPBindCutPositionTop",
    "KVPBindCutPositionFore",
    "KVPBindCutPageAdjustmentTB",
    "KVPBindCutPageAdjustmentFore",
    "KVPBindCutPositionAdjustmentTB",
    "KVPBindRotationAdjustTop",
    "KVPBindRotationAdjustBot",
    "KVPBindRotationAdjustFore",
    "KVPBindCoverPageSize",
    "KVPBindCoverMediaType",
    "KVPBindCoverMediaColor",
    "KVPBindCoverPaperTray",
    "KVPBindCoverAdjustX",
    "KVPBindCoverAdjustY",
    nullptr,
};

namespace {

constexpr char kSides[] = "sides";

// The names that PPDs have for the two sides of a sheet, and for their values.
constexpr const char *kDuplexOptions[] = {"Duplex", "JCLDuplex", "EFDuplex", "KD03Duplex"};
struct DuplexChoice {
    const char *choice;
    const char *sides;
};
constexpr DuplexChoice kDuplexChoices[] = {
    {"None", "one-sided"},
    {"False", "one-sided"},
    {"DuplexNoTumble", "two-sided-long-edge"},
    {"LongEdge", "two-sided-long-edge"},
    {"Top", "two-sided-long-edge"},
    {"DuplexTumble", "two-sided-short-edge"},
    {"ShortEdge", "two-sided-short-edge"},
    {"Bottom", "two-sided-short-edge"},
};

TicketSource SourceOf(const CompletionContext &context, std::string_view option) {
    const std::vector<std::string> &all = context.resolved;
    const bool resolved = std::any_of(
        all.begin(), all.end(), [&](const std::string &name) { return SameName(name, option); });
    return resolved ? TicketSource::Resolved : TicketSource::QueueDefault;
}

void AddSides(CompletionContext &context) {
    for (const char *name : kDuplexOptions) {
        const std::string choice = MarkedChoice(context.ppd, name);
        for (const DuplexChoice &row : kDuplexChoices) {
            if (choice.empty() || !SameName(row.choice, choice)) continue;
            const TicketSource resolved = SourceOf(context, name);
            BeginOption(context, JobValue(context, name) ? TicketSource::Job : resolved, name,
                        choice);
            if (resolved == TicketSource::Resolved) {
                ReplaceKey(context, kSides, row.sides);
            } else {
                AddKey(context, kSides, row.sides);
            }
            return;
        }
    }
}

}  // namespace

void AddQueueDefaults(CompletionContext &context) {
    for (const char *const *key = kQueueTicketKeys; *key; key++) {
        const std::string choice = MarkedChoice(context.ppd, *key);
        if (choice.empty()) continue;
        BeginOption(context, SourceOf(context, *key), *key, choice);
        AddKey(context, *key, choice);
    }
    AddSides(context);
    // Without a word on booklets the printer would be told of a short-edge duplex one.
    BeginOption(context, TicketSource::QueueDefault, "KVSignature", "None");
    AddKey(context, "KVSignature", "None");
}
