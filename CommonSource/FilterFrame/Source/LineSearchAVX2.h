// SPDX-License-Identifier: Apache-2.0
//
// The searches with vectors of 32 bytes. Callers make sure that the processor has AVX2.
#pragma once

#include "CommonSource/FilterFrame/Source/LineSearch.h"

extern const LineSearch lineSearchAVX2;
