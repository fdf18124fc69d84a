// SPDX-License-Identifier: Apache-2.0
//
// What the leak checker is not to report. libcups leaks a few bytes of each PPD that names
// something twice; the filter opens one PPD, a test program many.
#pragma once

extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions() {
    return "leak:libcups.so\n";
}
