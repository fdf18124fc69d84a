// SPDX-License-Identifier: Apache-2.0
//
// Which choices of the queue's PPD hold for the job: its defaults, as lpadmin, the web interface
// and desktops' printer settings have set them, the job's options, and the PPD's constraints upon
// both.
#pragma once

#include "FrontEnd/CompletionContext.h"

// Marks the PPD's choices as they hold for the job. Options of the job that the PPD's choices do
// not know are dropped, those that it forbids together are resolved as CUPS does; both are noted.
void MarkQueue(CompletionContext &context);
