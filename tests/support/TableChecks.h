// SPDX-License-Identifier: Apache-2.0
//
// Checks of the modules' tables as tables.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "CommonSource/FilterFrame/Source/CommandTable.h"
#include "support/CommandRules.h"

// The rows have the names and the order of the rules, and as many conditions; each format has as
// many control symbols as its parameter set has values; values and conditions have names.
void ExpectRows(std::span<const PrtFmtEntry> table, const std::vector<CommandRule> &rules);
