// SPDX-License-Identifier: Apache-2.0
//
// The run of one job.
#pragma once

// The handlers of SIGTERM and SIGPIPE: they set CancelJob and CancelJobForPipe.
void SignalHandler(int signal);
void SignalPipeHandler(int signal);

// Turns the job that `argv` and the environment variable "PPD" describe (filter(7): job id, user,
// title, copies, options and, optionally, a file; `argc` is at least 6) into one printer-ready job
// on standard output. Returns the exit status: 1 if the output was closed early, else 0.
int RunJob(int argc, char *argv[]);
