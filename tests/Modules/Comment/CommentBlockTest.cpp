// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentBlock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "support/CaptureOutput.h"
#include "support/CommentJob.h"

namespace {

class CommentBlock : public CommentJob {
  protected:
    // Whatever the fields, the colour line is kept out: the PPD decides.
    CommentBlock() {
        UsePpd(PpdWithColorOption());
        Set(job.colorMode, "Auto");
    }

    static std::string Basic() { return CaptureOutput(OutputKPJLCommandforCommentBasic); }
};

const std::string kLongEdge = "two-sided-long-edge";
const std::string kShortEdge = "two-sided-short-edge";

}  // namespace

TEST_F(CommentBlock, FrameLines) {
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandforCommentVersionLow),
              "@PJL COMMENT KVJOBINFO VERSION=1.3.0\n");
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandforCommentVersionHigh),
              "@PJL COMMENT KVJOBINFO VERSION=1.5.0\n");
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandforCommentBegin),
              "@PJL COMMENT KVJOBINFO BEGIN\n"
              "@PJL COMMENT KVJOBINFO PDLTYPE=PDL[POSTSCRIPT]:VERSION[3]\n"
              "@PJL COMMENT KVJOBINFO JOBTYPE=PRINT\n");
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandforCommentEnd), "@PJL COMMENT KVJOBINFO END\n");
}

TEST_F(CommentBlock, ReturnsTheResultOfTheLastWrite) {
    EXPECT_EQ(ResultOfFailedWrite(OutputKPJLCommandforCommentBasic), 0);  // nothing to write
    Set(job.collation, "collate");
    EXPECT_EQ(ResultOfFailedWrite(OutputKPJLCommandforCommentBasic), EOF);
    Set(job.signature, "LeftSig");
    EXPECT_EQ(ResultOfFailedWrite(OutputKPJLCommandforCommentBasic), EOF);
    for (const auto writer :
         {OutputKPJLCommandforCommentVersionLow, OutputKPJLCommandforCommentVersionHigh,
          OutputKPJLCommandforCommentBegin, OutputKPJLCommandforCommentEnd}) {
        EXPECT_EQ(ResultOfFailedWrite(writer), EOF);
    }
    CaptureOutput([] { EXPECT_GE(OutputKPJLCommandforCommentBasic(), 0); });
}

TEST_F(CommentBlock, NothingGivenWritesNothing) {
    EXPECT_EQ(Basic(), "");
}

TEST_F(CommentBlock, Copies) {
    for (const int copies : {-1, 0, 1, 2, 999, 2147483647}) {
        SCOPED_TRACE(copies);
        job.copies = copies;
        const std::string number = std::to_string(copies);
        Set(job.collation, "");
        EXPECT_EQ(Basic(), "");
        Set(job.collation, "collate");
        EXPECT_EQ(Basic(), "@PJL COMMENT KVJOBINFO JOBCOPIES=" + number +
                               "\n"
                               "@PJL COMMENT KVJOBINFO PAGECOPIES=1\n");
        for (const char *other : {"nocollate", "Collate", "collated"}) {
            Set(job.collation, other);
            EXPECT_EQ(Basic(), "@PJL COMMENT KVJOBINFO PAGECOPIES=" + number +
                                   "\n"
                                   "@PJL COMMENT KVJOBINFO JOBCOPIES=1\n");
        }
    }
}

TEST_F(CommentBlock, DuplexOfEverySidesAndEdge) {
    const std::string d = Info("DUPLEXTYPE=DUPLEX"), t = Info("DUPLEXTYPE=TUMBLE"),
                      s = Info("DUPLEXTYPE=SIMPLEX"), none;
    const std::vector<int> edges = {-1, 0, 1, 2, 3, 4};
    const struct {
        std::string sides;
        std::string lines[6];  // one per edge
    } rows[] = {
        {"", {none, none, none, none, none, none}},
        {"one-sided", {s, s, s, d, t, s}},
        {kLongEdge, {d, d, d, d, d, d}},
        {kShortEdge, {t, t, t, d, t, t}},
        {"both", {none, none, s, d, t, none}},
        {"two-sided", {none, none, s, d, t, none}},
        {"One-Sided", {none, none, s, d, t, none}},
    };
    for (const auto &row : rows) {
        for (std::size_t i = 0; i < edges.size(); i++) {
            SCOPED_TRACE(row.sides + " " + std::to_string(edges[i]));
            Set(job.sides, row.sides);
            job.duplexBindingEdge = edges[i];
            EXPECT_EQ(Basic(), row.lines[i]);
        }
    }
}

TEST_F(CommentBlock, PagesPerSheetAsItStands) {
    for (const char *pages : {"1", "2", "16", "20", "-3", "N4", "%d%s%%", " 4"}) {
        SCOPED_TRACE(pages);
        Set(job.pagesPerSheet, pages);
        EXPECT_EQ(Basic(), std::string("@PJL COMMENT KVJOBINFO NUP=") + pages + "\n");
    }
}

// 23 bytes in front of "NUP=": 71 more and the line end make 99.
TEST_F(CommentBlock, LinesAreCutAt99Bytes) {
    for (const std::size_t length : {70U, 71U, 72U, 255U}) {
        SCOPED_TRACE(length);
        const std::string pages(length, '8');
        Set(job.pagesPerSheet, pages);
        EXPECT_EQ(Basic(), ("@PJL COMMENT KVJOBINFO NUP=" + pages + "\n").substr(0, 99));
    }
    Set(job.pagesPerSheet, "");
    Set(job.signature, "LeftSig");
    Set(job.signatureVolume, std::string(255, '9'));
    EXPECT_EQ(Basic(), "@PJL COMMENT KVJOBINFO BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[" +
                           std::string(99 - 64, '9'));
}

TEST_F(CommentBlock, Staple) {
    const struct {
        const char *staple, *line;
    } rows[] = {
        {"", ""},
        {"None", "@PJL COMMENT KVJOBINFO STAPLE=OFF\n"},
        {"SaddleStaple", "@PJL COMMENT KVJOBINFO STAPLE=OFF\n"},
        {"LeftDouble", "@PJL COMMENT KVJOBINFO STAPLE=ON\n"},
        {"none", "@PJL COMMENT KVJOBINFO STAPLE=ON\n"},
        {"NoneLeft", "@PJL COMMENT KVJOBINFO STAPLE=ON\n"},
        {"SaddleStaple2", "@PJL COMMENT KVJOBINFO STAPLE=ON\n"},
        {"x", "@PJL COMMENT KVJOBINFO STAPLE=ON\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.staple);
        Set(job.staple, row.staple);
        EXPECT_EQ(Basic(), row.line);
    }
}

TEST_F(CommentBlock, Punch) {
    const struct {
        const char *punch, *line;
    } rows[] = {
        {"", ""},
        {"None", "@PJL COMMENT KVJOBINFO PUNCH=OFF\n"},
        {"Left", "@PJL COMMENT KVJOBINFO PUNCH=ON\n"},
        {"none", "@PJL COMMENT KVJOBINFO PUNCH=ON\n"},
        {"NoneTop", "@PJL COMMENT KVJOBINFO PUNCH=ON\n"},
        {"Bottom", "@PJL COMMENT KVJOBINFO PUNCH=ON\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.punch);
        Set(job.punch, row.punch);
        EXPECT_EQ(Basic(), row.line);
    }
}

// Every kind of booklet by every kind of volume.
TEST_F(CommentBlock, Booklet) {
    const std::string off = "@PJL COMMENT KVJOBINFO BOOKLETTYPE=TYPE[NOBOOKLET]\n";
    const std::string undivided = "@PJL COMMENT KVJOBINFO BOOKLETTYPE=TYPE[NONEDIVIDE]\n";
    const auto divided = [](const std::string &threshold) {
        return "@PJL COMMENT KVJOBINFO BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[" + threshold +
               "]\n";
    };
    const struct {
        const char *volume;
        std::string line;       // of a booklet
        const char *remaining;  // of the volume
    } volumes[] = {
        {"", off, ""},
        {"None", undivided, "None"},
        {"5Sheets", divided("5"), "5"},
        {"10Sheets", divided("10"), "10"},
        {"1Sheet", divided("1"), "1"},
        {"12 Sheets of 3Sheets", divided("12 "), "12 "},
        {"Sheets", divided(""), ""},
        {"7", divided("7"), "7"},
        {"7sheets", divided("7sheets"), "7sheets"},
        {"NoneSheets", divided("None"), "None"},
        {"none", divided("none"), "none"},
    };
    for (const char *signature : {"LeftSig", "LeftSigCenterStaple", "LeftSigFold", "RightSig",
                                  "RightSigCenterStaple", "RightSigFold", "none", "Other"}) {
        for (const auto &volume : volumes) {
            SCOPED_TRACE(std::string(signature) + " " + volume.volume);
            Set(job.signature, signature);
            Set(job.signatureVolume, volume.volume);
            EXPECT_EQ(Basic(), volume.line);
            EXPECT_STREQ(job.signatureVolume, volume.remaining);
        }
    }
    for (const auto &volume : volumes) {
        SCOPED_TRACE(volume.volume);
        Set(job.signatureVolume, volume.volume);
        Set(job.signature, "None");
        EXPECT_EQ(Basic(), off);
        EXPECT_STREQ(job.signatureVolume, volume.volume);
        Set(job.signature, "");
        EXPECT_EQ(Basic(), "");
        EXPECT_STREQ(job.signatureVolume, volume.volume);
    }
}

TEST_F(CommentBlock, TheThresholdIsCutInTheRecordToItsEnd) {
    Set(job.signature, "RightSigFold");
    Set(job.signatureVolume, "5Sheets and 6Sheets " + std::string(255, 'x'));
    Basic();
    EXPECT_EQ(job.signatureVolume[0], '5');
    EXPECT_TRUE(std::all_of(job.signatureVolume + 1, std::end(job.signatureVolume),
                            [](char c) { return c == '\0'; }));
    EXPECT_EQ(Basic(), Info("BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[5]"));  // once more, the same
}

TEST_F(CommentBlock, LinesStandInThisOrder) {
    ReadTicket(
        "collate sides=two-sided-long-edge DuplexBindingEdge..n.=2 KVColorMode=Color number-up=4 "
        "KVStaple=LeftDouble KVPunch=Left KVSignature=LeftSig KVSigVol=5Sheets "
        "com.apple.print.PrintSettings.PMCopies..n.=3");
    EXPECT_EQ(Basic(),
              "@PJL COMMENT KVJOBINFO JOBCOPIES=3\n"
              "@PJL COMMENT KVJOBINFO PAGECOPIES=1\n"
              "@PJL COMMENT KVJOBINFO DUPLEXTYPE=DUPLEX\n"
              "@PJL COMMENT KVJOBINFO COLORMODE=COLOR\n"
              "@PJL COMMENT KVJOBINFO NUP=4\n"
              "@PJL COMMENT KVJOBINFO STAPLE=ON\n"
              "@PJL COMMENT KVJOBINFO PUNCH=ON\n"
              "@PJL COMMENT KVJOBINFO BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[5]\n");
}

TEST_F(CommentBlock, OfAnEmptyTicket) {
    ReadTicket("");
    EXPECT_EQ(Basic(),
              "@PJL COMMENT KVJOBINFO DUPLEXTYPE=TUMBLE\n"
              "@PJL COMMENT KVJOBINFO COLORMODE=GRAYSCALE\n"
              "@PJL COMMENT KVJOBINFO NUP=1\n");
}

// Only the binding edge can turn a job without a kind of booklet from TUMBLE.
TEST_F(CommentBlock, ALongEdgeJobWithoutAKindOfBooklet) {
    const std::string rest = Info("COLORMODE=GRAYSCALE") + Info("NUP=1");
    for (const char *edge : {"0", "1", "3", "4"}) {
        SCOPED_TRACE(edge);
        ReadTicket(std::string("sides=two-sided-long-edge DuplexBindingEdge..n.=") + edge);
        EXPECT_EQ(Basic(), Info("DUPLEXTYPE=TUMBLE") + rest);
    }
    ReadTicket("sides=two-sided-long-edge DuplexBindingEdge..n.=2");
    EXPECT_EQ(Basic(), Info("DUPLEXTYPE=DUPLEX") + rest);
    ReadTicket("sides=two-sided-long-edge");
    EXPECT_EQ(Basic(), Info("DUPLEXTYPE=TUMBLE") + rest);
}

TEST_F(CommentBlock, ALongEdgeJobThatIsNoBooklet) {
    const std::string rest =
        Info("COLORMODE=GRAYSCALE") + Info("NUP=1") + Info("BOOKLETTYPE=TYPE[NOBOOKLET]");
    ReadTicket("KVSignature=None sides=two-sided-long-edge");
    EXPECT_EQ(Basic(), Info("DUPLEXTYPE=DUPLEX") + rest);
    ReadTicket("KVSignature=None sides=two-sided-long-edge DuplexBindingEdge..n.=0");
    EXPECT_EQ(Basic(), Info("DUPLEXTYPE=SIMPLEX") + rest);
}

TEST_F(CommentBlock, NocollateInsideAnotherValueSelectsPageCopies) {
    ReadTicket("KVStaple=x-nocollate-x com.apple.print.PrintSettings.PMCopies..n.=7");
    EXPECT_EQ(Basic(), Info("PAGECOPIES=7") + Info("JOBCOPIES=1") + Info("DUPLEXTYPE=TUMBLE") +
                           Info("COLORMODE=GRAYSCALE") + Info("NUP=1") + Info("STAPLE=ON"));
}
