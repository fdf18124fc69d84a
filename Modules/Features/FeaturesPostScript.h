// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

int FeaturesOutputPSCommandFromFilter(int point, std::FILE *stream);
