// SPDX-License-Identifier: Apache-2.0
//
// Every byte of the job leaves through these wrappers: first into the job copy, when one is open,
// then to its stream. Each wrapper returns what the standard call on `stream` returns. Nothing is
// reported here: who can tell people looks at writeError.
#pragma once

#include <cstddef>
#include <cstdio>

// The job copy, or null. The job run opens and closes it.
extern std::FILE *gJobFilefp;

// The errno of the first write to a stream that failed, and of the first to the job copy; else 0.
// Also set by who cannot put together, for want of memory, what was to be written.
extern int writeError;
extern int jobCopyError;

std::size_t KVfwrite(const void *buffer, std::size_t size, std::size_t count, std::FILE *stream);
// As KVfwrite of bytes, but not into the job copy.
std::size_t WriteUncopied(const void *buffer, std::size_t size, std::FILE *stream);

int KVfputs(const char *text, std::FILE *stream);
int KVfputc(int character, std::FILE *stream);

// Writes a text that the caller has formatted, as a format without arguments: "%%" comes out as
// one per-cent sign. Any other per-cent sequence stands as written, for the text may hold what a
// user typed. The stream comes first here, unlike above. Returns the number of bytes written to
// `stream`, or a negative number.
int KVfprintf(std::FILE *stream, const char *text);

// Whether a stream whose write has failed gets nothing more through these wrappers, so that no page
// with a hole in it follows; false until the job run decides. Else writing goes on.
extern bool stopsAtFailedWrite;

// Whether that is the case with `stream`.
bool OutputHasFailed(std::FILE *stream);

// Sends what `stream` has buffered. The job copy is left alone.
int KVfflush(std::FILE *stream);

// While it lives, what is read from `document` and goes to standard output unchanged may take a
// shorter way (Relay.h). It must end before the memory that the document is read into.
struct RelayedDocument {
    explicit RelayedDocument(int document);
    ~RelayedDocument();
    RelayedDocument(const RelayedDocument &) = delete;
    RelayedDocument &operator=(const RelayedDocument &) = delete;
};

// Must be called before the memory changes that such a document was read into.
void FinishRelayedBlock();

// Tells the scheduler, on standard error, that a page is out: "PAGE:number copies". `argv` are the
// filter's arguments; argv[4] holds the copies. Silent below version word 0x1070, where the
// scheduler counts pages by other means.
void OutputPageLogCommand(int pageNumber, char *const argv[]);
