// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageDocument.h"

void InjectKPIFCommandSP(char *const[]) {}
