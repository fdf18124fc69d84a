// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkPostScript.h"

void WatermarkOutputPSCommandFromFilter(int, int, std::FILE *) {}
