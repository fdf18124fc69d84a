// SPDX-License-Identifier: Apache-2.0
//
// The job-information block: comment lines that tell the printer in plain words what the job is. A
// value that the ticket lacks writes no line. The block is, in this order:
//   basic, version 1.3.0:    version low, begin, basic, end
//   extended, version 1.5.0: version high, begin, basic, advanced, end
//
// The extended block is kept as interface; no job reaches its two writers.
//
// All writers read psoptioncomment, which must have been filled, write to standard output and
// return what their last KVfputs returned (0 if nothing was written).
#pragma once

int OutputKPJLCommandforCommentVersionLow();
int OutputKPJLCommandforCommentVersionHigh();

// BEGIN, the page description language and the kind of job.
int OutputKPJLCommandforCommentBegin();

// Copies, sides, colour, pages per sheet, stapling, punching, booklet. Cuts the record's signature
// volume to its number, for good: "5Sheets" becomes "5".
int OutputKPJLCommandforCommentBasic();

// Orientation, N-up order, saddle stitching, positions of staples and holes, mixed sizes, CUD.
int OutputKPJLCommandforCommentAdvanced();

int OutputKPJLCommandforCommentEnd();
