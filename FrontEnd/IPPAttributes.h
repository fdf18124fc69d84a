// SPDX-License-Identifier: Apache-2.0
//
// IPP attributes that CUPS passes on as they are, although the printer has options for them. (Those
// that the scheduler turns into PPD options come as these.)
#pragma once

#include "FrontEnd/CompletionContext.h"

// An option that an IPP client sent.
struct IPPOption {
    const char *name;
    const char *value;  // null: the job has none
};

// What the job's attributes say for a short option: job-password for KVPassword, for example.
IPPOption ShortOptionOfIPPAttribute(const CompletionContext &context, const char *shortOption);

// Whether print-color-mode was chosen, rather than sent by lp, which sends the queue's own value in
// every job. The job has a PPD.
bool ColorModeWasChosen(const CompletionContext &context);

// Adds the keys of layout, orientation and copies. Refuses a password that is not the user's own.
void AddIPPAttributes(CompletionContext &context);
