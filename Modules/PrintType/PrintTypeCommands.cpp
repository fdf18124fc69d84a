// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeCommands.h"

#include <iterator>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "Modules/PrintType/PrintTypeTicket.h"

namespace {

constexpr PrintTypeOptions &ticket = kpjlOptionPrintType;

// clang-format off
// printType
constexpr std::int32_t OptionSecurePrintNone = 1;  // print at once
constexpr std::int32_t OptionSecurePrint     = 2;  // hold until the owner releases it
constexpr std::int32_t OptionSamplePrint     = 3;  // print one copy and hold the rest
constexpr std::int32_t OptionDelayPrint      = 4;  // print at a set time
constexpr std::int32_t OptionMBN             = 5;  // store in a mailbox

// documentNameType
constexpr std::int32_t OptionDocumentNameAutoRetrieve = 1;  // the job's title
constexpr std::int32_t OptionDocumentNameEnterName    = 2;  // the name entered in the dialog
// clang-format on

#define KV_COMMAND KV_COMMAND_ARRAYS
#include "Modules/PrintType/PrintTypeRows.def"

}  // namespace

constexpr PrtFmtEntry PrintTypeFmtTable[] = {
#define KV_COMMAND KV_COMMAND_ROW
#include "Modules/PrintType/PrintTypeRows.def"
};
const std::int32_t PrintTypeFmtTableNum = std::size(PrintTypeFmtTable);

namespace {

void PrintTypeInitializeCmdParaTable() {
#define KV_COMMAND KV_COMMAND_BIND_VALUES
#include "Modules/PrintType/PrintTypeRows.def"
}

void PrintTypeInitialzieComparationTable() {
#define KV_COMMAND KV_COMMAND_BIND_CONDITIONS
#include "Modules/PrintType/PrintTypeRows.def"
}

}  // namespace

void PrintTypeInializeDescriptionTableFromFilter() {
    PrintTypeInitializeCmdParaTable();
    PrintTypeInitialzieComparationTable();
}

void PrintTypeOutputKPJLCommandFromFilter() {
    OutputKPJLCommandFromArray(nullptr, PrintTypeFmtTable, PrintTypeFmtTableNum);
}
