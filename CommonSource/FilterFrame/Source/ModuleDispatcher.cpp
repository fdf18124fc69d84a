// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"

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

void OutputKPJLCommandFromFilter(char *const argv[]) {
    PrintTypeOutputKPJLCommandFromFilter();
    JBAOutputKPJLCommandFromFilter(argv);
    FeaturesOutputKPJLCommandFromFilter(argv);
}

int OutputPSCommandFromFilter(int position, int pageNumber, std::FILE *stream) {
    WatermarkOutputPSCommandFromFilter(position, pageNumber, stream);
    return FeaturesOutputPSCommandFromFilter(position, stream);
}
