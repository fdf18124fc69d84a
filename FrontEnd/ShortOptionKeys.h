// SPDX-License-Identifier: Apache-2.0
//
// What the short options (ShortOptions.h) put into the ticket.
#pragma once

#include "FrontEnd/CompletionContext.h"

// Finds what each short option is, from the job, the IPP attributes and the queue; says what of it
// is not understood.
void FindShortOptionValues(CompletionContext &context);

// Adds the keys of all that are given.
void AddShortOptions(CompletionContext &context);
