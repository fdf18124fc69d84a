// SPDX-License-Identifier: Apache-2.0
//
// The tests that a command's conditions are made of. `value` is a ticket field, `reference` the
// constant that it is held against; each returns 1 for true and 0 for false.
#pragma once

using CompareFunc = int (*)(const void *value, const void *reference);

// Both designate a 32-bit integer.
int IntCampareFunc(const void *value, const void *reference);         // equal
int IntNoEqualCampareFunc(const void *value, const void *reference);  // different

// `value` is a NUL-terminated text or null, `reference` designates a pointer to one.
int StrEqualCampareFunc(const void *value, const void *reference);       // equal; value not null
int StrContainCampareFunc(const void *value, const void *reference);     // holds the reference
int StrNotContainCampareFunc(const void *value, const void *reference);  // does not; true if empty

// `value` is a NUL-terminated text or null, `reference` is not looked at.
int StrNoNULLCampareFunc(const void *value, const void *reference);  // not empty
int StrIsNULLCampareFunc(const void *value, const void *reference);  // empty
