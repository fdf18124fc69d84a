// SPDX-License-Identifier: Apache-2.0
//
// Jobs whose PPD wants the features of a document as PJL.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/Ppd.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"

constexpr char kEnterPostScript[] = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
constexpr char kTrailer[] = "\x1b%-12345X@PJL EOJ\n";

inline std::string DecompositionPpd(const std::string &lines = "*ColorDevice: False\n") {
    return PpdWith("*KVPSDecompMode: \"1\"\n" + lines);
}

// A job with its temporary file in `folder`.
inline FilterJob DecompositionJob(const TempFolder &folder, const std::string &document = "") {
    FilterJob job;
    job.ppd = DecompositionPpd();
    job.input = document;
    job.environment = {{"TMPDIR", folder.Path().string()}};
    return job;
}

// The header of such jobs, without the switch to PostScript: what a job without input puts out.
inline const std::string &Header() {
    static const std::string header = [] {
        FilterJob job = DecompositionJob(TempFolder());
        job.more = {"/nonexistent/job.ps"};
        const std::string output = RunFilter(job).output;
        return output.substr(0, output.size() - sizeof kTrailer + 1);
    }();
    return header;
}

// What comes out for the PJL of the features and the document.
inline std::string Framed(const std::string &pjl, const std::string &document) {
    return Header() + pjl + kEnterPostScript + document + kTrailer;
}

inline std::vector<std::filesystem::path> Files(const TempFolder &folder) {
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(folder.Path())) {
        files.push_back(entry.path());
    }
    return files;
}
