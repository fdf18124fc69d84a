// SPDX-License-Identifier: Apache-2.0
//
// How long a cancelled job may go on. It ends with the page that it is in; but a document may stall
// or have no page ends, and CUPS kills a filter that does not end (JobKillDelay, 30 seconds).
#pragma once

#include <chrono>

// How long a cancelled job waits for the end of its page: long enough for any page on its way,
// short enough for people who wait. Tests shorten it.
extern std::chrono::milliseconds cancelGrace;

// Whether plain CUPS has cancelled the job (CancelJob) so long ago that it ends where it is. The
// time runs from the first call that finds the job cancelled.
bool CancelIsOverdue();
