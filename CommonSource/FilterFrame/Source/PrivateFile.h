// SPDX-License-Identifier: Apache-2.0
//
// Files that the filter makes for one job in the folder for temporary files. The folder may be
// open to everyone, so a file is created exclusively (no link is followed, nothing overwritten)
// and readable by nobody else.
#pragma once

#include <cstddef>
#include <cstdio>

// Bytes of a path, its NUL included.
constexpr std::size_t kPrivatePathSize = 255;

// Creates and opens for writing the file that `format` names, a path under /private/tmp with one
// "%s" for the local time as YYYYmmddHHMMSS. Where /private/tmp is no directory, the file is made
// under $TMPDIR (CUPS sets it to a folder that the filter may write), else under /tmp. If the name
// is taken, "-" and the process id follow the time. Stores the path and returns the open stream,
// or returns null.
std::FILE *CreatePrivateFile(const char *format, char (&path)[kPrivatePathSize]);
