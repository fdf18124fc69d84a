// SPDX-License-Identifier: Apache-2.0
//
// Two output handling features that the printer takes as PostScript: the image shift of booklets
// with the automatic scaling of their signatures, and separator pages. Each calls a procedure of
// the printer's "Custom" procedure set, in a stopped context: a printer that lacks the procedure
// goes on. The values come from kpjlOptionFeatures.
#pragma once

#include <cstdint>
#include <cstdio>

// The states of the auto-fit switch.
constexpr std::int32_t OptionAutoFitNone = 0;
constexpr std::int32_t OptionAutoFit = 1;

// Writes the features to `stream` at the injection point that is theirs. With one page on a sheet,
// separator pages end the prolog and the image shift ends the setup; with several, both stand in
// front of the line that disables setpagedevice. Returns 1.
int FeaturesOutputPSCommandFromFilter(int point, std::FILE *stream);

// Writes the image shift, if booklet margins are on, and after it the scaling, if the ticket has
// it.
void FeaturesOutputAutoFit(std::FILE *stream);

// Writes the separator pages, unless the ticket has none (-1) or turns them off (1).
void FeaturesOutputSeparatorPages(std::FILE *stream);
