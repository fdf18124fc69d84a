// SPDX-License-Identifier: Apache-2.0
//
// The sheet that a job's pages are printed on: its size, the part that the printer reaches, and how
// the pages stand on it.
#pragma once

#include "FrontEnd/CompletionContext.h"

struct Sheet {
    double width, height;             // in points, before any turning of the pages
    double left, bottom, right, top;  // edges of the printable area, from the lower left corner
    int turn;  // by how many degrees the pages are turned on it, counter-clockwise: 0 to 270
};

// The sheet of the job that is being completed. Without a page size of the queue's PPD it is CUPS's
// own default, Letter.
Sheet SheetOf(const CompletionContext &context);
