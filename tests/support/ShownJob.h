// SPDX-License-Identifier: Apache-2.0
//
// Every job that a test prints also goes through the decoder of kvjobinfo, which may find nothing
// wrong with it but what the test asked for.
#pragma once

#include <string>

#include "support/RunFilter.h"

// Fails the test if the decoder finds a problem in the job's output that its input and options do
// not explain.
void CheckShown(const FilterJob &job, const std::string &output);
