// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobRun.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "CommonSource/FilterFrame/Source/DecompositionPass.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/NameValidation.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PipeCapacity.h"
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"
#include "CommonSource/FilterFrame/Source/TextEncoding.h"
#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"
#include "FrontEnd/Client.h"
#include "FrontEnd/CompleteTicket.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/JobNames.h"
#include "FrontEnd/Messages.h"

void SignalHandler(int) {
    CancelJob = 1;
}

void SignalPipeHandler(int) {
    CancelJobForPipe = 1;
}

namespace {

void SetNames(char *argv[]) {
    ConvertUTF8ToEncoding(argv[2], StdUserName, kStdTextLength);
    std::memset(StdJBAUserName, 0, sizeof StdJBAUserName);
    std::memcpy(StdJBAUserName, StdUserName, sizeof StdJBAUserName - 1);
    ClearLayoutBuffers();
    InvalidateStdUserName();

    std::memset(StdDocumentName, 0, sizeof StdDocumentName);
    std::memset(PTStdDocumentName, 0, sizeof PTStdDocumentName);
    // A line break in a title would end the PJL command that carries it.
    if (std::strpbrk(argv[3], "\r\n")) return;
    ConvertUTF8ToEncoding(argv[3], StdDocumentName, kStdTextLength);
    InvalidateStdDocumentNameForProductType(argv);
}

void FindClient() {
    std::memset(HostNameStr, 0, sizeof HostNameStr);
    std::memset(IPAddressStr, 0, sizeof IPAddressStr);
    if (FrontEndIsCUPS()) {
        FindClientForCUPS(HostNameStr, IPAddressStr);
    } else {
        GetClientIPAddress(HostNameStr, IPAddressStr);
    }
}

// Reads the ticket, which is completed before where plain CUPS has written it: argv[5] is then
// that of `ticket`. False if nothing may be printed.
bool ReadTicket(char *argv[], CompletedTicket &ticket) {
    if (FrontEndIsCUPS()) {
        ticket = CompleteTicket(argv);
        ReportCompletion(ticket);
        if (ticket.refused) return false;
        argv[5] = ticket.options.data();
    }
    if (GetTicketFromPDE(argv) != 1) return false;  // GCOVR_EXCL_BR_LINE: fault
    const bool isWhole = std::ranges::all_of(
        ticket.confidential,
        [](const ConfidentialValue &value) { return TicketWasReadAs(value.key, value.bytes); });
    if (!isWhole) {  // GCOVR_EXCL_START: fault
        ReportError("no memory for the owner and the password of a confidential job");
    }  // GCOVR_EXCL_STOP
    return isWhole;
}

}  // namespace

int RunJob(int argc, char *argv[]) {
    std::signal(SIGTERM, SignalHandler);
    std::signal(SIGPIPE, SignalPipeHandler);
    SetNames(argv);
    FindFrontEnd(argv[5]);
    stopsAtFailedWrite = FrontEndIsCUPS();
    if (FrontEndIsCUPS()) SetJobNamesForCUPS(argv[2], argv[3]);
    InializeDescriptionTable();
    OpenJobCopy();
    FindClient();
    std::setbuf(stderr, nullptr);  // the page log must reach the scheduler at once
    WidenPipe(STDIN_FILENO);
    WidenPipe(STDOUT_FILENO);
    CompletedTicket ticket;
    if (!ReadTicket(argv, ticket)) {
        CloseJobCopy();
        return 1;
    }
    OutputKPJLCommand(argv);
    if (JobPPDAttributeIs(KPPDPSDecompModeKey, "1")) {
        OutputPSStreamtoFileandInsertPJLforFeaturePDE(argc, argv);
    } else {
        OutputPSStream(argc, argv);
    }
    OutputKPJLCommandFromArray(argv, prtFmtTableKPJLTrailer, numFmtTableKPJLTrailer);
    CloseJobCopy();
    KVfflush(stdout);  // a printer that has gone shows here at the latest
    if (writeError != 0 && !ErrorWasReported()) {
        ReportError("Standard output", "could not be written", writeError);
    }
    return CancelJobForPipe == 1 || ErrorWasReported() ? 1 : 0;
}
