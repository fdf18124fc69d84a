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

constexpr char kHeader[] = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n";
constexpr char kEnterPostScript[] = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
constexpr char kTrailer[] = "\x1b%-12345X@PJL EOJ\n";

// What comes out for the PJL of the features and the document.
inline std::string Framed(const std::string &pjl, const std::string &document) {
    return kHeader + pjl + kEnterPostScript + document + kTrailer;
}

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

inline std::vector<std::filesystem::path> Files(const TempFolder &folder) {
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(folder.Path())) {
        files.push_back(entry.path());
    }
    return files;
}
