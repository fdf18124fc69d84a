// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

int SpecialPageGetTicketFromPDE(char *const argv[]);
void SpecialPageInializeDescriptionTable();
