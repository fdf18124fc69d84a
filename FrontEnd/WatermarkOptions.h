// SPDX-License-Identifier: Apache-2.0
//
// The watermark in people's terms. The printer's own print dialog measures the text and sends where
// it stands; people name the text and, if they like, font, size, angle, colour, density and pages.
#pragma once

#include "FrontEnd/CompletionContext.h"

// Adds the keys of the watermark that `value`, of KVWatermark, and the short options beside it
// describe: Draft, Copy, Confidential or a text of one's own. The text is centred on the sheet,
// runs as the pages on it do and lies within the printable area; one too large for that comes out
// smaller. A job with the dialog's own watermark keeps that.
void ExpandWatermark(const char *value, CompletionContext &context);
