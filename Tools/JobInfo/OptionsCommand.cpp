// SPDX-License-Identifier: Apache-2.0
#include <getopt.h>

#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "FrontEnd/FrontEnd.h"
#include "Tools/JobInfo/Commands.h"
#include "Tools/JobInfo/KnownOptions.h"
#include "Tools/JobInfo/Terminal.h"

namespace {

std::string OptionsAsText(const std::vector<KnownOption> &options) {
    Printout printout(StandardOutput());
    std::vector<Row> rows;
    std::string group;
    for (const KnownOption &option : options) {
        if (option.group != group) rows.push_back({option.group, "", Style::kHeading});
        group = option.group;
        std::string words = option.meaning;
        if (!option.values.empty()) words += ": " + option.values;
        if (!option.choice.empty()) words += "; if not given, " + option.choice;
        if (!option.example.empty()) words += ". Example: " + option.example;
        rows.push_back({option.name, words});
    }
    printout.Rows(rows);
    return printout.Text();
}

std::string OptionsAsJSON(const std::vector<KnownOption> &options) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const KnownOption &option : options) {
        list.push_back({{"group", option.group},
                        {"name", option.name},
                        {"values", option.values},
                        {"meaning", option.meaning},
                        {"default", option.choice},
                        {"example", option.example},
                        {"secret", option.isSecret}});
    }
    return list.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace

int OptionsCommand(int argc, char *argv[]) {
    int isJSON = 0;
    const char *ppd = nullptr;
    const option names[] = {{"json", no_argument, &isJSON, 1},
                            {"ppd", required_argument, nullptr, 'p'},
                            {nullptr, 0, nullptr, 0}};
    for (int code; (code = getopt_long(argc, argv, "", names, nullptr)) != -1;) {
        if (code == '?') return ComplainUsage(argv[0]);
        if (code == 'p') ppd = optarg;
    }
    if (argc > optind) return ComplainUsage(argv[0]);
    unsetenv("PPD");
    if (ppd) {
        setenv("PPD", ppd, 1);
        if (!JobPPD()) return Complain(ppd, "no PPD that can be read");
        FindFrontEnd("");
    }
    const std::vector<KnownOption> options = KnownOptions();
    std::fputs((isJSON ? OptionsAsJSON(options) : OptionsAsText(options)).c_str(), stdout);
    return kInOrder;
}
