// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

#include <cerrno>
#include <cstring>
#include <string_view>

#include "CommonSource/FilterFrame/Source/Relay.h"
#include "CommonSource/FilterFrame/Source/SystemVersion.h"

std::FILE *gJobFilefp;
int writeError;
int jobCopyError;
bool stopsAtFailedWrite;

namespace {

constexpr std::int32_t kFirstVersionWithPageLog = 0x1070;

// Remembers why the first write failed.
void Note(bool succeeded, int &error) {
    if (!succeeded && error == 0) error = errno;
}

// Sends what the relay keeps, after what was written before it.
void SettleRelay(std::FILE *stream) {
    if (stream != stdout || !RelayKeepsText()) return;
    Note(std::fflush(stdout) == 0, writeError);
    const std::string_view rest = SendRelayed();
    Note(std::fwrite(rest.data(), 1, rest.size(), stdout) == rest.size(), writeError);
}

// Whether `stream` is to get what comes next.
bool IsOpenFor(std::FILE *stream) {
    if (OutputHasFailed(stream)) return false;
    SettleRelay(stream);
    return !OutputHasFailed(stream);
}

// Writes a text or leaves it to the relay; returns the bytes that are on their way.
std::size_t Put(std::string_view text, std::FILE *stream) {
    std::size_t kept = 0;
    if (stream == stdout && !std::ferror(stdout)) {
        kept = KeepForRelay(text);
        if (kept == 0 && RelayKeepsText()) {
            SettleRelay(stdout);
            kept = KeepForRelay(text);
        }
    }
    const std::size_t size = text.size() - kept;
    const std::size_t written = size == 0 ? 0 : std::fwrite(text.data(), 1, size, stream);
    Note(written == size, writeError);
    return written + kept;
}

// Writes `text` with each "%%" as one per-cent sign; returns the bytes written or -1.
int PutFormattedText(const char *text, std::FILE *stream) {
    std::size_t written = 0;
    while (*text != '\0') {
        const char *pair = std::strstr(text, "%%");
        const std::size_t length =
            pair ? static_cast<std::size_t>(pair - text) + 1 : std::strlen(text);
        if (std::fwrite(text, 1, length, stream) != length) return -1;
        written += length;
        text += length + (pair ? 1 : 0);
    }
    return static_cast<int>(written);
}

}  // namespace

bool OutputHasFailed(std::FILE *stream) {
    return stopsAtFailedWrite && std::ferror(stream);
}

std::size_t KVfwrite(const void *buffer, std::size_t size, std::size_t count, std::FILE *stream) {
    if (OutputHasFailed(stream)) return 0;
    if (gJobFilefp) Note(std::fwrite(buffer, size, count, gJobFilefp) == count, jobCopyError);
    const std::size_t written = Put({static_cast<const char *>(buffer), size * count}, stream);
    return written == size * count ? count : written / size;
}

std::size_t WriteUncopied(const void *buffer, std::size_t size, std::FILE *stream) {
    if (OutputHasFailed(stream)) return 0;
    return Put({static_cast<const char *>(buffer), size}, stream);
}

int KVfputs(const char *text, std::FILE *stream) {
    if (!IsOpenFor(stream)) return EOF;
    if (gJobFilefp) Note(std::fputs(text, gJobFilefp) >= 0, jobCopyError);
    const int result = std::fputs(text, stream);
    Note(result >= 0, writeError);
    return result;
}

int KVfputc(int character, std::FILE *stream) {
    if (!IsOpenFor(stream)) return EOF;
    if (gJobFilefp) Note(std::fputc(character, gJobFilefp) >= 0, jobCopyError);
    const int result = std::fputc(character, stream);
    Note(result >= 0, writeError);
    return result;
}

int KVfprintf(std::FILE *stream, const char *text) {
    if (!IsOpenFor(stream)) return EOF;
    if (gJobFilefp) Note(PutFormattedText(text, gJobFilefp) >= 0, jobCopyError);
    const int result = PutFormattedText(text, stream);
    Note(result >= 0, writeError);
    return result;
}

int KVfflush(std::FILE *stream) {
    if (!IsOpenFor(stream)) return EOF;
    const int result = std::fflush(stream);
    Note(result == 0, writeError);
    return result;
}

RelayedDocument::RelayedDocument(int document) {
    StartRelay(document);
}

RelayedDocument::~RelayedDocument() {
    SettleRelay(stdout);
    StartRelay(-1);
}

void FinishRelayedBlock() {
    SettleRelay(stdout);
    SkipRelayed();
}

void OutputPageLogCommand(int pageNumber, char *const argv[]) {
    std::int32_t version = 0;
    if (Gestalt_ALT(kGestaltSystemVersion, &version) != 0 || version < kFirstVersionWithPageLog) {
        return;
    }
    SettleRelay(stdout);  // a page that is counted is on its way
    std::fprintf(stderr, "PAGE:%d %s\n", pageNumber, argv[4]);
}
