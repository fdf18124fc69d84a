// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Effects.h"

#include <algorithm>

#include "Tools/JobInfo/JobDecoder.h"
#include "Tools/JobInfo/PJLLine.h"

std::vector<Effect> EffectsOf(std::string_view output) {
    JobDecoder decoder;
    decoder.Feed(output);
    const DecodedJob &job = decoder.Finish();
    std::vector<Effect> effects;
    for (const SpecialPage &page : job.specialPages.pages) {
        effects.push_back({page.what, page.words});
    }
    for (const JobLine &line : job.header) {
        std::string_view text = line.text;
        if (text.starts_with(kExitLanguage)) text.remove_prefix(kExitLanguage.size());
        const PJLLine parsed = ParsePJL(text);
        const bool isHalf = line.isPartial && !parsed.row;
        effects.push_back({std::string(text), isHalf ? kHalfLine : MeaningOf(parsed)});
    }
    for (const OwnCode &code : job.document.ownCode)
        effects.push_back({"PostScript", code.meaning});
    return effects;
}

std::vector<Effect> Missing(const std::vector<Effect> &effects, std::vector<Effect> others) {
    std::vector<Effect> missing;
    for (const Effect &effect : effects) {
        const auto found = std::find(others.begin(), others.end(), effect);
        if (found == others.end()) {
            missing.push_back(effect);
        } else {
            others.erase(found);
        }
    }
    return missing;
}
