// SPDX-License-Identifier: Apache-2.0
//
// What the steps of the completion (CompleteTicket.h) share while they work on one ticket. Each
// step asks for options and adds keys; what stands in the ticket already is never overwritten, so
// the order of the steps is the order of the sources.
#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <vector>

#include "FrontEnd/CompletedTicket.h"
#include "FrontEnd/OptionString.h"

// What a short option is.
struct ShortValue {
    bool isGiven = false;
    std::string value;                                // as its row spells it
    TicketSource source = TicketSource::ShortOption;  // who says so
    std::string option, given;                        // by which option, in which words
};

struct CompletionContext {
    char *const *argv;           // the filter's arguments: user 2, title 3, copies 4
    ppd_file_t *ppd;             // the queue's PPD or null; its choices are marked for this job
    std::vector<JobOption> job;  // the job's options that hold; what was not understood is gone
    std::vector<std::string> resolved{};    // PPD options that constraints have changed
    std::vector<ShortValue> shortValues{};  // of each row of kShortOptions

    // The option that keys are being added for.
    std::string option{};
    std::string given{};
    TicketSource source = TicketSource::Job;
    Discretion discretion = Discretion::Open;

    CompletedTicket ticket{};
};

// The value of an option of the job's, or null. Names are compared without case.
const char *JobValue(const CompletionContext &context, std::string_view name);

// The value that holds for a short option, from the job, an IPP attribute or the queue: one of its
// choices as the row spells it, or a text of the user's own without "Custom.". Null if the option
// says nothing (its first choice). FindShortOptionValues comes before this and what follows.
const char *ShortOptionValue(const CompletionContext &context, std::string_view name);

// What is known about a short option, or null if nobody speaks for it.
const ShortValue *FindShortValue(const CompletionContext &context, std::string_view name);

// Says that the keys added from now on come from `option`, given as `given`.
void BeginOption(CompletionContext &context, TicketSource source, std::string_view option,
                 std::string_view given, Discretion discretion = Discretion::Open);

// The same for a short option, from whatever says what it is.
void BeginShortOption(CompletionContext &context, std::string_view name);

// The value that the ticket has for `key` by now, or null.
const char *TicketValue(const CompletionContext &context, std::string_view key);

// Adds a key with a value that is its final text, unless the ticket has the key.
void AddKey(CompletionContext &context, std::string_view key, std::string_view value);

// Adds a key with a text that people typed, at most `size` bytes for the printer: in the printer's
// encoding, with nothing in it that ends a PJL string. Says what it left out; refuses the job
// where that is a password. Returns whether anything is left of the text.
bool AddText(CompletionContext &context, std::string_view key, std::string_view text,
             std::size_t size);

// Adds a key in place of what the ticket has for it; a null value only takes that away.
void ReplaceKey(CompletionContext &context, std::string_view key, const char *value);

// Notes something about the option that keys are being added for: "KVInsert=3: " + `why`. A name
// or a password is left out.
void Note(CompletionContext &context, TicketNotice::Kind kind, std::string_view why);
