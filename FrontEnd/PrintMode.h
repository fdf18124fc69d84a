// SPDX-License-Identifier: Apache-2.0
//
// What becomes of the job on the printer: printed at once, or kept for its owner.
#pragma once

#include "FrontEnd/CompletionContext.h"

// Adds the keys of KVPrintMode and of what belongs to it. Refuses a job with a password that its
// print mode has no use for.
void AddPrintMode(CompletionContext &context);
