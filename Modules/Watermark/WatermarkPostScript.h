// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

void WatermarkOutputPSCommandFromFilter(int point, int pageNumber, std::FILE *stream);
