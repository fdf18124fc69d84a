// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobHeader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "Modules/Comment/Booklet.h"
#include "Modules/Comment/CommentBlock.h"
#include "Modules/Comment/DeviceSettings.h"
#include "Modules/PBind/PBindCommands.h"
#include "Modules/SpecialPage/SpecialPageDocument.h"

// A code reads KV, the series (10 office printers, 20 and 30 copiers, 40 presses), the model and
// the kind of machine (P, C, X).
const char *const modelsWithComment[] = {
    "KV1010P", "KV1012P", "KV1014P", "KV1016P", "KV1018P", "KV1020P", "KV1022P", "KV1024P",
    "KV1026P", "KV1028P", "KV1030P", "KV1032P", "KV1034P", "KV1036P", "KV1038P", "KV1040P",
    "KV2010C", "KV2012C", "KV2014C", "KV2016C", "KV2018C", "KV2020C", "KV2022C", "KV2024C",
    "KV2026C", "KV2028C", "KV2030C", "KV2032C", "KV2034C", "KV2036C", "KV2038C", "KV2040C",
    "KV3010C", "KV3012C", "KV3014C", "KV3016C", "KV3018C", "KV3020C", "KV3022C", "KV3024C",
    "KV3026C", "KV3028C", "KV3030C", "KV3032C", "KV3034C", "KV3036C", "KV3038C", "KV3040C",
    "KV4010X", "KV4012X", "KV4014X", "KV4016X", "KV4018X", "KV4020X", "KV4022X", "KV4024X",
    "KV4026X", "KV4028X", "KV4030X", "KV4032X", "KV4034X", "KV4036X", "KV4038X", "KV4040X",
    "",
};

namespace {

// Universal exit language: the printer leaves whatever language it is in.
constexpr char prtfmtStrKPJLHead[] = "%c%c-12345X";
constexpr CommandValue cmdParaListKPJLHead[] = {
    KV_VALUE(CTRLSym_ESC),
    KV_VALUE(CTRLSym_PERCENTAGE),
};
constexpr std::uint32_t cmdParaNumKPJLHead = 2;
SymParaTable symParaKPJLHead;

// The only line that ends in CR LF whatever the job's options.
constexpr char prtfmtStrKPJLJobMode[] = "@PJL JOB MODE=PRINTER%c%c";
constexpr CommandValue cmdParaListKPJLJobMode[] = {
    KV_VALUE(CTRLSym_CR),
    KV_VALUE(CTRLSym_LF),
};
constexpr std::uint32_t cmdParaNumKPJLJobMode = 2;
SymParaTable symParaKPJLJobMode;

constexpr char prtfmtStrEnterPS[] = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";

// CR and LF are offered and not taken: the format ends its line itself.
constexpr char prtfmtStrKPJLTrailer[] = "%c%c-12345X@PJL EOJ\n";
constexpr CommandValue cmdParaListKPJLTrailer[] = {
    KV_VALUE(CTRLSym_ESC),
    KV_VALUE(CTRLSym_PERCENTAGE),
    KV_VALUE(CTRLSym_CR),
    KV_VALUE(CTRLSym_LF),
};
constexpr std::uint32_t cmdParaNumKPJLTrailer = 4;
SymParaTable symParaKPJLTrailer;

static_assert(std::size(cmdParaListKPJLHead) == cmdParaNumKPJLHead);
static_assert(std::size(cmdParaListKPJLJobMode) == cmdParaNumKPJLJobMode);
static_assert(std::size(cmdParaListKPJLTrailer) == cmdParaNumKPJLTrailer);

bool IsModelWithComment(const char *fileName) {
    for (const char *const *model = modelsWithComment; **model != '\0'; model++) {
        if (std::strstr(fileName, *model)) return true;
    }
    return false;
}

}  // namespace

const PrtFmtEntry prtFmtTableKPJLHead[] = {
    {prtfmtStrKPJLHead, &symParaKPJLHead, nullptr, "KPJLHead"},
};
const std::int32_t numFmtTableKPJLHead = std::size(prtFmtTableKPJLHead);

const PrtFmtEntry prtFmtTableKPJLJobMode[] = {
    {prtfmtStrKPJLJobMode, &symParaKPJLJobMode, nullptr, "KPJLJobMode"},
};
const std::int32_t numFmtTableKPJLJobMode = std::size(prtFmtTableKPJLJobMode);

const PrtFmtEntry prtFmtTableEnterPS[] = {
    {prtfmtStrEnterPS, nullptr, nullptr, "EnterPS"},
};
const std::int32_t numFmtTableEnterPS = std::size(prtFmtTableEnterPS);

const PrtFmtEntry prtFmtTableKPJLTrailer[] = {
    {prtfmtStrKPJLTrailer, &symParaKPJLTrailer, nullptr, "KPJLTrailer"},
};
const std::int32_t numFmtTableKPJLTrailer = std::size(prtFmtTableKPJLTrailer);

void InializeDescriptionTable() {
    InitializeCmdParaTable(&symParaKPJLHead, cmdParaNumKPJLHead, cmdParaListKPJLHead);
    InitializeCmdParaTable(&symParaKPJLJobMode, cmdParaNumKPJLJobMode, cmdParaListKPJLJobMode);
    InitializeCmdParaTable(&symParaKPJLTrailer, cmdParaNumKPJLTrailer, cmdParaListKPJLTrailer);
    InializeDescriptionTableFromFilter();
}

bool WantsCommentBlock() {
    const ppd_attr_t *encoding = ppdFindAttr_ALT(JobPPD(), KPPDPrinterLanguageEncodingKey);
    if (encoding) {
        if (!JobPPDAttributeIs(KPPDPrinterLanguageEncodingKey, "UTF-8")) return true;
    } else {
        const ppd_attr_t *fileName = ppdFindAttr_ALT(JobPPD(), KPPDPCFileNameKey);
        if (!fileName) return false;
        if (fileName->value && IsModelWithComment(fileName->value)) return true;
    }
    return JobPPDAttributeIs(KPPDCommentOnKey, "True");
}

void OutputKPJLCommand(char *const argv[]) {
    InjectKPIFCommandSP(argv);
    OutputKPJLCommandFromArray(argv, prtFmtTableKPJLHead, numFmtTableKPJLHead);
    OutputKPJLCommandFromArray(argv, prtFmtTableKPJLJobMode, numFmtTableKPJLJobMode);
    OutputKPJLCommandFromFilter(argv);
    OutputKPJLCommandforPerfectBind();
    OutputKPJLCommandforBooklet();
    OutputKPJLCommandOthers();
    if (WantsCommentBlock()) {
        OutputKPJLCommandforCommentVersionLow();
        OutputKPJLCommandforCommentBegin();
        OutputKPJLCommandforCommentBasic();
        OutputKPJLCommandforCommentEnd();
    }
    if (JobPPDAttributeIs(KPPDPSDecompModeKey, "1")) return;
    OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
}
