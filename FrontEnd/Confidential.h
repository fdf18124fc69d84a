// SPDX-License-Identifier: Apache-2.0
//
// A job that is meant to be confidential must never lie open in the tray: where its confidentiality
// cannot be had it is refused.
#pragma once

#include <string_view>

#include "FrontEnd/CompletionContext.h"

// Whether a job that names this option wrongly could be meant to be confidential.
bool IsConfidentialOption(std::string_view name);

// Refuses the job if the ticket, whoever wrote it, asks for confidentiality that it does not bring
// about: no owner or password that reaches the printer unchanged. Says
// what the printer's fields must hold then. The last step but writing.
void RefuseOpenConfidentialJob(CompletionContext &context);
