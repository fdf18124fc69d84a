// SPDX-License-Identifier: Apache-2.0
//
// The names that a job's header can carry and what each tells the printer, for tools that show jobs
// to people. The rows are in PJLNames.def; a name that a command, a writer or a PPD feature uses
// and that has no row there fails a test.
#pragma once

#include <cstddef>
#include <string_view>

// How a name stands in its line.
enum PJLKind : char {
    kPJLCommand,    // @PJL NAME ...
    kPJLVariable,   // @PJL SET NAME=value
    kPJLAttribute,  // @PJL SET JOBATTR="@NAME=value"
    kPJLComment,    // @PJL COMMENT KVJOBINFO NAME=value
};

// The parts of the header, in its order.
enum PJLGroup : char {
    kGroupJob,
    kGroupPrintType,
    kGroupAccounting,
    kGroupOutput,
    kGroupBinding,
    kGroupBooklet,
    kGroupDevice,
    kGroupInfo,
    kGroupFeatures,
    kGroupSwitch,
    kGroupTrailer,
    kGroupUnknown,
};

// What a part of the header is called: "accounting".
const char *GroupName(PJLGroup group);

enum PJLSecrecy : bool { kPublic, kSecret };

struct PJLName {
    PJLKind kind;
    PJLGroup group;
    std::string_view name;
    PJLSecrecy secrecy;
    const char *meaning;
};

// The row of a name, or null.
const PJLName *FindPJLName(PJLKind kind, std::string_view name);

// What `value` of that name means, or null where the value says it itself.
const char *MeaningOfPJLValue(const PJLName &name, std::string_view value);

// All rows, for lists and tests.
struct PJLNameRange {
    const PJLName *first;
    const PJLName *last;
    const PJLName *begin() const { return first; }
    const PJLName *end() const { return last; }
};
PJLNameRange PJLNames();
