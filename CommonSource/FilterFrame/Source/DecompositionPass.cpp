// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"

void OutputPSStreamtoFileandInsertPJLforFeaturePDE(int, char *const[]) {}
