// SPDX-License-Identifier: Apache-2.0
//
// Text as the printer's commands carry it. Ticket values arrive as UTF-8 and are converted unit by
// unit, so that one character that the printer lacks is dropped and the rest survives.
//
// Each conversion clears `destination` over its `size` bytes, writes at most size - 1 bytes and a
// NUL, and returns the length written; text that is not valid UTF-8 gives an empty text and 0.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <cups/ppd.h>

#include <cstdint>

// To ISO Latin-1. Characters that it lacks are dropped.
int ConvertUTF8ToEncoding(const char *source, char *destination, std::int32_t size);

// To UTF-8. Characters outside the basic plane are dropped; the last one may be cut. Kept as
// interface; no job reaches this.
int ConvertUTF8ToEncodingForUTF8(const char *source, char *destination, std::int32_t size);

// To UTF-8 between parentheses, whatever `encoding` says. A text that needs more than 255 UTF-16
// units with its parentheses goes without them; one that does not fit `size` gives an empty text.
// Kept as interface; no job reaches this.
int ConvertUTF8ToPPDEncoding(const char *source, char *destination, std::int32_t size,
                             CFStringEncoding encoding);

// The encoding that the PPD's LanguageEncoding stands for: JIS X 0208 for "JIS83-RKSJ", else (also
// without a PPD) UTF-8. Kept as interface; no job reaches this.
CFStringEncoding GetCFStringSimEncodingFromPPD(ppd_file_t *ppd);
