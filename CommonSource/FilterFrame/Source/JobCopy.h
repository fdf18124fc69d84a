// SPDX-License-Identifier: Apache-2.0
//
// The job copy: what the output wrappers write, kept in a file for diagnosis. An administrator
// switches it on by creating the marker file; nobody removes the copies.
#pragma once

// The marker file, /Library/Printers/Korvell/kvjobcopy. Tests point it elsewhere.
extern const char *FlagPath;

// Opens gJobFilefp when the marker file exists. If it cannot, the job runs without a copy, and
// plain CUPS hears of it.
void OpenJobCopy();

// Closes the copy, if there is one, and gives it its permission bits; with plain CUPS only if the
// copy is whole.
void CloseJobCopy();
