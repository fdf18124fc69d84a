// SPDX-License-Identifier: Apache-2.0
//
// The two kinds of line that this folder writes to standard output. `format` is as for printf,
// says what follows the line's fixed beginning and ends the line itself. A line is cut at 99 bytes.
// Each returns what KVfputs returns.
#pragma once

// "@PJL COMMENT KVJOBINFO " and `format`: information about the job.
[[gnu::format(printf, 1, 2)]] int PutJobInfo(const char *format, ...);

// "@PJL SET " and `format`: a setting of the printer.
[[gnu::format(printf, 1, 2)]] int PutSetting(const char *format, ...);
