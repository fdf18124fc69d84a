// SPDX-License-Identifier: Apache-2.0
#include "Tables/PJLNames.h"

#include <iterator>

namespace {

constexpr PJLName names[] = {
#define KV_PJL_NAME(kind, group, name, secrecy, meaning) {kind, group, name, secrecy, meaning},
#define KV_PJL_VALUE(value, meaning)
#include "Tables/PJLNames.def"
#undef KV_PJL_NAME
#undef KV_PJL_VALUE
};

// The rows of both kinds as they stand: the values of a name follow it, without a name.
struct Value {
    std::string_view name;
    std::string_view value;
    const char *meaning;
};
constexpr Value values[] = {
#define KV_PJL_NAME(kind, group, name, secrecy, meaning) {name, {}, meaning},
#define KV_PJL_VALUE(value, meaning) {{}, value, meaning},
#include "Tables/PJLNames.def"
#undef KV_PJL_NAME
#undef KV_PJL_VALUE
};

constexpr const char *groupNames[] = {
    "job",     "print type",      "accounting",      "output handling", "perfect binding",
    "booklet", "device settings", "job information", "PPD features",    "switch to PostScript",
    "trailer", "other",
};
static_assert(std::size(groupNames) == kGroupUnknown + 1);

}  // namespace

const char *GroupName(PJLGroup group) {
    return groupNames[group];
}

const PJLName *FindPJLName(PJLKind kind, std::string_view name) {
    for (const PJLName &row : names) {
        if (row.kind == kind && row.name == name) return &row;
    }
    return nullptr;
}

const char *MeaningOfPJLValue(const PJLName &name, std::string_view value) {
    // The rows of names are as many, and in the same order, as in the table of names.
    const Value *row = std::begin(values);
    for (auto count = &name - names; count > 0 || row->name.empty(); row++) {
        if (!row->name.empty()) count--;
    }
    for (row++; row != std::end(values) && row->name.empty(); row++) {
        if (row->value == value) return row->meaning;
    }
    return nullptr;
}

PJLNameRange PJLNames() {
    return {std::begin(names), std::end(names)};
}
