// SPDX-License-Identifier: Apache-2.0
//
// Passes the document on to standard output without copying it back from this process. What arrives
// from a pipe or a file is moved into a pipe that holds it (splice), and only a copy is looked at
// (tee). What is not changed goes from there to standard output, if that is a pipe too. Where the
// system or the descriptors do not allow that, nothing is relayed, and the document is read and
// written as usual.
//
// There is one relay, as there is one standard output. Only the output writer keeps and sends.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string_view>

// From now on what RelayRead reads from `source` may be relayed; with -1, nothing. What is kept
// must have been sent.
void StartRelay(int source);

// Bytes in front of a block that may hold what has not been sent of the one before it.
constexpr std::ptrdiff_t kRelayRoom = 8192;

// Reads as read(2) does. `block`, and the end of the one before it in the room in front of it, must
// stay as they are until SkipRelayed; what is left of that one is written into the room once more.
ssize_t RelayRead(int file, char *block, std::size_t size);

// Offers a text that is to be written next. Returns how much of its end is kept for SendRelayed;
// what stands in front of that, perhaps all, is for the caller to write first. When something is
// kept already, all of the text is kept or nothing.
std::size_t KeepForRelay(std::string_view text);
bool RelayKeepsText();

// Sends what is kept. Returns the rest of it, which is for the caller to write, if standard output
// does not take it this way.
std::string_view SendRelayed();

// Must be called before the block changes, when what is kept has been sent. What is left of it can
// be relayed with the next one if the room in front of that holds it.
void SkipRelayed();
