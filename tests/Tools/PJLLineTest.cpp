// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/PJLLine.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char *line;
    PJLKind kind;
    const char *name;
    const char *value;
    const char *masked;
};

TEST(PJLLine, IsTakenApart) {
    const Case cases[] = {
        {"\x1b%-12345X@PJL JOB MODE=PRINTER", kPJLCommand, "JOB", "MODE=PRINTER", nullptr},
        {"@PJL SET HOLD=STORE", kPJLVariable, "HOLD", "STORE", nullptr},
        {"@PJL SET USERNAME=\"a \"b\" c\"", kPJLVariable, "USERNAME", "a \"b\" c", nullptr},
        {"@PJL SET JOBATTR=\"@LUNA=alice\"", kPJLAttribute, "LUNA", "alice", nullptr},
        {"@PJL SET JOBATTR=\"@DAID=\"", kPJLAttribute, "DAID", "", nullptr},
        {"@PJL SET JOBATTR=\"@ACNA=a=b\"", kPJLAttribute, "ACNA", "a=b", nullptr},
        {"@PJL COMMENT KVJOBINFO NUP=4", kPJLComment, "NUP", "4", nullptr},
        {"@PJL COMMENT KVJOBINFO BEGIN", kPJLComment, "BEGIN", "", nullptr},
        {"@PJL COMMENT hello", kPJLCommand, "COMMENT", "hello", nullptr},
        {"@PJL ENTER LANGUAGE=POSTSCRIPT", kPJLCommand, "ENTER", "LANGUAGE=POSTSCRIPT", nullptr},
        {"@PJL", kPJLCommand, "", "", nullptr},
        {"@PJL SET", kPJLVariable, "", "", nullptr},
        {"@PJL SET JOBATTR=\"", kPJLVariable, "JOBATTR", "", nullptr},
        {"", kPJLCommand, "", "", nullptr},
        {"%!PS", kPJLCommand, "", "", nullptr},
        // Secrets, also where the line is damaged, written in another way or by another maker.
        {"@PJL SET HOLDENCRYPTKEY=\"12\"34\"", kPJLVariable, "HOLDENCRYPTKEY", "12\"34",
         "@PJL SET HOLDENCRYPTKEY=\"********\""},
        {"@PJL SET HOLDENCRYPTKEY=\"12", kPJLVariable, "HOLDENCRYPTKEY", "12",
         "@PJL SET HOLDENCRYPTKEY=\"********"},
        {"@PJL SET BOXENCRYPTKEY=\"1\"", kPJLVariable, "BOXENCRYPTKEY", "1",
         "@PJL SET BOXENCRYPTKEY=\"********\""},
        {"@PJL SET JOBATTR=\"@JOEP=x\"", kPJLAttribute, "JOEP", "x",
         "@PJL SET JOBATTR=\"@JOEP=********\""},
        {"@PJL SET JOBATTR=\"@ACEP=x y", kPJLAttribute, "ACEP", "x y",
         "@PJL SET JOBATTR=\"@ACEP=********"},
        {"@PJL SET JOBATTR=\"@JOEP=\"", kPJLAttribute, "JOEP", "", nullptr},
        {"@PJL  set  holdEncryptKey = \"x\"", kPJLVariable, "holdEncryptKey", "x",
         "@PJL  set  holdEncryptKey = \"********\""},
        {"@PJL DEFAULT PASSWORD=7", kPJLVariable, "PASSWORD", "7",
         "@PJL DEFAULT PASSWORD=********"},
        {"@PJL SET JOBPIN=7", kPJLVariable, "JOBPIN", "7", "@PJL SET JOBPIN=********"},
    };
    for (const Case &test : cases) {
        const PJLLine line = ParsePJL(test.line);
        EXPECT_EQ(line.kind, test.kind) << test.line;
        EXPECT_EQ(line.name, test.name) << test.line;
        EXPECT_EQ(line.value, test.value) << test.line;
        EXPECT_EQ(MaskSecret(test.line), test.masked ? test.masked : test.line);
    }
}

TEST(PJLLine, MeansWhatItsNameAndValueMean) {
    EXPECT_EQ(MeaningOf(ParsePJL("@PJL SET HOLD=PROOF")),
              "the printer keeps the job: but for a first copy");
    EXPECT_EQ(MeaningOf(ParsePJL("@PJL SET JOBATTR=\"@LUNA=alice\"")), "name of the user");
    EXPECT_EQ(MeaningOf(ParsePJL("@PJL SET PAPER=A4")), "not known to this filter");
    EXPECT_EQ(MeaningOf(ParsePJL("hello")), "no PJL");
}

}  // namespace
