// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sstream>
#include <string>

// Of what a job says on standard error: what does not depend on the machine. How far it has come, a
// slow one says and a fast one need not; its own address, not every machine's resolver knows. How
// the ticket was completed is another test's matter.
inline std::string SteadyMessages(const std::string &messages) {
    static constexpr const char *kUnsteady[] = {
        "ATTR:", "DEBUG:", "INFO: Printing page ",
        "WARNING: This computer's address is not in the job: "};
    std::istringstream lines(messages);
    std::string steady;
    for (std::string line; std::getline(lines, line);) {
        bool isSteady = true;
        for (const char *beginning : kUnsteady) isSteady &= !line.starts_with(beginning);
        if (isSteady) steady += line + "\n";
    }
    return steady;
}
