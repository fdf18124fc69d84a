// SPDX-License-Identifier: Apache-2.0
//
// What whoever starts the filter may have left in a state that would harm the job.
#pragma once

// To be called before anything is opened or printed.
//
// A standard descriptor that is closed is opened, the wrong way round, so that no file of the job
// takes its place and what is read or written there still fails. Standard output and standard error
// are made to wait for their reader. Nobody gets to see the job in a core dump.
void SecureSurroundings();
