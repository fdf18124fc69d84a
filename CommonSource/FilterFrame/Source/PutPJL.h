// SPDX-License-Identifier: Apache-2.0
//
// PJL lines that are written one by one to standard output; those of a table are CommandTable.h's.
// A line is cut at 99 bytes, its line end with it. Each function returns what KVfputs returns.
#pragma once

#include <cstdint>

// A job attribute: @PJL SET JOBATTR="@name=value"
int PutJobAttribute(const char *name, const char *value);
int PutJobAttribute(const char *name, std::int32_t value);

// "@PJL SET " and `format`: a setting of the printer. `format` is as for printf and ends the line
// itself, here and below.
[[gnu::format(printf, 1, 2)]] int PutSetting(const char *format, ...);

// "@PJL COMMENT KVJOBINFO " and `format`: information about the job.
[[gnu::format(printf, 1, 2)]] int PutJobInfo(const char *format, ...);
