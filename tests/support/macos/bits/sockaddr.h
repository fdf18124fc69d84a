// SPDX-License-Identifier: Apache-2.0
// A socket address begins with its length.
#pragma once
typedef unsigned char sa_family_t;
#define __SOCKADDR_COMMON(prefix) \
    unsigned char prefix##len;    \
    sa_family_t prefix##family
#define __SOCKADDR_COMMON_SIZE 2
#define _SS_SIZE 128
