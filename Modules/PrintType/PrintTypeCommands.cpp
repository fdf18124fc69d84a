// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeCommands.h"

void PrintTypeInializeDescriptionTableFromFilter() {}

void PrintTypeOutputKPJLCommandFromFilter() {}
