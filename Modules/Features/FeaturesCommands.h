// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

void FeaturesInializeDescriptionTableFromFilter();
void FeaturesOutputKPJLCommandFromFilter(char *const argv[]);
