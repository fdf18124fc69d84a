// SPDX-License-Identifier: Apache-2.0
//
// The extended lines of the job-information block.
#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <set>
#include <string>
#include <vector>

#include "Modules/Comment/CommentBlock.h"
#include "support/CaptureOutput.h"
#include "support/CommentJob.h"

namespace {

class CommentAdvanced : public CommentJob {
  protected:
    // All lines but the two that end each block.
    static std::string Advanced() {
        std::string lines = CaptureOutput(OutputKPJLCommandforCommentAdvanced);
        const std::string last =
            "@PJL COMMENT KVJOBINFO MIXEDSIZETYPE=NONE\n"
            "@PJL COMMENT KVJOBINFO CUD=OFF\n";
        EXPECT_TRUE(lines.ends_with(last));
        lines.resize(lines.size() - last.size());
        return lines;
    }

    void SetSheet(const std::string &signature, const std::string &pages, int orientation) {
        Set(job.signature, signature);
        Set(job.pagesPerSheet, pages);
        job.orientation = orientation;
    }

    // The saddle-stitching line that a kind of booklet brings with it.
    static std::string SaddleLine(const std::string &signature) {
        if (signature.empty()) return "";
        const bool stapled = signature.ends_with("SigCenterStaple");
        return Info(stapled ? "SADDLESTAPLE=ON" : "SADDLESTAPLE=OFF");
    }
};

const std::vector<std::string> kSignatures = {
    "",
    "None",
    "LeftSig",
    "LeftSigCenterStaple",
    "LeftSigFold",
    "RightSig",
    "RightSigCenterStaple",
    "RightSigFold",
};
const std::vector<std::string> kOtherSignatures = {"none", "Other", "LeftSigX", "leftsig", "Sig"};

struct OrientationRow {
    const char *signatures[3];  // null: fewer
    std::vector<std::string> pages;
    std::vector<int> orientations;
    const char *line;
};
const OrientationRow kOrientationRows[] = {
    {{"", "None"}, {"", "1"}, {1}, "@PJL COMMENT KVJOBINFO ORIENTATION=PORTRAIT\n"},
    {{"", "None"}, {"", "1"}, {4}, "@PJL COMMENT KVJOBINFO ORIENTATION=LANDSCAPE\n"},
    {{"", "None"}, {"", "1"}, {5}, "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDLANDSCAPE\n"},
    {{"", "None"}, {"", "1"}, {6}, "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDPORTRAIT\n"},
    {{"", "None"}, {"4", "9", "16"}, {1, 6}, "@PJL COMMENT KVJOBINFO ORIENTATION=PORTRAIT\n"},
    {{"", "None"}, {"4", "9", "16"}, {4, 5}, "@PJL COMMENT KVJOBINFO ORIENTATION=LANDSCAPE\n"},
    {{"", "None"}, {"2", "6"}, {1, 6}, "@PJL COMMENT KVJOBINFO ORIENTATION=LANDSCAPE\n"},
    {{"", "None"}, {"2", "6"}, {4, 5}, "@PJL COMMENT KVJOBINFO ORIENTATION=PORTRAIT\n"},

    {{"LeftSig", "LeftSigCenterStaple", "LeftSigFold"},
     {"", "1", "4", "9", "16"},
     {1, 6},
     "@PJL COMMENT KVJOBINFO ORIENTATION=LANDSCAPE\n"},
    {{"LeftSig", "LeftSigCenterStaple", "LeftSigFold"},
     {"", "1", "4", "9", "16"},
     {4, 5},
     "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDPORTRAIT\n"},
    {{"LeftSig", "LeftSigCenterStaple", "LeftSigFold"},
     {"2", "6"},
     {1, 6},
     "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDPORTRAIT\n"},
    {{"LeftSig", "LeftSigCenterStaple", "LeftSigFold"},
     {"2", "6"},
     {4, 5},
     "@PJL COMMENT KVJOBINFO ORIENTATION=LANDSCAPE\n"},

    {{"RightSig", "RightSigCenterStaple", "RightSigFold"},
     {"", "1", "4", "9", "16"},
     {1, 6},
     "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDLANDSCAPE\n"},
    {{"RightSig", "RightSigCenterStaple", "RightSigFold"},
     {"", "1", "4", "9", "16"},
     {4, 5},
     "@PJL COMMENT KVJOBINFO ORIENTATION=PORTRAIT\n"},
    {{"RightSig", "RightSigCenterStaple", "RightSigFold"},
     {"2", "6"},
     {1, 6},
     "@PJL COMMENT KVJOBINFO ORIENTATION=PORTRAIT\n"},
    {{"RightSig", "RightSigCenterStaple", "RightSigFold"},
     {"2", "6"},
     {4, 5},
     "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDLANDSCAPE\n"},
};

class OrientationTable : public CommentAdvanced,
                         public testing::WithParamInterface<OrientationRow> {};

// The same rule, reasoned out: a sheet turned by 2 or 6 pages swaps upright and sideways, and a
// booklet's sheet lies a quarter further, to the side that it is bound on.
std::string ReasonedOrientation(const std::string &signature, const std::string &pagesText,
                                int orientation) {
    if (!std::set<int>{1, 4, 5, 6}.contains(orientation)) return "";
    const int pages = pagesText.empty() ? 1 : std::atoi(pagesText.c_str());
    if (!std::set<int>{1, 2, 4, 6, 9, 16}.contains(pages)) return "";
    const bool turned = pages % 4 == 2;
    const bool upright = (orientation == 1 || orientation == 6) != turned;
    if (signature.starts_with("Left")) return upright ? "LANDSCAPE" : "ROTATEDPORTRAIT";
    if (signature.starts_with("Right")) return upright ? "ROTATEDLANDSCAPE" : "PORTRAIT";
    const bool rotated = pages == 1 && orientation >= 5;
    return std::string(rotated ? "ROTATED" : "") + (upright ? "PORTRAIT" : "LANDSCAPE");
}

}  // namespace

TEST_P(OrientationTable, Line) {
    const OrientationRow &row = GetParam();
    for (const char *signature : row.signatures) {
        if (!signature) continue;
        for (const std::string &pages : row.pages) {
            for (const int orientation : row.orientations) {
                SCOPED_TRACE(std::string(signature) + " N=" + pages +
                             " O=" + std::to_string(orientation));
                SetSheet(signature, pages, orientation);
                EXPECT_EQ(Advanced(), row.line + SaddleLine(signature));
            }
        }
    }
}
INSTANTIATE_TEST_SUITE_P(EveryRow, OrientationTable, testing::ValuesIn(kOrientationRows));

TEST_F(CommentAdvanced, OrientationOfEveryCombination) {
    std::vector<std::string> pages = {
        "",    "-16", "-2",   "-1", "032", "256", "65538", "4294967297", "99999999999999999999",
        "abc", "2x",  "4-up", " 6", "+9"};
    for (int n = 0; n <= 40; n++) pages.push_back(std::to_string(n));
    int lines = 0;
    for (const std::string &signature : kSignatures) {
        for (const std::string &number : pages) {
            for (int orientation = -2; orientation <= 9; orientation++) {
                SCOPED_TRACE(signature + " N=" + number + " O=" + std::to_string(orientation));
                SetSheet(signature, number, orientation);
                // Beyond an integer no number of pages is meant.
                const bool sane = number.size() < 9;
                const std::string text =
                    sane ? ReasonedOrientation(signature, number, orientation) : "";
                EXPECT_EQ(Advanced(), (text.empty() ? "" : Info("ORIENTATION=" + text)) +
                                          SaddleLine(signature));
                if (!text.empty()) lines++;
            }
        }
    }
    // 8 kinds of booklet, 4 orientations; absent, 1, 2, 4, 6, 9, 16 and four spellings of them.
    EXPECT_EQ(lines, 8 * 4 * 11);
}

TEST_F(CommentAdvanced, OtherSignaturesHaveNoOrientation) {
    for (const std::string &signature : kOtherSignatures) {
        for (const char *pages : {"", "1", "2", "4", "6", "9", "16"}) {
            for (const int orientation : {1, 4, 5, 6}) {
                SCOPED_TRACE(signature + " N=" + pages + " O=" + std::to_string(orientation));
                SetSheet(signature, pages, orientation);
                EXPECT_EQ(Advanced(), Info("SADDLESTAPLE=OFF"));
            }
        }
    }
}

TEST_F(CommentAdvanced, NUpOrderOfEveryDirectionAndNumber) {
    const struct {
        int direction;
        const char *ofTwo, *ofMore;
    } rows[] = {
        {-1, "", ""},
        {0, "", ""},
        {1, "@PJL COMMENT KVJOBINFO NUPEX=RIGHTTODOWN\n",
         "@PJL COMMENT KVJOBINFO NUPEX=RIGHTTHENDOWN\n"},
        {2, "", ""},
        {3, "@PJL COMMENT KVJOBINFO NUPEX=LEFTTOUP\n",
         "@PJL COMMENT KVJOBINFO NUPEX=LEFTTHENDOWN\n"},
        {4, "", ""},
        {5, "@PJL COMMENT KVJOBINFO NUPEX=RIGHTTODOWN\n",
         "@PJL COMMENT KVJOBINFO NUPEX=DOWNTHENRIGHT\n"},
        {6, "@PJL COMMENT KVJOBINFO NUPEX=LEFTTOUP\n",
         "@PJL COMMENT KVJOBINFO NUPEX=DOWNTHENLEFT\n"},
        {7, "", ""},
        {8, "", ""},
    };
    for (const auto &row : rows) {
        job.layoutDirection = row.direction;
        for (const char *few : {"", "-2147483648", "-4", "-2", "-1", "0", "1", "x", "1x"}) {
            SCOPED_TRACE(std::to_string(row.direction) + " " + few);
            SetSheet("", few, 0);
            EXPECT_EQ(Advanced(), "");
        }
        for (const char *two : {"2", "02", "2x", " 2"}) {
            SCOPED_TRACE(std::to_string(row.direction) + " " + two);
            SetSheet("", two, 0);
            EXPECT_EQ(Advanced(), row.ofTwo);
        }
        for (const char *more : {"3", "4", "6", "9", "16", "17", "20", "22", "100", "2147483647"}) {
            SCOPED_TRACE(std::to_string(row.direction) + " " + more);
            SetSheet("", more, 0);
            EXPECT_EQ(Advanced(), row.ofMore);
        }
    }
}

TEST_F(CommentAdvanced, TwentyPagesHaveAnOrderAndNoOrientation) {
    for (const int orientation : {1, 4, 5, 6}) {
        SetSheet("", "20", orientation);
        job.layoutDirection = 3;
        EXPECT_EQ(Advanced(), Info("NUPEX=LEFTTHENDOWN"));
        job.layoutDirection = 2;
        EXPECT_EQ(Advanced(), "");
    }
}

TEST_F(CommentAdvanced, SaddleStitching) {
    const struct {
        const char *signature, *line;
    } rows[] = {
        {"", ""},
        {"None", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"LeftSig", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"LeftSigCenterStaple", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=ON\n"},
        {"LeftSigFold", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"RightSig", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"RightSigCenterStaple", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=ON\n"},
        {"RightSigFold", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"CenterStaple", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"LeftSigCenterStaple2", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
        {"Other", "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.signature);
        Set(job.signature, row.signature);
        EXPECT_EQ(Advanced(), row.line);
    }
}

namespace {

struct Position {
    std::string part, line;
};
const std::vector<Position> kStaples = {
    {"LeftDouble", "@PJL COMMENT KVJOBINFO STAPLEEX=LEFTDUAL\n"},
    {"UpperLeftSingle", "@PJL COMMENT KVJOBINFO STAPLEEX=TOPLEFT\n"},
    {"TopDouble", "@PJL COMMENT KVJOBINFO STAPLEEX=TOPDUAL\n"},
    {"UpperRightSingle", "@PJL COMMENT KVJOBINFO STAPLEEX=TOPRIGHT\n"},
    {"RightDouble", "@PJL COMMENT KVJOBINFO STAPLEEX=RIGHTDUAL\n"},
    {"LowerRightSingle", "@PJL COMMENT KVJOBINFO STAPLEEX=BOTTOMRIGHT\n"},
    {"BottomDouble", "@PJL COMMENT KVJOBINFO STAPLEEX=BOTTOMDUAL\n"},
    {"LowerLeftSingle", "@PJL COMMENT KVJOBINFO STAPLEEX=BOTTOMLEFT\n"},
};

}  // namespace

TEST_F(CommentAdvanced, StaplePositions) {
    for (const Position &row : kStaples) {
        for (const std::string &value : {row.part, "Staple" + row.part, row.part + "Portrait"}) {
            SCOPED_TRACE(value);
            Set(job.staple, value);
            EXPECT_EQ(Advanced(), row.line);
        }
    }
    for (const char *value : {"", "None", "SaddleStaple", "Left", "Double", "leftdouble",
                              "LeftSingle", "UpperDouble", "Left Double"}) {
        SCOPED_TRACE(value);
        Set(job.staple, value);
        EXPECT_EQ(Advanced(), "");
    }
}

// Where they stand in the value does not matter.
TEST_F(CommentAdvanced, TheFirstStaplePositionOfTheListDecides) {
    for (std::size_t first = 0; first < kStaples.size(); first++) {
        for (std::size_t second = first; second < kStaples.size(); second++) {
            const std::string &a = kStaples[first].part, &b = kStaples[second].part;
            for (const std::string &value : {a + "+" + b, b + "+" + a, b + a + b}) {
                SCOPED_TRACE(value);
                Set(job.staple, value);
                EXPECT_EQ(Advanced(), kStaples[first].line);
            }
        }
    }
}

TEST_F(CommentAdvanced, EveryPunchLocationWithEveryNumberOfHoles) {
    const struct {
        const char *punch, *location;
    } punches[] = {
        {"", ""},
        {"None", ""},
        {"left", ""},
        {"LEFT", ""},
        {"Left", "LEFT"},
        {"Top", "TOP"},
        {"Right", "RIGHT"},
        {"Bottom", "BOTTOM"},
        {"PunchLeftEdge", "LEFT"},
        {"2HolesTop", "TOP"},
        {"TopLeft", "LEFT"},
        {"RightTop", "TOP"},
        {"BottomRight", "RIGHT"},
        {"RightLeft", "LEFT"},
        {"BottomTop", "TOP"},
        {"BottomLeft", "LEFT"},
        {"BottomRightTopLeft", "LEFT"},
    };
    const struct {
        const char *holes, *number;
    } numbers[] = {
        {"", ""},          {"None", ""},        {"2", ""},          {"5Holes", ""},
        {"2holes", ""},    {"2HolesX", ""},     {" 2Holes", ""},    {"coilpunch", ""},
        {"2Holes", "TWO"}, {"3Holes", "THREE"}, {"4Holes", "FOUR"}, {"CoilPunch", "COIL"},
    };
    for (const auto &punch : punches) {
        for (const auto &number : numbers) {
            SCOPED_TRACE(std::string(punch.punch) + " " + number.holes);
            Set(job.punch, punch.punch);
            Set(job.punchHoles, number.holes);
            const bool both = *punch.location && *number.number;
            EXPECT_EQ(Advanced(), both ? std::string("@PJL COMMENT KVJOBINFO PUNCHEX=HOLES[") +
                                             number.number + "]:LOCATION[" + punch.location + "]\n"
                                       : "");
        }
    }
}

TEST_F(CommentAdvanced, APunchWithoutHolesIsOnButHasNoPosition) {
    ReadTicket("KVPunch=Left KVSignature=None");
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandforCommentBasic),
              Info("DUPLEXTYPE=SIMPLEX") + Info("COLORMODE=GRAYSCALE") + Info("NUP=1") +
                  Info("PUNCH=ON") + Info("BOOKLETTYPE=TYPE[NOBOOKLET]"));
    EXPECT_EQ(Advanced(), Info("ORIENTATION=PORTRAIT") + Info("SADDLESTAPLE=OFF"));
}

TEST_F(CommentAdvanced, ReturnsTheResultOfTheLastWrite) {
    EXPECT_EQ(ResultOfFailedWrite(OutputKPJLCommandforCommentAdvanced), EOF);
    CaptureOutput([] { EXPECT_GE(OutputKPJLCommandforCommentAdvanced(), 0); });
}

TEST_F(CommentAdvanced, TheExtendedBlock) {
    ReadTicket(
        "nocollate sides=two-sided-long-edge DuplexBindingEdge..n.=3 KVColorMode=Black number-up=6 "
        "KVStaple=UpperLeftSingle KVPunch=LeftTop KVNumPunchHoles=4Holes KVSignature=RightSigFold "
        "KVSigVol=10Sheets com.apple.print.PrintSettings.PMCopies..n.=2 orientation-requested=4 "
        "com.apple.print.PrintSettings.PMLayoutDirection..n.=6");
    EXPECT_EQ(CaptureOutput([] {
                  OutputKPJLCommandforCommentVersionHigh();
                  OutputKPJLCommandforCommentBegin();
                  OutputKPJLCommandforCommentBasic();
                  OutputKPJLCommandforCommentAdvanced();
                  OutputKPJLCommandforCommentEnd();
              }),
              "@PJL COMMENT KVJOBINFO VERSION=1.5.0\n"
              "@PJL COMMENT KVJOBINFO BEGIN\n"
              "@PJL COMMENT KVJOBINFO PDLTYPE=PDL[POSTSCRIPT]:VERSION[3]\n"
              "@PJL COMMENT KVJOBINFO JOBTYPE=PRINT\n"
              "@PJL COMMENT KVJOBINFO PAGECOPIES=2\n"
              "@PJL COMMENT KVJOBINFO JOBCOPIES=1\n"
              "@PJL COMMENT KVJOBINFO DUPLEXTYPE=TUMBLE\n"
              "@PJL COMMENT KVJOBINFO COLORMODE=GRAYSCALE\n"
              "@PJL COMMENT KVJOBINFO NUP=6\n"
              "@PJL COMMENT KVJOBINFO STAPLE=ON\n"
              "@PJL COMMENT KVJOBINFO PUNCH=ON\n"
              "@PJL COMMENT KVJOBINFO BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[10]\n"
              "@PJL COMMENT KVJOBINFO ORIENTATION=ROTATEDLANDSCAPE\n"
              "@PJL COMMENT KVJOBINFO NUPEX=DOWNTHENLEFT\n"
              "@PJL COMMENT KVJOBINFO SADDLESTAPLE=OFF\n"
              "@PJL COMMENT KVJOBINFO STAPLEEX=TOPLEFT\n"
              "@PJL COMMENT KVJOBINFO PUNCHEX=HOLES[FOUR]:LOCATION[LEFT]\n"
              "@PJL COMMENT KVJOBINFO MIXEDSIZETYPE=NONE\n"
              "@PJL COMMENT KVJOBINFO CUD=OFF\n"
              "@PJL COMMENT KVJOBINFO END\n");
}
