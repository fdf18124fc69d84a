// SPDX-License-Identifier: Apache-2.0
#pragma once
#include <sys/types.h>
#define CTL_KERN 1
#define KERN_OSRELEASE 2
extern "C" int sysctl(int *name, unsigned count, void *old, size_t *oldSize, void *value,
                      size_t size);
