// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindCommands.h"

void OutputKPJLCommandforPerfectBind() {}
