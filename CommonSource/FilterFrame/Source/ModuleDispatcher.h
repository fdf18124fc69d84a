// SPDX-License-Identifier: Apache-2.0
//
// The one place that knows every module's tables, and the order of what all modules do alike: bind
// their tables, read the ticket, write the commands of a table, write PostScript at the injection
// points. A new module is added here. The lines that a module writes by code of its own (special
// pages, perfect binding, booklets, job information) have their places in JobHeader.cpp.
#pragma once

#include <cstdio>
#include <span>
#include <string_view>

#include "CommonSource/FilterFrame/Source/CommandTable.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/PageStamp.h"

// Every ticket table, in the order in which they are read, and after them the keys that the ticket
// is asked for one by one, whose rows have no destination.
struct TicketTable {
    const char *title;  // what the settings are about
    std::span<const ticketData> rows;
};
std::span<const TicketTable> TicketTables();

// Every command table of a module, in the order of the job header. Values and conditions are there
// once InializeDescriptionTableFromFilter has bound them; where a condition asks for a ticket
// value, its pointer is the destination of the value's row.
using CommandTable = std::span<const PrtFmtEntry>;
std::span<const CommandTable> CommandTables();

// Binds every module's tables to their lists.
void InializeDescriptionTableFromFilter();

// Reads every module's ticket values from argv[5]. Returns 1.
int GetTicketFromPDE(char *const argv[]);

// Whether the modules have read the text `text`, or the number of these digits, for `key`. They
// have not where memory ran out, which leaves fields empty without a word.
bool TicketWasReadAs(std::string_view key, std::string_view text);

// Writes the modules' PJL commands to standard output.
void OutputKPJLCommandFromFilter(char *const argv[]);

// Lets the modules write PostScript to `stream` at one injection point of the document
// (InjectionPoint, SpecialLines.h). `pageNumber` is the number of the page that ends, at a page
// end, and else the number of pages that have ended. Returns what the last module returns.
int OutputPSCommandFromFilter(int position, int pageNumber, std::FILE *stream);

// The stamp that a module wants on the job's pages, for documents in which no lines tell where to
// write it (FrontEnd/PageStamp.h).
PageStamp GetPageStampFromFilter();
