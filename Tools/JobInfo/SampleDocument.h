// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// A document of one empty page as CUPS hands it to the filter for a job with these options: with
// the code of the features that the PPD of JobPPD() and the options mark.
std::string SampleDocument(const std::string &options);
