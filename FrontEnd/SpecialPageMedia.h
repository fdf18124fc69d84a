// SPDX-License-Identifier: Apache-2.0
//
// The media of a cover, an inserted sheet or a page exception, as people name it and as the
// printer's XML ticket wants it.
#pragma once

#include <string>
#include <string_view>

#include "FrontEnd/CompletionContext.h"

// The fields of a ticket value that say what the media is: texts for XML, without commas, that fit
// the ticket's fields.
struct SpecialPageMedia {
    bool isNamed = false;  // a sheet of that name out of the inserter: the type is all there is
    std::string type;
    std::string colour;
    std::string width, height;  // hundredths of a millimetre
};

// Reads "TYPE,COLOUR,SIZE" (SpecialPageOptions.h); what is missing is the job's. False if the
// ticket cannot hold a part of it, which `problem` then is.
bool ReadSpecialPageMedia(std::string_view text, const CompletionContext &context,
                          SpecialPageMedia &media, std::string &problem);
