// SPDX-License-Identifier: Apache-2.0
//
// What is marked in a PPD.
#pragma once

#include <cups/ppd.h>

#include <string>

// The choice that is marked, "Custom." and its text for a custom one; empty if there is none.
std::string MarkedChoice(ppd_file_t *ppd, const char *option);
