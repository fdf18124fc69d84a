// SPDX-License-Identifier: Apache-2.0
#pragma once
typedef struct __CFHost *CFHostRef;
typedef int CFHostInfoType;
struct CFStreamError;
