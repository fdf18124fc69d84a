// SPDX-License-Identifier: Apache-2.0
//
// The list of names in docs/job-format.md is what the table of names says.
#include <gtest/gtest.h>

#include <string>

#include "Tables/PJLNames.h"
#include "docs/MadePage.h"

namespace {

constexpr char kBegin[] =
    "<!-- Made from the table of PJL names; JobFormatPageTest says how. -->\n";
constexpr char kEnd[] = "<!-- End of what is made from the table of PJL names. -->\n";

// A row of the page: a name, or a value of the name above it.
struct PageRow {
    const char *value;
    PJLKind kind;
    PJLGroup group;
    const char *name;
    PJLSecrecy secrecy;
    const char *meaning;
};

constexpr PageRow kRows[] = {
#define KV_PJL_NAME(kind, group, name, secrecy, meaning) \
    {nullptr, kind, group, name, secrecy, meaning},
#define KV_PJL_VALUE(value, meaning) {value, {}, {}, nullptr, kPublic, meaning},
#include "Tables/PJLNames.def"
#undef KV_PJL_NAME
#undef KV_PJL_VALUE
};

std::string Line(PJLKind kind, const std::string &name) {
    switch (kind) {
        case kPJLVariable:
            return "`SET " + name + "=`";
        case kPJLAttribute:
            return "`@" + name + "=`";
        case kPJLComment:
            return "`COMMENT KVJOBINFO " + name + "`";
        default:
            return "`" + name + "`";
    }
}

std::string Reference() {
    std::string text;
    PJLGroup last = kGroupUnknown;
    for (const PageRow &row : kRows) {
        if (row.value) {
            text.insert(text.size() - 3, "; `" + std::string(row.value) + "` " + row.meaning);
            continue;
        }
        if (row.group != last) {
            text += "\n**" + std::string(GroupName(row.group)) +
                    "**\n\n| line | what it tells the printer |\n|---|---|\n";
            last = row.group;
        }
        text += "| " + Line(row.kind, row.name) + " | " + row.meaning +
                (row.secrecy == kSecret ? ", which `kvjobinfo` hides |\n" : " |\n");
    }
    return text + "\n";
}

}  // namespace

TEST(JobFormatPage, TheListOfNamesIsWhatTheTableSays) {
    ExpectMadePart("job-format.md", kBegin, kEnd, Reference());
}
