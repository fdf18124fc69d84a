// SPDX-License-Identifier: Apache-2.0
// The time of last change goes by another name.
#pragma once
#define st_mtim st_mtimespec
#include_next <bits/struct_stat.h>
#undef st_mtim
#undef st_mtime
#define st_mtime st_mtimespec.tv_sec
