// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>

// Reads `path`, or standard input if it is null or "-", to its end and hands on what arrives. On a
// terminal standard error shows how far a long input has been read. Returns what went wrong, empty
// if nothing.
std::string ReadInput(const char *path, const std::function<void(std::string_view)> &take);

// What people call that input.
std::string InputName(const char *path);
