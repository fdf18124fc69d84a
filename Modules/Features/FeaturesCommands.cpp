// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesCommands.h"

#include <iterator>

#include "Modules/Features/FeaturesTicket.h"

namespace {

constexpr FeaturesOptions &ticket = kpjlOptionFeatures;

// clang-format off
// tabMarginSwitch, trimmerSwitch, numInSequenceSwitch
constexpr std::int32_t OptionTabMarginNone     = 0;
constexpr std::int32_t OptionTabMargin         = 1;
constexpr std::int32_t OptionTrimmerNone       = 0;
constexpr std::int32_t OptionTrimmer           = 1;
constexpr std::int32_t OptionNumInSequenceNone = 0;
constexpr std::int32_t OptionNumInSequence     = 1;

// offsetStackingList
constexpr std::int32_t OptionOffsetStackingEndOfSetPage = 4;
constexpr std::int32_t OptionOffsetStackingEndOfSetCopy = 5;

// ejectOptionsList
constexpr std::int32_t EjectOptionsOff         = 1;
constexpr std::int32_t EjectOptionsDown        = 2;
constexpr std::int32_t EjectOptionsUp          = 3;
constexpr std::int32_t EjectOptionsDownReverse = 4;
constexpr std::int32_t EjectOptionsUpReverse   = 5;

// numPunchHoles, mediaTypeTab, coilPunchFace
constexpr const char *punchHoleCoil    = "Coil";  // in the names of all coil punchings
constexpr const char *mediaTypeIsTab   = "true";
constexpr const char *mediaTypeNoTab   = "false";
constexpr const char *coilPunchFaceOn  = "true";
constexpr const char *coilPunchFaceOff = "false";

// whetherMediaTypeTab
constexpr std::int32_t specialPagesMediaNoTab = 0;
constexpr std::int32_t specialPagesMediaTab   = 1;

// The tab margin is not shifted.
constexpr char prtfmtStrTabMarginNone[] = "@PJL SET JOBATTR=%c@TABS=OFF%c%c";
constexpr CommandValue cmdParaTabMarginNone[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemTabMarginNone[] = {
    KV_IS(ticket.tabMarginSwitch, OptionTabMarginNone),
};
SymParaTable symParaTabMarginNone;
ComparationTable comparationTabMarginNone;

// The shift of the tab margin, in millimetres.
constexpr char prtfmtStrTabMargin[] = "@PJL SET JOBATTR=%c@TABS=%s%c%c";
constexpr CommandValue cmdParaTabMargin[] = {
    kQuote, KV_VALUE(ticket.tabMarginShift), kQuote, kLF,
};
constexpr ComparationItem comparationItemTabMargin[] = {
    KV_IS(ticket.tabMarginSwitch, OptionTabMargin),
};
SymParaTable symParaTabMargin;
ComparationTable comparationTabMargin;

// The sheets are not trimmed.
constexpr char prtfmtStrTrimmerNone[] = "@PJL SET JOBATTR=%c@TRMR=0%c%c";
constexpr CommandValue cmdParaTrimmerNone[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemTrimmerNone[] = {
    KV_IS(ticket.trimmerSwitch, OptionTrimmerNone),
};
SymParaTable symParaTrimmerNone;
ComparationTable comparationTrimmerNone;

// The cutting size, in millimetres.
constexpr char prtfmtStrTrimmer[] = "@PJL SET JOBATTR=%c@TRMR=%s%c%c";
constexpr CommandValue cmdParaTrimmer[] = {
    kQuote, KV_VALUE(ticket.trimmerCuttingSize), kQuote, kLF,
};
constexpr ComparationItem comparationItemTrimmer[] = {
    KV_IS(ticket.trimmerSwitch, OptionTrimmer),
};
SymParaTable symParaTrimmer;
ComparationTable comparationTrimmer;

// The documents are not numbered.
constexpr char prtfmtStrNumInSequenceNone[] = "@PJL SET JOBATTR=%c@MDOC=0%c%c";
constexpr CommandValue cmdParaNumInSequenceNone[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemNumInSequenceNone[] = {
    KV_IS(ticket.numInSequenceSwitch, OptionNumInSequenceNone),
};
SymParaTable symParaNumInSequenceNone;
ComparationTable comparationNumInSequenceNone;

// The number of the document in its sequence.
constexpr char prtfmtStrNumInSequence[] = "@PJL SET JOBATTR=%c@MDOC=%s%c%c";
constexpr CommandValue cmdParaNumInSequence[] = {
    kQuote, KV_VALUE(ticket.numInSequence), kQuote, kLF,
};
constexpr ComparationItem comparationItemNumInSequence[] = {
    KV_IS(ticket.numInSequenceSwitch, OptionNumInSequence),
};
SymParaTable symParaNumInSequence;
ComparationTable comparationNumInSequence;

// Stack with an offset at the end of a set of pages (OffsetStackingPageNumber).
constexpr char prtfmtStrOffsetStackingPages[] = "@PJL SET JOBOFFSET=PAGES%c";
constexpr CommandValue cmdParaOffsetStackingPages[] = {
    kLF,
};
constexpr ComparationItem comparationItemOffsetStackingPages[] = {
    KV_IS(ticket.offsetStackingList, OptionOffsetStackingEndOfSetPage),
};
SymParaTable symParaOffsetStackingPages;
ComparationTable comparationOffsetStackingPages;

// Stack with an offset at the end of a set of copies (OffsetStackingCopyNumber).
constexpr char prtfmtStrOffsetStackingCopies[] = "@PJL SET JOBOFFSET=COPIES%c";
constexpr CommandValue cmdParaOffsetStackingCopies[] = {
    kLF,
};
constexpr ComparationItem comparationItemOffsetStackingCopies[] = {
    KV_IS(ticket.offsetStackingList, OptionOffsetStackingEndOfSetCopy),
};
SymParaTable symParaOffsetStackingCopies;
ComparationTable comparationOffsetStackingCopies;

// The pages of a set.
constexpr char prtfmtStrOffsetStackingPageNumber[] = "@PJL SET JOBATTR=%c@OCSN=%s%c%c";
constexpr CommandValue cmdParaOffsetStackingPageNumber[] = {
    kQuote, KV_VALUE(ticket.offsetStackingPages), kQuote, kLF,
};
constexpr ComparationItem comparationItemOffsetStackingPageNumber[] = {
    KV_IS(ticket.offsetStackingList, OptionOffsetStackingEndOfSetPage),
};
SymParaTable symParaOffsetStackingPageNumber;
ComparationTable comparationOffsetStackingPageNumber;

// The copies of a set.
constexpr char prtfmtStrOffsetStackingCopyNumber[] = "@PJL SET JOBATTR=%c@OCSN=%s%c%c";
constexpr CommandValue cmdParaOffsetStackingCopyNumber[] = {
    kQuote, KV_VALUE(ticket.offsetStackingUnits), kQuote, kLF,
};
constexpr ComparationItem comparationItemOffsetStackingCopyNumber[] = {
    KV_IS(ticket.offsetStackingList, OptionOffsetStackingEndOfSetCopy),
};
SymParaTable symParaOffsetStackingCopyNumber;
ComparationTable comparationOffsetStackingCopyNumber;

// No side chosen. Punched for a coil, no tab stock: delivered as the printer is set.
constexpr char prtfmtStrEjectOptionsOffCoilNoTab[] = "@PJL SET JOBATTR=%c@FACE=OFF%c%c";
constexpr CommandValue cmdParaEjectOptionsOffCoilNoTab[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsOffCoilNoTab[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsOff),
    KV_TEXT_HAS(ticket.numPunchHoles, punchHoleCoil),
    KV_TEXT_IS(ticket.mediaTypeTab, mediaTypeNoTab),
    KV_IS(ticket.whetherMediaTypeTab, specialPagesMediaNoTab),
    KV_TEXT_IS(ticket.coilPunchFace, coilPunchFaceOn),
};
SymParaTable symParaEjectOptionsOffCoilNoTab;
ComparationTable comparationEjectOptionsOffCoilNoTab;

// No side chosen. Not punched for a coil: delivered as the printer is set.
constexpr char prtfmtStrEjectOptionsOffNoCoil[] = "@PJL SET JOBATTR=%c@FACE=OFF%c%c";
constexpr CommandValue cmdParaEjectOptionsOffNoCoil[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsOffNoCoil[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsOff),
    KV_TEXT_LACKS(ticket.numPunchHoles, punchHoleCoil),
    KV_TEXT_IS(ticket.coilPunchFace, coilPunchFaceOn),
};
SymParaTable symParaEjectOptionsOffNoCoil;
ComparationTable comparationEjectOptionsOffNoCoil;

// No side chosen, and coil punching asks for none: delivered as the printer is set.
constexpr char prtfmtStrEjectOptionsOffCoilPunchFaceOff[] = "@PJL SET JOBATTR=%c@FACE=OFF%c%c";
constexpr CommandValue cmdParaEjectOptionsOffCoilPunchFaceOff[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsOffCoilPunchFaceOff[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsOff),
    KV_TEXT_IS(ticket.coilPunchFace, coilPunchFaceOff),
};
SymParaTable symParaEjectOptionsOffCoilPunchFaceOff;
ComparationTable comparationEjectOptionsOffCoilPunchFaceOff;

// Delivered face down.
constexpr char prtfmtStrEjectOptionsDown[] = "@PJL SET JOBATTR=%c@FACE=DOWN%c%c";
constexpr CommandValue cmdParaEjectOptionsDown[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsDown[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsDown),
};
SymParaTable symParaEjectOptionsDown;
ComparationTable comparationEjectOptionsDown;

// Delivered face up.
constexpr char prtfmtStrEjectOptionsUp[] = "@PJL SET JOBATTR=%c@FACE=UP%c%c";
constexpr CommandValue cmdParaEjectOptionsUp[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsUp[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsUp),
};
SymParaTable symParaEjectOptionsUp;
ComparationTable comparationEjectOptionsUp;

// Delivered face down in reverse order.
constexpr char prtfmtStrEjectOptionsDownReverse[] = "@PJL SET JOBATTR=%c@FACE=DOWN_REVERSE%c%c";
constexpr CommandValue cmdParaEjectOptionsDownReverse[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsDownReverse[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsDownReverse),
};
SymParaTable symParaEjectOptionsDownReverse;
ComparationTable comparationEjectOptionsDownReverse;

// Delivered face up in reverse order.
constexpr char prtfmtStrEjectOptionsUpReverse[] = "@PJL SET JOBATTR=%c@FACE=UP_REVERSE%c%c";
constexpr CommandValue cmdParaEjectOptionsUpReverse[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsUpReverse[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsUpReverse),
};
SymParaTable symParaEjectOptionsUpReverse;
ComparationTable comparationEjectOptionsUpReverse;

// No side chosen. Punched for a coil, the document on tab stock: delivered face up.
constexpr char prtfmtStrEjectOptionsOffCoilTab[] = "@PJL SET JOBATTR=%c@FACE=UP%c%c";
constexpr CommandValue cmdParaEjectOptionsOffCoilTab[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsOffCoilTab[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsOff),
    KV_TEXT_HAS(ticket.numPunchHoles, punchHoleCoil),
    KV_TEXT_IS(ticket.mediaTypeTab, mediaTypeIsTab),
    KV_IS(ticket.whetherMediaTypeTab, specialPagesMediaNoTab),
    KV_TEXT_IS(ticket.coilPunchFace, coilPunchFaceOn),
};
SymParaTable symParaEjectOptionsOffCoilTab;
ComparationTable comparationEjectOptionsOffCoilTab;

// No side chosen. Punched for a coil, the special pages on tab stock: delivered face up.
constexpr char prtfmtStrEjectOptionsOffCoilSpecialPagesTab[] = "@PJL SET JOBATTR=%c@FACE=UP%c%c";
constexpr CommandValue cmdParaEjectOptionsOffCoilSpecialPagesTab[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsOffCoilSpecialPagesTab[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsOff),
    KV_TEXT_HAS(ticket.numPunchHoles, punchHoleCoil),
    KV_TEXT_IS(ticket.mediaTypeTab, mediaTypeNoTab),
    KV_IS(ticket.whetherMediaTypeTab, specialPagesMediaTab),
    KV_TEXT_IS(ticket.coilPunchFace, coilPunchFaceOn),
};
SymParaTable symParaEjectOptionsOffCoilSpecialPagesTab;
ComparationTable comparationEjectOptionsOffCoilSpecialPagesTab;

// No side chosen. Punched for a coil, both on tab stock: delivered face up.
constexpr char prtfmtStrEjectOptionsOffCoilBothTab[] = "@PJL SET JOBATTR=%c@FACE=UP%c%c";
constexpr CommandValue cmdParaEjectOptionsOffCoilBothTab[] = {
    kQuote, kQuote, kLF,
};
constexpr ComparationItem comparationItemEjectOptionsOffCoilBothTab[] = {
    KV_IS(ticket.ejectOptionsList, EjectOptionsOff),
    KV_TEXT_HAS(ticket.numPunchHoles, punchHoleCoil),
    KV_TEXT_IS(ticket.mediaTypeTab, mediaTypeIsTab),
    KV_IS(ticket.whetherMediaTypeTab, specialPagesMediaTab),
    KV_TEXT_IS(ticket.coilPunchFace, coilPunchFaceOn),
};
SymParaTable symParaEjectOptionsOffCoilBothTab;
ComparationTable comparationEjectOptionsOffCoilBothTab;
// clang-format on

}  // namespace

constexpr PrtFmtEntry FeaturesFmtTable[] = {
    KV_ROW(TabMarginNone),
    KV_ROW(TabMargin),
    KV_ROW(TrimmerNone),
    KV_ROW(Trimmer),
    KV_ROW(NumInSequenceNone),
    KV_ROW(NumInSequence),
    KV_ROW(OffsetStackingPages),
    KV_ROW(OffsetStackingCopies),
    KV_ROW(OffsetStackingPageNumber),
    KV_ROW(OffsetStackingCopyNumber),
    KV_ROW(EjectOptionsOffCoilNoTab),
    KV_ROW(EjectOptionsOffNoCoil),
    KV_ROW(EjectOptionsOffCoilPunchFaceOff),
    KV_ROW(EjectOptionsDown),
    KV_ROW(EjectOptionsUp),
    KV_ROW(EjectOptionsDownReverse),
    KV_ROW(EjectOptionsUpReverse),
    KV_ROW(EjectOptionsOffCoilTab),
    KV_ROW(EjectOptionsOffCoilSpecialPagesTab),
    KV_ROW(EjectOptionsOffCoilBothTab),
};
static_assert(std::size(FeaturesFmtTable) == FeaturesFmtTableNum);

namespace {

void FeaturesInitializeCmdParaTable() {
    KV_BIND_VALUES(TabMarginNone);
    KV_BIND_VALUES(TabMargin);
    KV_BIND_VALUES(TrimmerNone);
    KV_BIND_VALUES(Trimmer);
    KV_BIND_VALUES(NumInSequenceNone);
    KV_BIND_VALUES(NumInSequence);
    KV_BIND_VALUES(OffsetStackingPages);
    KV_BIND_VALUES(OffsetStackingCopies);
    KV_BIND_VALUES(OffsetStackingPageNumber);
    KV_BIND_VALUES(OffsetStackingCopyNumber);
    KV_BIND_VALUES(EjectOptionsOffCoilNoTab);
    KV_BIND_VALUES(EjectOptionsOffNoCoil);
    KV_BIND_VALUES(EjectOptionsOffCoilPunchFaceOff);
    KV_BIND_VALUES(EjectOptionsDown);
    KV_BIND_VALUES(EjectOptionsUp);
    KV_BIND_VALUES(EjectOptionsDownReverse);
    KV_BIND_VALUES(EjectOptionsUpReverse);
    KV_BIND_VALUES(EjectOptionsOffCoilTab);
    KV_BIND_VALUES(EjectOptionsOffCoilSpecialPagesTab);
    KV_BIND_VALUES(EjectOptionsOffCoilBothTab);
}

void FeaturesInitialzieComparationTable() {
    KV_BIND_CONDITIONS(TabMarginNone);
    KV_BIND_CONDITIONS(TabMargin);
    KV_BIND_CONDITIONS(TrimmerNone);
    KV_BIND_CONDITIONS(Trimmer);
    KV_BIND_CONDITIONS(NumInSequenceNone);
    KV_BIND_CONDITIONS(NumInSequence);
    KV_BIND_CONDITIONS(OffsetStackingPages);
    KV_BIND_CONDITIONS(OffsetStackingCopies);
    KV_BIND_CONDITIONS(OffsetStackingPageNumber);
    KV_BIND_CONDITIONS(OffsetStackingCopyNumber);
    KV_BIND_CONDITIONS(EjectOptionsOffCoilNoTab);
    KV_BIND_CONDITIONS(EjectOptionsOffNoCoil);
    KV_BIND_CONDITIONS(EjectOptionsOffCoilPunchFaceOff);
    KV_BIND_CONDITIONS(EjectOptionsDown);
    KV_BIND_CONDITIONS(EjectOptionsUp);
    KV_BIND_CONDITIONS(EjectOptionsDownReverse);
    KV_BIND_CONDITIONS(EjectOptionsUpReverse);
    KV_BIND_CONDITIONS(EjectOptionsOffCoilTab);
    KV_BIND_CONDITIONS(EjectOptionsOffCoilSpecialPagesTab);
    KV_BIND_CONDITIONS(EjectOptionsOffCoilBothTab);
}

}  // namespace

void FeaturesInializeDescriptionTableFromFilter() {
    FeaturesInitializeCmdParaTable();
    FeaturesInitialzieComparationTable();
}

void FeaturesOutputKPJLCommandFromFilter(char *const argv[]) {
    OutputKPJLCommandFromArray(argv, FeaturesFmtTable, FeaturesFmtTableNum);
}
