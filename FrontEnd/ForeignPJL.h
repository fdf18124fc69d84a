// SPDX-License-Identifier: Apache-2.0
//
// Takes off the PJL that an application has put around its PostScript. The printer would take the
// sequence that ends a language (ESC "%-12345X") for the end of this job wherever it stands, and
// print what follows as text.
#pragma once

#include <cstddef>
#include <string_view>

inline constexpr std::string_view kUniversalExit = "\x1b%-12345X";

// Bytes at the end of a text that may be the beginning of PJL which goes on after it, and the
// Ctrl-D in front of that: at most 13.
std::size_t PJLBegunAtEnd(std::string_view text);

class ForeignPJL {
  public:
    // Takes what is document off the front of `text`, a line or a part of one, and returns it, its
    // line end included; drops what is PJL. Empty when all of `text` has been used. From the
    // sequence on, lines of PJL and empty lines are dropped, but for the end of one that began as
    // document, and before any document has come, all lines up to one that begins with "%!".
    std::string_view TakeDocument(std::string_view &text);

    // Says that document has come without having been taken in here.
    void BeginDocument() { hasDocument_ = true; }

    // Whether the text last taken in ended in PJL: the next line must be taken in by itself.
    bool IsOpen() const { return isOpen_; }

    // Whether PJL has been dropped, and with it all that there was.
    bool WasFound() const { return wasFound_; }
    bool HasDocument() const { return hasDocument_; }

  private:
    bool IsDropped(std::string_view line) const;

    bool isOpen_ = false;
    bool lineGoesOn_ = false;      // what was dropped last was not the end of its line
    bool documentGoesOn_ = false;  // nor was the document that was taken last
    bool wasFound_ = false;
    bool hasDocument_ = false;
};
