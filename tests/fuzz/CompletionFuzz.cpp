// SPDX-License-Identifier: Apache-2.0
//
// Completion of the ticket: short options, IPP attributes and dialog keys with any values, on the
// PPDs that ship. No password may show in what people are told, and no text that comes in by a
// short option may break out of its line.
#include "FrontEnd/CompleteTicket.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "fuzz/FuzzJob.h"
#include "fuzz/FuzzOptions.h"

namespace {

constexpr char kPassword[] = "Xq7Zz9";

std::vector<std::string> Ppds() {
    std::vector<std::string> paths;
    for (const auto &entry : std::filesystem::directory_iterator(KVFILTER_PPD_DIR)) {
        if (entry.path().extension() == ".ppd") paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

// What plain CUPS and its clients send.
std::vector<FuzzKey> PlainKeys() {
    std::vector<FuzzKey> keys = {
        {"sides", {"one-sided", "two-sided-long-edge", "two-sided-short-edge"}},
        {"media", {"A4", "Letter", "iso_a3_297x420mm", "A4,Thick"}},
        {"finishings", {"3", "20", "74", "11", "4,5"}},
        {"print-color-mode", {"color", "monochrome", "auto"}},
        {"print-quality", {"3", "4", "5"}},
        {"orientation-requested", {"3", "4", "5", "6"}},
        {"number-up-layout", {"lrtb", "btrl", "tblr"}},
        {"multiple-document-handling", {"separate-documents-collated-copies"}},
        {"page-delivery", {"same-order-face-down", "reverse-order-face-up"}},
        {"collate", {"true", "false"}},
        {"job-password", {kPassword}},
        {"job-account-id", {"4711"}},
        {"KVStaple", {"LeftDouble", "Nonsense"}},
        {"KVColorMode", {"Color", "Colour"}},
        {"KVStapel", {"LeftDouble"}},
    };
    AddShortOptionKeys(keys);
    return keys;
}

// Whether the password is given as anything else: a fuzzer learns it and puts it anywhere.
bool IsGivenAway(std::string options) {
    const std::string given = std::string("assword='") + kPassword + "'";
    for (std::size_t at; (at = options.find(given)) != options.npos;)
        options.erase(at, given.size());
    return options.find(kPassword) != options.npos;
}

void CheckMessages(const CompletedTicket &ticket) {
    for (const TicketNotice &notice : ticket.notices) {
        FUZZ_CHECK(notice.text.find(kPassword) == std::string::npos);
    }
}

// Every line of the header is a PJL command or belongs to the document of the special pages.
void CheckLines(const std::string &header) {
    bool inDocument = false;
    std::istringstream lines(header);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("<?xml")) inDocument = true;
        const bool isTag = line.find_first_not_of(' ') == line.find('<');
        const bool isPJL = line.starts_with("@PJL ") || line.starts_with("\x1b%-12345X");
        FUZZ_CHECK(inDocument ? isTag : isPJL);
        if (line == "</kpif>") inDocument = false;
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::vector<std::string> ppds = Ppds();
    static const std::vector<FuzzKey> plain = PlainKeys();
    static const std::vector<FuzzKey> all = [] {
        std::vector<FuzzKey> keys = TicketKeys();
        keys.insert(keys.end(), plain.begin(), plain.end());
        return keys;
    }();
    static std::size_t current = ppds.size();
    FuzzInput input(data, size);
    const std::size_t wanted = input.Below(ppds.size());
    if (wanted != current) UsePpd(ppds[wanted]);
    current = wanted;
    const unsigned kind = input.Byte();
    const bool isPlain = kind % 2 != 0;
    std::string options = FuzzOptions(input, isPlain ? plain : all);
    const bool isGivenAway = IsGivenAway(options);
    if (kind / 2 % 2 != 0) options += std::string("KVPassword=") + kPassword;
    char word[] = "1", user[] = "alice", title[] = "Report";
    char *argv[] = {word, word, user, title, word, options.data(), nullptr};
    const CompletedTicket ticket = CompleteTicket(argv);
    if (!isGivenAway) CheckMessages(ticket);
    if (ticket.refused) return 0;
    const std::string header = HeaderOf(ticket.options);
    if (isPlain) CheckLines(header);
    return 0;
}
