// SPDX-License-Identifier: Apache-2.0
#include "support/Ghostscript.h"

#include <cstdlib>
#include <cstring>
#include <sstream>

#include "support/TempFolder.h"

namespace {

RenderedPage ReadPixels(const std::string &file) {
    RenderedPage page;
    std::istringstream header(file);
    std::string magic, comment;
    int depth = 0;
    header >> magic;
    while ((header >> std::ws).peek() == '#') std::getline(header, comment);
    header >> page.width >> page.height >> depth;
    const std::size_t start = static_cast<std::size_t>(header.tellg()) + 1;
    page.pixels.resize(static_cast<std::size_t>(page.width * page.height));
    if (magic != "P6" || depth != 255 || file.size() != start + 3 * page.pixels.size()) {
        throw std::runtime_error("not a picture of pixels");
    }
    std::memcpy(page.pixels.data(), file.data() + start, 3 * page.pixels.size());
    return page;
}

}  // namespace

std::string DocumentOf(std::string_view job) {
    constexpr std::string_view kEnter = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
    const std::size_t enter = job.find(kEnter);
    const std::size_t trailer = job.rfind("\x1b%-12345X@PJL EOJ\n");
    if (enter == job.npos || trailer == job.npos || trailer < enter) return "";
    return std::string(job.substr(enter + kEnter.size(), trailer - enter - kEnter.size()));
}

Rendering Render(const std::string &document) {
    const TempFolder folder;
    folder.Write("document.ps", document);
    const std::string command = "cd '" + folder.Path().string() +
                                "' && exec gs -q -dNOPAUSE -dBATCH -dSAFER -sDEVICE=ppmraw -r72 "
                                "-o page%d.ppm document.ps >messages 2>&1";
    Rendering rendering{std::system(command.c_str()), folder.Read("messages"), {}};
    for (int number = 1;; number++) {
        const std::string file = folder.Read("page" + std::to_string(number) + ".ppm");
        if (file.empty()) return rendering;
        rendering.pages.push_back(ReadPixels(file));
    }
}
