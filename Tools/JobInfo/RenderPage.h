// SPDX-License-Identifier: Apache-2.0
//
// A page of PostScript as a picture. Ghostscript draws it, in a folder of its own beside the
// picture, without access to other files.
#pragma once

#include <string>
#include <string_view>

#include <sys/types.h>

class PageRenderer {
  public:
    // `picture` is the path of the PNG file to be.
    PageRenderer(std::string picture, int page) : picture_(std::move(picture)), page_(page) {}
    ~PageRenderer();
    PageRenderer(const PageRenderer &) = delete;
    PageRenderer &operator=(const PageRenderer &) = delete;

    // Starts Ghostscript. Returns what went wrong, empty if nothing.
    std::string Start();

    // Hands on a piece of the document.
    void Write(std::string_view bytes) const;

    // Leaves the picture. Returns what went wrong, empty if nothing; there is no picture then.
    std::string Finish();

  private:
    [[noreturn]] void Run(int input) const;
    std::string DrawnPath() const { return folder_ + "/page.png"; }

    std::string picture_;
    int page_;
    std::string folder_;
    pid_t child_ = -1;
    int input_ = -1;
};
