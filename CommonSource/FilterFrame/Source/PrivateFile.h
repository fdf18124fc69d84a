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

// Creates the file that `format` names, a path under /private/tmp with one "%s" for the local time
// as YYYYmmddHHMMSS, and opens it for writing and reading. Where it cannot be made there, it is
// made under $TMPDIR (CUPS sets it to a folder that the filter may write), else under /tmp. If the
// name is taken, "-" and the process id follow the time, or else "-" and what nobody can foretell.
// Stores the path and returns the stream, or returns null and sets errno (EINVAL for a format that
// is not as said).
std::FILE *CreatePrivateFile(const char *format, char (&path)[kPrivatePathSize]);

// The same, but the file has lost its name: it is gone when the process ends, whatever ends it.
std::FILE *CreateNamelessFile(const char *format, char (&path)[kPrivatePathSize]);

// Whether `path` (not what it links to, if it is a link) is still the file that has been opened.
bool IsNameOf(const char *path, std::FILE *file);
