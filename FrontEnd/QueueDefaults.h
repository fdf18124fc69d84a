// SPDX-License-Identifier: Apache-2.0
//
// The queue's own settings: what its PPD marks by default, as lpadmin, the web interface and
// desktops' printer settings have set it, with the job's options and the PPD's constraints upon it.
#pragma once

#include <string>

#include "FrontEnd/CompletionContext.h"

// Marks the PPD's choices as they hold for the job. Options of the job that the PPD's choices do
// not know are dropped, those that it forbids together are resolved as CUPS does; both are noted.
void MarkQueue(CompletionContext &context);

// The choice that is marked, "Custom." and its text for a custom one; empty if there is none.
std::string MarkedChoice(ppd_file_t *ppd, const char *option);

// Adds what is marked for the PPD options that are also ticket keys, and the sides.
void AddQueueDefaults(CompletionContext &context);

// The PPD options that are also ticket keys, ended by a null pointer.
extern const char *const kQueueTicketKeys[];
