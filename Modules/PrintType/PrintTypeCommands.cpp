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

// A secure job is held. Its format takes no value, so its parameter set stays unused.
constexpr char prtfmtStrSecurePrint[] = "@PJL SET HOLD=STORE\n";
constexpr CommandValue cmdParaSecurePrint[] = {
    kCR, kLF,
};
constexpr ComparationItem comparationItemSecurePrint[] = {
    KV_IS(ticket.printType, OptionSecurePrint),
    KV_GIVEN(ticket.userName),
};
SymParaTable symParaSecurePrint;
ComparationTable comparationSecurePrint;

// A password makes it private. The password is tested twice, to no effect.
constexpr char prtfmtStrSecurePrintHold[] = "@PJL SET HOLDTYPE=PRIVATE\n";
constexpr ComparationItem comparationItemSecurePrintHold[] = {
    KV_IS(ticket.printType, OptionSecurePrint),
    KV_GIVEN(ticket.userName),
    KV_GIVEN(ticket.password),
    KV_GIVEN(ticket.password),
};
ComparationTable comparationSecurePrintHold;

// A sample is printed and the other copies are held.
constexpr char prtfmtStrSamplePrintHold[] = "@PJL SET HOLD=PROOF\n";
constexpr ComparationItem comparationItemSamplePrintHold[] = {
    KV_IS(ticket.printType, OptionSamplePrint),
    KV_GIVEN(ticket.userName),
};
ComparationTable comparationSamplePrintHold;

// A job for a mailbox is stored there.
constexpr char prtfmtStrSMBPrintHold[] = "@PJL SET HOLD=BOXSTORE\n";
constexpr ComparationItem comparationItemSMBPrintHold[] = {
    KV_IS(ticket.printType, OptionMBN),
};
ComparationTable comparationSMBPrintHold;

// The mailbox's password makes it private.
constexpr char prtfmtStrMBNumberPrintHold[] = "@PJL SET HOLDTYPE=PRIVATE\n";
constexpr ComparationItem comparationItemMBNumberPrintHold[] = {
    KV_IS(ticket.printType, OptionMBN),
    KV_GIVEN(ticket.mailboxPassword),
};
ComparationTable comparationMBNumberPrintHold;

// The number of the mailbox. Without one the line stays empty.
constexpr char prtfmtStrSMBEnterNumber[] = "@PJL SET BOXNUMBER=%s%c%c";
constexpr CommandValue cmdParaSMBEnterNumber[] = {
    KV_VALUE(ticket.mailboxNumber), kCR, kLF,
};
constexpr ComparationItem comparationItemSMBEnterNumber[] = {
    KV_IS(ticket.printType, OptionMBN),
};
SymParaTable symParaSMBEnterNumber;
ComparationTable comparationSMBEnterNumber;

// The password of the mailbox.
constexpr char prtfmtStrSMBPassword[] = "@PJL SET BOXENCRYPTKEY=%c%s%c%c%c";
constexpr CommandValue cmdParaSMBPassword[] = {
    kQuote, KV_VALUE(ticket.mailboxPassword), kQuote, kCR, kLF,
};
constexpr ComparationItem comparationItemSMBPassword[] = {
    KV_IS(ticket.printType, OptionMBN),
    KV_GIVEN(ticket.mailboxPassword),
};
SymParaTable symParaSMBPassword;
ComparationTable comparationSMBPassword;

// The owner of a job that is held.
constexpr char prtfmtStrSecurePrintUserName[] = "@PJL SET USERNAME=%c%s%c%c%c";
constexpr CommandValue cmdParaSecurePrintUserName[] = {
    kQuote, KV_VALUE(ticket.userName), kQuote, kCR, kLF,
};
constexpr ComparationItem comparationItemSecurePrintUserName[] = {
    KV_IS_NOT(ticket.printType, OptionSecurePrintNone),
    KV_IS_NOT(ticket.printType, OptionDelayPrint),
    KV_IS_NOT(ticket.printType, OptionMBN),
    KV_GIVEN(ticket.userName),
};
SymParaTable symParaSecurePrintUserName;
ComparationTable comparationSecurePrintUserName;

// The password that releases a secure job.
constexpr char prtfmtStrSecurePrintPassword[] = "@PJL SET HOLDENCRYPTKEY=%c%s%c%c%c";
constexpr CommandValue cmdParaSecurePrintPassword[] = {
    kQuote, KV_VALUE(ticket.password), kQuote, kCR, kLF,
};
constexpr ComparationItem comparationItemSecurePrintPassword[] = {
    KV_IS(ticket.printType, OptionSecurePrint),
    KV_GIVEN(ticket.userName),
    KV_GIVEN(ticket.password),
};
SymParaTable symParaSecurePrintPassword;
ComparationTable comparationSecurePrintPassword;

// The job's name: its title.
constexpr char prtfmtStrDocumentNameAutoRetrieve[] = "@PJL SET JOBNAME=%c%s%c\r\n";
constexpr CommandValue cmdParaDocumentNameAutoRetrieve[] = {
    kQuote, KV_VALUE(PTStdDocumentName), kQuote,
};
constexpr ComparationItem comparationItemDocumentNameAutoRetrieve[] = {
    KV_IS_NOT(ticket.printType, OptionSecurePrintNone),
    KV_IS(ticket.documentNameType, OptionDocumentNameAutoRetrieve),
    KV_GIVEN(PTStdDocumentName),
};
SymParaTable symParaDocumentNameAutoRetrieve;
ComparationTable comparationDocumentNameAutoRetrieve;

// The job's name: the one entered in the dialog.
constexpr char prtfmtStrDocumentNameEnterName[] = "@PJL SET JOBNAME=%c%s%c\r\n";
constexpr CommandValue cmdParaDocumentNameEnterName[] = {
    kQuote, KV_VALUE(ticket.documentName), kQuote,
};
constexpr ComparationItem comparationItemDocumentNameEnterName[] = {
    KV_IS_NOT(ticket.printType, OptionSecurePrintNone),
    KV_IS(ticket.documentNameType, OptionDocumentNameEnterName),
    KV_GIVEN(ticket.documentName),
};
SymParaTable symParaDocumentNameEnterName;
ComparationTable comparationDocumentNameEnterName;

// The time at which a delayed job is printed.
constexpr char prtfmtStrDelayPrint[] = "@PJL SET JOBATTR=%c@PRTM=%s%c\r\n";
constexpr CommandValue cmdParaDelayPrint[] = {
    kQuote, KV_VALUE(ticket.delayPrintTime), kQuote,
};
constexpr ComparationItem comparationItemDelayPrint[] = {
    KV_IS(ticket.printType, OptionDelayPrint),
    KV_GIVEN(ticket.delayPrintTime),
};
SymParaTable symParaDelayPrint;
ComparationTable comparationDelayPrint;
// clang-format on

}  // namespace

constexpr PrtFmtEntry PrintTypeFmtTable[] = {
    KV_ROW_WITHOUT_VALUES(SecurePrint),
    KV_ROW_WITHOUT_VALUES(SecurePrintHold),
    KV_ROW_WITHOUT_VALUES(SamplePrintHold),
    KV_ROW_WITHOUT_VALUES(SMBPrintHold),
    KV_ROW_WITHOUT_VALUES(MBNumberPrintHold),
    KV_ROW(SMBEnterNumber),
    KV_ROW(SMBPassword),
    KV_ROW(SecurePrintUserName),
    KV_ROW(SecurePrintPassword),
    KV_ROW(DocumentNameAutoRetrieve),
    KV_ROW(DocumentNameEnterName),
    KV_ROW(DelayPrint),
};
static_assert(std::size(PrintTypeFmtTable) == PrintTypeFmtTableNum);

namespace {

void PrintTypeInitializeCmdParaTable() {
    KV_BIND_VALUES(SecurePrint);
    KV_BIND_VALUES(SMBEnterNumber);
    KV_BIND_VALUES(SMBPassword);
    KV_BIND_VALUES(SecurePrintUserName);
    KV_BIND_VALUES(SecurePrintPassword);
    KV_BIND_VALUES(DocumentNameAutoRetrieve);
    KV_BIND_VALUES(DocumentNameEnterName);
    KV_BIND_VALUES(DelayPrint);
}

void PrintTypeInitialzieComparationTable() {
    KV_BIND_CONDITIONS(SecurePrint);
    KV_BIND_CONDITIONS(SecurePrintHold);
    KV_BIND_CONDITIONS(SamplePrintHold);
    KV_BIND_CONDITIONS(SMBPrintHold);
    KV_BIND_CONDITIONS(MBNumberPrintHold);
    KV_BIND_CONDITIONS(SMBEnterNumber);
    KV_BIND_CONDITIONS(SMBPassword);
    KV_BIND_CONDITIONS(SecurePrintUserName);
    KV_BIND_CONDITIONS(SecurePrintPassword);
    KV_BIND_CONDITIONS(DocumentNameAutoRetrieve);
    KV_BIND_CONDITIONS(DocumentNameEnterName);
    KV_BIND_CONDITIONS(DelayPrint);
}

}  // namespace

void PrintTypeInializeDescriptionTableFromFilter() {
    PrintTypeInitializeCmdParaTable();
    PrintTypeInitialzieComparationTable();
}

void PrintTypeOutputKPJLCommandFromFilter() {
    OutputKPJLCommandFromArray(nullptr, PrintTypeFmtTable, PrintTypeFmtTableNum);
}
