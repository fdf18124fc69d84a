// SPDX-License-Identifier: Apache-2.0
#include "Tables/CompareFunctions.h"

#include <cstdint>
#include <cstring>

namespace {

std::int32_t Integer(const void *value) {
    return *static_cast<const std::int32_t *>(value);
}

const char *Text(const void *value) {
    return static_cast<const char *>(value);
}

const char *ReferenceText(const void *reference) {
    return *static_cast<const char *const *>(reference);
}

bool IsEmpty(const void *value) {
    return value == nullptr || *Text(value) == '\0';
}

}  // namespace

int IntCampareFunc(const void *value, const void *reference) {
    return Integer(value) == Integer(reference);
}

int IntNoEqualCampareFunc(const void *value, const void *reference) {
    return Integer(value) != Integer(reference);
}

int StrEqualCampareFunc(const void *value, const void *reference) {
    return std::strcmp(Text(value), ReferenceText(reference)) == 0;
}

int StrContainCampareFunc(const void *value, const void *reference) {
    return !IsEmpty(value) && std::strstr(Text(value), ReferenceText(reference)) != nullptr;
}

int StrNotContainCampareFunc(const void *value, const void *reference) {
    return !StrContainCampareFunc(value, reference);
}

int StrNoNULLCampareFunc(const void *value, const void *) {
    return !IsEmpty(value);
}

int StrIsNULLCampareFunc(const void *value, const void *) {
    return IsEmpty(value);
}
