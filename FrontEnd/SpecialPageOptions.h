// SPDX-License-Identifier: Apache-2.0
//
// Covers, inserted sheets and page exceptions in people's terms:
//
//   KVFrontCover, KVBackCover   MEDIA[:SIDES]           Thick:both
//   KVInsert                    PAGES:MEDIA[:COUNT]     3,7:Tab,Interposer
//   KVException                 PAGES:[MEDIA][:SIDES]   2-5:Thick,A3:one-sided
//
// MEDIA, as CUPS's own media option, is parts with commas between: the type first, then in any
// order a colour (white if not given), a size (the job's) and "Interposer" for a sheet of that name
// out of the inserter, which has neither colour nor size. PAGES is written as page-ranges; a sheet
// goes in after each of them, after page 0 it comes first. SIDES of a cover with pages of the
// document on them are none (if not given), front, back or both; SIDES of an exception one-sided,
// two-sided-long-edge or two-sided-short-edge (the job's). Without MEDIA an exception is on the
// job's. Several insertions or exceptions are joined by "+".
#pragma once

#include "FrontEnd/CompletionContext.h"

// Each adds the keys that `value` stands for, of the option that gives it its name. One that is not
// understood is noted, and adds none; neither does one beside the dialog's own keys of its kind.
void ExpandFrontCover(const char *value, CompletionContext &context);
void ExpandBackCover(const char *value, CompletionContext &context);
void ExpandInsert(const char *value, CompletionContext &context);
void ExpandException(const char *value, CompletionContext &context);
