// SPDX-License-Identifier: Apache-2.0
//
// The queue's own settings, for what the job leaves open.
#pragma once

#include "FrontEnd/CompletionContext.h"

// Adds what the PPD marks (QueueMarking.h) for its options that are also ticket keys, and the
// sides.
void AddQueueDefaults(CompletionContext &context);

// The PPD options that are also ticket keys, ended by a null pointer.
extern const char *const kQueueTicketKeys[];
