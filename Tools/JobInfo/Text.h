// SPDX-License-Identifier: Apache-2.0
//
// Bytes of a job as text for people.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// `bytes` as UTF-8. Where they are valid UTF-8 they stand as they are, else as ISO Latin-1, the
// printer's encoding. What a terminal would obey stands between angle brackets: "<ESC>", "<04>".
std::string Visible(std::string_view bytes);

// The same where the terminal knows ASCII alone: all other characters stand in brackets too.
std::string VisibleASCII(std::string_view bytes);

// The cells that `text`, UTF-8, takes on a terminal.
std::size_t DisplayWidth(std::string_view text);

// Takes the next character off `text`, which is not empty, and returns its code point; -1, and one
// byte, if it is no valid UTF-8.
std::int32_t TakeCharacter(std::string_view &text);

// "1 byte", "18 bytes", "1,234 pages".
std::string Count(std::uint64_t count, std::string_view thing);
