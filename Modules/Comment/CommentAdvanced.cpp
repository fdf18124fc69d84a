// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentBlock.h"

#include <cstring>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/PutPJL.h"
#include "Modules/Comment/CommentTicket.h"

namespace {

// What a value of the ticket stands for.
template <class Value, class Meaning>
struct Entry {
    Value value;
    Meaning meaning;
};
using Keyword = Entry<std::string_view, const char *>;

// How the signature binds the sheets, and how the pages lie on one: alone, in as many rows as
// columns, or turned by a quarter.
enum Binding { kUnbound, kBoundLeft, kBoundRight };
enum Layout { kSingle, kSquare, kTurned };

// The orientation of the printed sheet, for each orientation of the document.
struct SheetOrientation {
    Binding binding;
    Layout layout;
    const char *portrait;
    const char *landscape;
    const char *rotatedLandscape;
    const char *rotatedPortrait;
};

struct NUpOrder {
    std::int32_t value;  // of layoutDirection
    const char *ofTwo;
    const char *ofMore;
};

constexpr std::int32_t OptionLeftThenDown = 3;
constexpr std::int32_t OptionDownThenRight = 5;
constexpr std::int32_t OptionDownThenLeft = 6;

// clang-format off
constexpr Entry<std::string_view, Binding> bindings[] = {
    {"",                     kUnbound},
    {kOptionNone,            kUnbound},
    {kLeftSignature,         kBoundLeft},
    {kLeftSignatureStapled,  kBoundLeft},
    {kLeftSignatureFolded,   kBoundLeft},
    {kRightSignature,        kBoundRight},
    {kRightSignatureStapled, kBoundRight},
    {kRightSignatureFolded,  kBoundRight},
};

constexpr Entry<std::int32_t, Layout> layouts[] = {
    { 1, kSingle},
    { 2, kTurned},
    { 4, kSquare},
    { 6, kTurned},
    { 9, kSquare},
    {16, kSquare},
};

constexpr Entry<std::int32_t, const char *SheetOrientation::*> orientations[] = {
    {OptionPortrait,         &SheetOrientation::portrait},
    {OptionLandscape,        &SheetOrientation::landscape},
    {OptionRotatedLandscape, &SheetOrientation::rotatedLandscape},
    {OptionRotatedPortrait,  &SheetOrientation::rotatedPortrait},
};

constexpr SheetOrientation sheetOrientations[] = {
    // binding    layout   portrait            landscape           rotated landscape   rotated portrait
    {kUnbound,    kSingle, "PORTRAIT",         "LANDSCAPE",        "ROTATEDLANDSCAPE", "ROTATEDPORTRAIT"},
    {kUnbound,    kSquare, "PORTRAIT",         "LANDSCAPE",        "LANDSCAPE",        "PORTRAIT"},
    {kUnbound,    kTurned, "LANDSCAPE",        "PORTRAIT",         "PORTRAIT",         "LANDSCAPE"},
    {kBoundLeft,  kSingle, "LANDSCAPE",        "ROTATEDPORTRAIT",  "ROTATEDPORTRAIT",  "LANDSCAPE"},
    {kBoundLeft,  kSquare, "LANDSCAPE",        "ROTATEDPORTRAIT",  "ROTATEDPORTRAIT",  "LANDSCAPE"},
    {kBoundLeft,  kTurned, "ROTATEDPORTRAIT",  "LANDSCAPE",        "LANDSCAPE",        "ROTATEDPORTRAIT"},
    {kBoundRight, kSingle, "ROTATEDLANDSCAPE", "PORTRAIT",         "PORTRAIT",         "ROTATEDLANDSCAPE"},
    {kBoundRight, kSquare, "ROTATEDLANDSCAPE", "PORTRAIT",         "PORTRAIT",         "ROTATEDLANDSCAPE"},
    {kBoundRight, kTurned, "PORTRAIT",         "ROTATEDLANDSCAPE", "ROTATEDLANDSCAPE", "PORTRAIT"},
};

constexpr NUpOrder nUpOrders[] = {
    {OptionRightThenDown, "RIGHTTODOWN", "RIGHTTHENDOWN"},
    {OptionLeftThenDown,  "LEFTTOUP",    "LEFTTHENDOWN"},
    {OptionDownThenRight, "RIGHTTODOWN", "DOWNTHENRIGHT"},
    {OptionDownThenLeft,  "LEFTTOUP",    "DOWNTHENLEFT"},
};

// What the staple value contains; the first row found decides.
constexpr Keyword staplePositions[] = {
    {"LeftDouble",       "LEFTDUAL"},
    {"UpperLeftSingle",  "TOPLEFT"},
    {"TopDouble",        "TOPDUAL"},
    {"UpperRightSingle", "TOPRIGHT"},
    {"RightDouble",      "RIGHTDUAL"},
    {"LowerRightSingle", "BOTTOMRIGHT"},
    {"BottomDouble",     "BOTTOMDUAL"},
    {"LowerLeftSingle",  "BOTTOMLEFT"},
};

// What the punch value contains; the first row found decides.
constexpr Keyword punchLocations[] = {
    {"Left",   "LEFT"},
    {"Top",    "TOP"},
    {"Right",  "RIGHT"},
    {"Bottom", "BOTTOM"},
};

constexpr Keyword punchHoles[] = {
    {"2Holes",    "TWO"},
    {"3Holes",    "THREE"},
    {"4Holes",    "FOUR"},
    {"CoilPunch", "COIL"},
};
// clang-format on

// The row with exactly this value, or null.
template <class Row, std::size_t count, class Value>
const Row *FindRow(const Row (&table)[count], const Value &value) {
    for (const Row &row : table) {
        if (row.value == value) return &row;
    }
    return nullptr;
}

// The meaning of the first value that stands anywhere in `text`, or null.
template <std::size_t count>
const char *FindPart(const Keyword (&table)[count], const char *text) {
    for (const Keyword &row : table) {
        if (std::strstr(text, row.value.data())) return row.meaning;
    }
    return nullptr;
}

// A job that does not say puts one page on a sheet.
std::int32_t PagesPerSheet(const CommentOptions &ticket) {
    return *ticket.pagesPerSheet ? LeadingInteger(ticket.pagesPerSheet) : 1;
}

const char *FindOrientation(const CommentOptions &ticket) {
    const auto *binding = FindRow(bindings, ticket.signature);
    const auto *layout = FindRow(layouts, PagesPerSheet(ticket));
    const auto *document = FindRow(orientations, ticket.orientation);
    if (!binding || !layout || !document) return nullptr;
    for (const SheetOrientation &row : sheetOrientations) {  // GCOVR_EXCL_BR_LINE: has them all
        if (row.binding == binding->meaning && row.layout == layout->meaning) {
            return row.*document->meaning;
        }
    }
    return nullptr;  // GCOVR_EXCL_LINE: the table has a row for each
}

const char *FindNUpOrder(const CommentOptions &ticket) {
    const std::int32_t pages = PagesPerSheet(ticket);
    const NUpOrder *order = FindRow(nUpOrders, ticket.layoutDirection);
    if (!order || pages < 2) return nullptr;
    return pages == 2 ? order->ofTwo : order->ofMore;
}

const char *SaddleStaple(const CommentOptions &ticket) {
    const bool stapled =
        ticket.signature == kLeftSignatureStapled || ticket.signature == kRightSignatureStapled;
    return stapled ? "ON" : "OFF";
}

}  // namespace

int OutputKPJLCommandforCommentAdvanced() {
    const CommentOptions &ticket = psoptioncomment;
    if (const char *text = FindOrientation(ticket)) PutJobInfo("ORIENTATION=%s\n", text);
    if (const char *order = FindNUpOrder(ticket)) PutJobInfo("NUPEX=%s\n", order);
    if (*ticket.signature) PutJobInfo("SADDLESTAPLE=%s\n", SaddleStaple(ticket));
    if (const char *text = FindPart(staplePositions, ticket.staple))
        PutJobInfo("STAPLEEX=%s\n", text);
    const char *location = FindPart(punchLocations, ticket.punch);
    const Keyword *holes = FindRow(punchHoles, ticket.punchHoles);
    if (location && holes) {
        PutJobInfo("PUNCHEX=HOLES[%s]:LOCATION[%s]\n", holes->meaning, location);
    }
    PutJobInfo("MIXEDSIZETYPE=NONE\n");
    return PutJobInfo("CUD=OFF\n");
}
