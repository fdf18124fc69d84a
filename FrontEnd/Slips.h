// SPDX-License-Identifier: Apache-2.0
//
// Slips of the pen: options that nobody knows, and the known one that they are most like.
#pragma once

#include "FrontEnd/CompletionContext.h"

// Notes the job's options that look like the filter's and are not known. Refuses the job where the
// slip is one of an option for confidential jobs.
void NoteSlips(CompletionContext &context);

// How many letters must be added, left out, replaced or swapped with their neighbour to make one
// name of the other, without regard to case.
std::size_t SlipDistance(std::string_view a, std::string_view b);
