// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Queue.h"

#include <cups/cups.h>
#include <cups/ppd.h>

#include <algorithm>
#include <string_view>

#include "FrontEnd/OptionString.h"

namespace {

// What CUPS tells of a printer beside the options that jobs get.
constexpr std::string_view kNoOptions[] = {
    "printer-", "marker-", "device-uri", "auth-info-required", "job-", "cups", "copies"};

bool IsOption(std::string_view name) {
    return std::none_of(std::begin(kNoOptions), std::end(kNoOptions),
                        [&](std::string_view begin) { return name.starts_with(begin); });
}

}  // namespace

Queue FindQueue(const char *name) {
    Queue queue;
    cups_dest_t *destination = cupsGetNamedDest(CUPS_HTTP_DEFAULT, name, nullptr);
    if (!destination) {
        queue.error = cupsLastErrorString();
        return queue;
    }
    for (int i = 0; i < destination->num_options; i++) {
        const cups_option_t &option = destination->options[i];
        if (IsOption(option.name)) AppendOption(queue.defaults, option.name, option.value);
    }
    cupsFreeDests(1, destination);
    if (const char *path = cupsGetPPD(name)) queue.ppd = path;
    return queue;
}
