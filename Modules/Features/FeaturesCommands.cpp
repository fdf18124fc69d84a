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
// clang-format on

#define KV_COMMAND KV_COMMAND_ARRAYS
#include "Modules/Features/FeaturesRows.def"

}  // namespace

constexpr PrtFmtEntry FeaturesFmtTable[] = {
#define KV_COMMAND KV_COMMAND_ROW
#include "Modules/Features/FeaturesRows.def"
};
const std::int32_t FeaturesFmtTableNum = std::size(FeaturesFmtTable);

namespace {

void FeaturesInitializeCmdParaTable() {
#define KV_COMMAND KV_COMMAND_BIND_VALUES
#include "Modules/Features/FeaturesRows.def"
}

void FeaturesInitialzieComparationTable() {
#define KV_COMMAND KV_COMMAND_BIND_CONDITIONS
#include "Modules/Features/FeaturesRows.def"
}

}  // namespace

void FeaturesInializeDescriptionTableFromFilter() {
    FeaturesInitializeCmdParaTable();
    FeaturesInitialzieComparationTable();
}

void FeaturesOutputKPJLCommandFromFilter(char *const argv[]) {
    OutputKPJLCommandFromArray(argv, FeaturesFmtTable, FeaturesFmtTableNum);
}
