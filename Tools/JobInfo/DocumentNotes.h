// SPDX-License-Identifier: Apache-2.0
//
// Notes down what a document says of itself and where the filter's own PostScript stands in it.
#pragma once

#include <cstdint>
#include <string_view>

#include "Tools/JobInfo/DecodedJob.h"

class DocumentNotes {
  public:
    // Adds what it notes to `document`, which has been set to where the document begins.
    explicit DocumentNotes(JobDocument &document) : document_(document) {}

    // The next line, its end included, and where it stands.
    void Add(std::string_view line, std::uint64_t offset);

  private:
    void TakeComment(std::string_view line);
    void TakeOwnCode(const char *meaning, std::uint64_t offset);

    JobDocument &document_;
    int embedded_ = 0;        // documents within the document that the line is in
    bool inFeature_ = false;  // the line before begins a feature that no PPD describes
};
