// SPDX-License-Identifier: Apache-2.0
//
// The PPD features that the printer takes as PJL. A row says: where a document asks for this value
// of this PPD option, the job's header carries this command. The keywords and values are those of
// the printers' PPD files, whose spelling ("KVBrightnes", "KVRGBBCorrection") is theirs.
//
// The values of KVOutputMode that are resolutions and all of KVHalftone are not here: what they
// mean depends on the document and the device (FeatureToPJL.h).
#pragma once

#include <cstdint>
#include <string_view>

struct FeaturePJLRow {
    std::string_view keyword;  // PPD keyword, without its "*"
    std::string_view value;    // the marked choice
    const char *command;       // one PJL line, its line feed included
};

extern const FeaturePJLRow FeaturePPDKeyNameandMarkedValuetoPJLCommand[];
extern const std::int32_t kFeaturePJLRowCount;

// The command of the first row with this value of `keyword`, which begins with "*"; null if there
// is none.
const char *GetThePJLCommandfromKeywordsandMarkedValue(std::string_view keyword,
                                                       std::string_view value);
