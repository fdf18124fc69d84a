// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"

#include <iterator>
#include <string>

#include "CommonSource/FilterFrame/Source/NameValidation.h"
#include "Modules/Comment/CommentTicket.h"
#include "Modules/Features/FeaturesCommands.h"
#include "Modules/Features/FeaturesPostScript.h"
#include "Modules/Features/FeaturesTicket.h"
#include "Modules/JBA/JBACommands.h"
#include "Modules/JBA/JBATicket.h"
#include "Modules/PBind/PBindTicket.h"
#include "Modules/PrintType/PrintTypeCommands.h"
#include "Modules/PrintType/PrintTypeTicket.h"
#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "Modules/Watermark/WatermarkPostScript.h"
#include "Modules/Watermark/WatermarkTicket.h"

namespace {

template <class Row>
std::span<const Row> Rows(const Row *rows, std::int32_t count) {
    return {rows, static_cast<std::size_t>(count)};
}

}  // namespace

std::span<const TicketTable> TicketTables() {
    // clang-format off
    static const TicketTable tables[] = {
        {"Print type",              Rows(PrintTypeticketData, PrintTypeTicketDataNum)},
        {"Accounting, page layout", Rows(JBAticketDataCommon, JBATicketDataNumCommon)},
        {"Accounting, set by an administrator", Rows(JBAticketDataAdmin, JBATicketDataNumAdmin)},
        {"Output handling",         Rows(FeaturesticketData, FeaturesTicketDataNum)},
        {"Watermark",               Rows(WatermarkticketData, WatermarkTicketDataNum)},
        {"Perfect binding",         Rows(PBindticketData, PBindTicketDataNum)},
        {"Job information, booklet and device settings", Rows(CommentticketData, CommentTicketDataNum)},
        {"Special pages",           Rows(SpecialPageTicketData, SpecialPageTicketDataNum)},
        {"Special pages",           SpecialPageValueKeys},
        {"Print type",              productTypeKey},
    };
    // clang-format on
    return tables;
}

std::span<const CommandTable> CommandTables() {
    static const CommandTable tables[] = {
        Rows(PrintTypeFmtTable, PrintTypeFmtTableNum),
        Rows(JBAFmtTableAdmin, JBAFmtTableAdminNum),
        Rows(JBAFmtTableCommon, JBAFmtTableCommonNum),
        Rows(FeaturesFmtTable, FeaturesFmtTableNum),
    };
    return tables;
}

void InializeDescriptionTableFromFilter() {
    PrintTypeInializeDescriptionTableFromFilter();
    JBAInializeDescriptionTableFromFilter();
    FeaturesInializeDescriptionTableFromFilter();
    SpecialPageInializeDescriptionTable();
}

int GetTicketFromPDE(char *const argv[]) {
    PrintTypeGetTicketFromPDE(argv);
    JBAGetTicketFromPDE(argv);
    FeaturesGetTicketFromPDE(argv);
    WatermarkGetTicketFromPDE(argv);
    PBindGetTicketFromPDE(argv);
    CommentGetTicketFromPDE(argv);
    SpecialPageGetTicketFromPDE(argv);
    return 1;
}

bool TicketWasReadAs(std::string_view key, std::string_view text) {
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) {
            if (row.key != key || !row.destination) continue;
            if (row.getter != GetTicketInteger) return static_cast<char *>(row.destination) == text;
            return *static_cast<std::int32_t *>(row.destination) ==
                   LeadingInteger(std::string(text).c_str());
        }
    }
    return false;
}

void OutputKPJLCommandFromFilter(char *const argv[]) {
    PrintTypeOutputKPJLCommandFromFilter();
    JBAOutputKPJLCommandFromFilter(argv);
    FeaturesOutputKPJLCommandFromFilter(argv);
}

int OutputPSCommandFromFilter(int position, int pageNumber, std::FILE *stream) {
    WatermarkOutputPSCommandFromFilter(position, pageNumber, stream);
    return FeaturesOutputPSCommandFromFilter(position, stream);
}

PageStamp GetPageStampFromFilter() {
    if (!WatermarkIsDrawn()) return {};
    return {WatermarkOutputStamp, psOptionWatermark.font, psOptionWatermark.onlyFirst != 0};
}
