// SPDX-License-Identifier: Apache-2.0
//
// The short options whose value is more than a text to be put into a key.
#pragma once

#include "FrontEnd/CompletionContext.h"

// "Copies", "Copies:2", "Pages:10".
void ExpandOffsetStacking(const char *value, CompletionContext &context);

// Pages as in page-ranges, "3,7-9".
void ExpandSeparator(const char *value, CompletionContext &context);

// A password that belongs to KVStorageID.
void ExpandStoragePassword(const char *value, CompletionContext &context);

// The computer's address, if there is one: a line that lacks it would not end.
void ExpandReportAddress(const char *value, CompletionContext &context);
