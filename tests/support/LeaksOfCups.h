// SPDX-License-Identifier: Apache-2.0
//
// What the leak checker is not to report: libcups, when it marks options, leaks a few bytes of each
// PPD that names something twice. The filter opens one PPD, a test program many. What the filter
// itself does not free of libcups' lists and PPDs is reported.
#pragma once

extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions() {
    return "leak:_ppdCacheCreateWithPPD\n";
}
