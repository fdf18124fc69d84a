// SPDX-License-Identifier: Apache-2.0
//
// Commands that were nearly chosen: why not, in words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "Tools/JobInfo/Effects.h"

// A command that was not written because of one setting.
struct NearMiss {
    std::string command;  // "HOLD=STORE"
    std::string meaning;  // of the command
    std::string reason;   // "the print type is secure print, but the user name is empty"
};

// What `value` means by a row's list of values: "secure print" for "2" in "1 = print at once, 2 =
// secure print". Empty if the list does not say.
std::string WordsOfChoice(std::string_view values, std::string_view value);

// The commands of the modules' tables whose conditions all hold but for those on one value, where
// something that the ticket says asks for the command and `effects` has no other of its name. The
// modules' records hold the ticket.
std::vector<NearMiss> NearMisses(const TicketOptions &ticket, const std::vector<Effect> &effects);
