// SPDX-License-Identifier: Apache-2.0
//
// A stamp on the pages of a document of any maker. Nothing in such a document tells where a page's
// marks are complete, but the printer knows: it runs the page device's EndPage procedure when it is
// about to print. Installed before the document's first line of code, outside of any save, the
// procedure stays through the setpagedevice calls of features and pages, and through the line by
// which several pages on a sheet disable setpagedevice; it then runs once for a sheet.
#pragma once

#include <cstdio>

struct PageStamp {
    // Writes the PostScript of the stamp: text, its font selected with selectfont, and a grestore
    // at the end. Null if there is no stamp.
    void (*output)(std::FILE *stream) = nullptr;
    // What stands between the slash and the size of selectfont: the font's name, perhaps with code
    // that makes the font and its name again.
    const char *font = "";
    bool firstPageOnly = false;
};

// Writes to `stream`, through the output wrappers, what makes the printer draw the stamp on top of
// every page that it prints, or the first. It is drawn in the default graphics state, leaves the
// page's own as it is, and needs no name that the document may have defined anew.
void PutPageStamp(const PageStamp &stamp, std::FILE *stream);
