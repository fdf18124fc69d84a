// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBACommands.h"

void JBAInializeDescriptionTableFromFilter() {}

void JBAOutputKPJLCommandFromFilter(char *const[]) {}
