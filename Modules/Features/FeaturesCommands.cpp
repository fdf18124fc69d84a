// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesCommands.h"

void FeaturesInializeDescriptionTableFromFilter() {}

void FeaturesOutputKPJLCommandFromFilter(char *const[]) {}
