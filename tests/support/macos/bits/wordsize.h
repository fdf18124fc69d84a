// SPDX-License-Identifier: Apache-2.0
// The library's own header knows its own processor only.
#pragma once
#define __WORDSIZE 64
