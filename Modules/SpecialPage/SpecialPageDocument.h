// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

void InjectKPIFCommandSP(char *const argv[]);
