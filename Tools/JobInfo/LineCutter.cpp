// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/LineCutter.h"

#include <algorithm>

#include "Tools/JobInfo/PJLLine.h"

void LineCutter::Add(std::string_view bytes) {
    bytes_.erase(0, begin_);
    for (Mark *mark : {&lineFeed_, &carriageReturn_, &escape_}) {
        // What was searched in vain need not be searched again.
        mark->place -= std::min(mark->place, begin_);
    }
    begin_ = 0;
    bytes_ += bytes;
}

// The place of the next such byte, or the end of what has arrived. It is remembered, so that the
// search passes each byte once however many lines there are.
std::size_t LineCutter::Find(Mark &mark) {
    const std::size_t from = std::max(mark.place, begin_);
    mark.place = std::min(bytes_.find(mark.byte, from), bytes_.size());
    return mark.place;
}

// The place of the next universal exit language after the line's first byte, or of bytes that may
// become one; else the end of what has arrived.
std::size_t LineCutter::FindExitLanguage() {
    while (Find(escape_) != bytes_.size()) {
        const std::string_view found =
            std::string_view(bytes_).substr(escape_.place, kExitLanguage.size());
        if (escape_.place != begin_ && kExitLanguage.starts_with(found)) break;
        escape_.place++;
    }
    return escape_.place;
}

bool LineCutter::Next(bool isDocument, std::string_view &line) {
    std::size_t end = Find(lineFeed_);
    if (isDocument) end = std::min(end, Find(carriageReturn_));
    const std::size_t exit = FindExitLanguage();
    if (exit < end) {
        // Bytes that only begin like it are part of the line once nothing more can complete them.
        const bool whole = bytes_.size() - exit >= kExitLanguage.size();
        if (!whole && !ended_ && exit - begin_ < kLongestLine) return false;
        end = whole || !ended_ ? exit : bytes_.size();
    } else if (end != bytes_.size()) {
        end++;
    } else if (!ended_ && end - begin_ < kLongestLine) {
        return false;
    }
    if (end == begin_) return false;
    end = std::min(end, begin_ + kLongestLine);
    line = std::string_view(bytes_).substr(begin_, end - begin_);
    offset_ += line.size();
    begin_ = end;
    return true;
}
