// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/Booklet.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "support/CaptureOutput.h"
#include "support/CommentJob.h"

namespace {

std::string Attribute(const std::string &text) {
    return "@PJL SET JOBATTR=\"@" + text + "\"\n";
}

class Booklet : public CommentJob {
  protected:
    Booklet() { UsePpd(PpdWith("*KVPrinterLanguageEncoding: \"UTF-8\"\n")); }

    static std::string Lines() { return CaptureOutput(OutputKPJLCommandforBooklet); }
};

}  // namespace

TEST_F(Booklet, NeedsAPrinterLanguageOfUtf8) {
    ReadTicket("KVSignature=LeftSig KVSigVol=5Sheets");
    const std::string lines =
        "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"
        "@PJL SET JOBATTR=\"@DIBB=LEFT\"\n"
        "@PJL SET JOBATTR=\"@DIBK=MANUALDIVIDE\"\n";
    EXPECT_EQ(Lines(), lines);
    const std::string others[] = {
        "",          // no PPD
        "no PPD\n",  // none that can be read
        PpdWith(),   // no such attribute
        PpdWith("*KVPrinterLanguageEncoding: \"\"\n"),
        PpdWith("*KVPrinterLanguageEncoding: \"utf-8\"\n"),
        PpdWith("*KVPrinterLanguageEncoding: \"UTF8\"\n"),
        PpdWith("*KVPrinterLanguageEncoding: \"UTF-8X\"\n"),
        PpdWith("*KVPrinterLanguageEncoding: \"ISOLatin1\"\n"),
    };
    for (const std::string &ppd : others) {
        SCOPED_TRACE(ppd);
        UsePpd(ppd);
        EXPECT_EQ(CaptureOutput([] { EXPECT_EQ(OutputKPJLCommandforBooklet(), 0); }), "");
    }
}

// Two and six pages need a portrait document for a landscape sheet; all others a landscape one.
TEST_F(Booklet, ImageDirectionOfEveryCombination) {
    const std::string portrait = "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n";
    const std::string landscape = "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n";
    std::vector<std::string> pages = {"-6", "-4", "-2", "-1", "abc", "2x", " 6", "4-up", "026"};
    for (int n = 0; n <= 30; n++) pages.push_back(std::to_string(n));
    for (int orientation = -2; orientation <= 9; orientation++) {
        job.orientation = orientation;
        Set(job.pagesPerSheet, "");
        EXPECT_EQ(Lines(), portrait) << orientation;
        for (const std::string &number : pages) {
            SCOPED_TRACE("N=" + number + " O=" + std::to_string(orientation));
            Set(job.pagesPerSheet, number);
            const int n = std::atoi(number.c_str());
            const std::set<int> lying = n == 2 || n == 6 ? std::set{1, 6} : std::set{4, 5};
            EXPECT_EQ(Lines(), lying.contains(orientation) ? landscape : portrait);
        }
    }
}

namespace {

struct DirectionRow {
    const char *pages;
    std::vector<int> orientations;
    const char *line;
};
const DirectionRow kDirectionRows[] = {
    {"", {-1, 0, 1, 3, 4, 5, 6, 7}, "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"},
    {"2", {1, 6}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"6", {1, 6}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"2", {-1, 0, 2, 3, 4, 5, 7}, "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"},
    {"6", {-1, 0, 2, 3, 4, 5, 7}, "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"},
    {"1", {4, 5}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"4", {4, 5}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"9", {4, 5}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"16", {4, 5}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"20", {4, 5}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"-2", {4, 5}, "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"},
    {"1", {-1, 0, 1, 2, 3, 6, 7}, "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"},
    {"20", {-1, 0, 1, 2, 3, 6, 7}, "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"},
};
class DirectionTable : public Booklet, public testing::WithParamInterface<DirectionRow> {};

}  // namespace

TEST_P(DirectionTable, Line) {
    Set(job.pagesPerSheet, GetParam().pages);
    for (const int orientation : GetParam().orientations) {
        SCOPED_TRACE(orientation);
        job.orientation = orientation;
        EXPECT_EQ(Lines(), GetParam().line);
    }
}
INSTANTIATE_TEST_SUITE_P(EveryRow, DirectionTable, testing::ValuesIn(kDirectionRows));

// Every kind of booklet by every kind of volume.
TEST_F(Booklet, BindingSideAndDivision) {
    const struct {
        const char *signature;
        std::string side;  // the whole line
    } signatures[] = {
        {"LeftSig", Attribute("DIBB=LEFT")},
        {"LeftSigCenterStaple", Attribute("DIBB=LEFT")},
        {"LeftSigFold", Attribute("DIBB=LEFT")},
        {"RightSig", Attribute("DIBB=RIGHT")},
        {"RightSigCenterStaple", Attribute("DIBB=RIGHT")},
        {"RightSigFold", Attribute("DIBB=RIGHT")},
        {"BindLeft", Attribute("DIBB=LEFT")},
        {"BindRight", Attribute("DIBB=RIGHT")},
        {"RightToLeft", Attribute("DIBB=LEFT")},
        {"LeftToRight", Attribute("DIBB=LEFT")},
        {"NoneLeft", Attribute("DIBB=LEFT")},
        {"leftsig", ""},
        {"none", ""},
        {"Other", ""},
    };
    const struct {
        const char *volume;
        std::string division;
    } volumes[] = {
        {"", Attribute("DIBK=NONEDIVIDE")},          {"None", Attribute("DIBK=NONEDIVIDE")},
        {"5Sheets", Attribute("DIBK=MANUALDIVIDE")}, {"10Sheets", Attribute("DIBK=MANUALDIVIDE")},
        {"7", Attribute("DIBK=MANUALDIVIDE")},       {"none", Attribute("DIBK=MANUALDIVIDE")},
    };
    const std::string direction = Attribute("DIND=PORTRAIT");
    for (const auto &volume : volumes) {
        Set(job.signatureVolume, volume.volume);
        for (const auto &signature : signatures) {
            SCOPED_TRACE(std::string(signature.signature) + " " + volume.volume);
            Set(job.signature, signature.signature);
            EXPECT_EQ(Lines(), direction + signature.side + volume.division);
        }
        SCOPED_TRACE(volume.volume);
        Set(job.signature, "");
        EXPECT_EQ(Lines(), direction);
        Set(job.signature, "None");
        EXPECT_EQ(Lines(), direction +
                               "@PJL SET JOBATTR=\"@DIBB=OFF\"\n"
                               "@PJL SET JOBATTR=\"@DIBK=OFF\"\n");
    }
}

TEST_F(Booklet, FoldedLeftWithoutAVolume) {
    ReadTicket("KVSignature=LeftSigFold KVSigVol=None number-up=4 orientation-requested=4");
    EXPECT_EQ(Lines(),
              "@PJL SET JOBATTR=\"@DIND=LANDSCAPE\"\n"
              "@PJL SET JOBATTR=\"@DIBB=LEFT\"\n"
              "@PJL SET JOBATTR=\"@DIBK=NONEDIVIDE\"\n");
    ReadTicket("number-up=2 orientation-requested=4");
    EXPECT_EQ(Lines(), "@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n");
}

TEST_F(Booklet, ReturnsTheResultOfTheLastWrite) {
    for (const char *signature : {"", "None", "LeftSig"}) {
        Set(job.signature, signature);
        EXPECT_EQ(ResultOfFailedWrite(OutputKPJLCommandforBooklet), EOF);
        CaptureOutput([] { EXPECT_GE(OutputKPJLCommandforBooklet(), 0); });
    }
}
