// SPDX-License-Identifier: Apache-2.0
//
// Jobs on paper: the PostScript of a job, run by Ghostscript.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

// One page as pixels, the top row first.
struct RenderedPage {
    using Pixel = std::array<unsigned char, 3>;  // red, green, blue
    int width = 0, height = 0;
    std::vector<Pixel> pixels;

    // The pixel at (x, y) points from the lower left corner; a pixel is a point.
    Pixel At(int x, int y) const {
        return pixels[static_cast<std::size_t>((height - 1 - y) * width + x)];
    }
};

struct Rendering {
    int status;            // of Ghostscript: not 0 after an error in the document
    std::string messages;  // what it said and what the document printed
    std::vector<RenderedPage> pages;
};

// What the printer's PostScript interpreter gets of a job: what stands between the line that
// switches to PostScript and the trailer. Empty if the job lacks either.
std::string DocumentOf(std::string_view job);

// Runs a document at 72 pixels to the inch.
Rendering Render(const std::string &document);
