// SPDX-License-Identifier: Apache-2.0
//
// A job's header, written in this process.
#pragma once

#include <cstring>
#include <string>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "Modules/Comment/CommentTicket.h"
#include "fuzz/FuzzDocument.h"
#include "support/TempFolder.h"

// libcups leaks of PPDs that say something twice, as found texts do, in many places, and shows a
// quick look no more of them than its own function. The tests see to what the filter does not free.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions() {
    return "leak:libcups.so\n";
}

// Makes the file of a PPD that of the job.
inline void UsePpd(const std::string &path) {
    setenv("PPD", path.c_str(), 1);
    CloseJobPPD();
}

inline std::string HeaderOf(std::string options) {
    static const bool bound = (InializeDescriptionTable(), true);
    FUZZ_CHECK(bound);
    // What the options say of collation stays until others speak of it; a process has one job.
    psoptioncomment.collation[0] = '\0';
    char word[] = "1";
    char *argv[] = {word, word, word, word, word, options.data(), nullptr};
    return RunQuietly([&] {
               GetTicketFromPDE(argv);
               OutputKPJLCommand(argv);
           })
        .output;
}

// Nothing of one job may reach the next: the header of `options` is the same before and after
// another job.
inline std::string HeaderThatStays(const std::string &options, const std::string &other) {
    const std::string header = HeaderOf(options);
    HeaderOf(other);
    FUZZ_CHECK(HeaderOf(options) == header);
    return header;
}
