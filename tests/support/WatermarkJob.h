// SPDX-License-Identifier: Apache-2.0
//
// The watermark settings of a test job, as the print dialog would send them.
#pragma once

#include <string>

#include "support/TicketOption.h"

struct WatermarkJob {
    int onlyFirst = 0;
    std::string text = "(DRAFT)";
    std::string font = "Courier";
    int fontSize = 60;
    const char *colour[3] = {"0", "0", "0"};
    int density = 100;
    int angle = 0;
    int orientation = 1;
    int paperWidth = 612, paperHeight = 792;
    const char *width = "180", *height = "34";
    const char *horizontalOffset = "0", *verticalOffset = "0";

    std::string Options() const {
        const auto option = [](const char *key, const std::string &value) {
            return TicketOption("WMARK" + std::string(key) + "Ticket", value);
        };
        return option("Name", "draft") + option("Type", "0") +
               option("OnlyFirst", std::to_string(onlyFirst)) + option("Text", text) +
               option("Font", font) + option("FontSize", std::to_string(fontSize)) +
               option("ColorR", colour[0]) + option("ColorG", colour[1]) +
               option("ColorB", colour[2]) + option("Density", std::to_string(density)) +
               option("Angle", std::to_string(angle)) +
               option("Orientation", std::to_string(orientation)) +
               option("PaperWidth", std::to_string(paperWidth)) +
               option("PaperHeight", std::to_string(paperHeight)) + option("Width", width) +
               option("Height", height) + option("hOffset", horizontalOffset) +
               option("vOffset", verticalOffset);
    }
};
