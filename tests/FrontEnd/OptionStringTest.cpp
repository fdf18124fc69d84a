// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/OptionString.h"

#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

namespace {

// "name=value" of each option, a "+" before those that the scheduler has derived.
std::string Read(const std::string &options) {
    std::string text;
    for (const JobOption &option : ParseOptionString(options.c_str())) {
        text += (option.derived ? "+" : "") + option.name + "=" + option.value + ";";
    }
    return text;
}

}  // namespace

TEST(OptionString, IsReadAsCUPSReadsIt) {
    EXPECT_EQ(Read(""), "");
    EXPECT_EQ(Read("sides=one-sided KVFlag noKVOther b=a\\ \\\"b\\\" c='d e'"),
              "b=a \"b\";c=d e;KVFlag=true;KVOther=false;sides=one-sided;");
    EXPECT_EQ(Read("a=1 A=2"), "a=2;") << "the last one counts, without regard to case";
}

TEST(OptionString, TellsWhatTheSchedulerHasDerived) {
    const std::string job = "KVStaple=LeftDouble job-uuid=urn:1 time-at-processing=5";
    EXPECT_EQ(Read(job + " document-name-supplied=a.ps Duplex=None"),
              "job-uuid=urn:1;KVStaple=LeftDouble;+document-name-supplied=a.ps;+Duplex=None;"
              "+time-at-processing=5;");
    EXPECT_EQ(Read(job + " KVSTAPLE=None Duplex=None"),
              "job-uuid=urn:1;KVStaple=LeftDouble;+Duplex=None;+time-at-processing=5;")
        << "what the job names itself holds";
    EXPECT_EQ(Read("a=x\\ time-at-processing=5 Duplex=None"),
              "a=x time-at-processing=5;Duplex=None;")
        << "the words in a value of the user's are none of the scheduler's";
}

TEST(OptionString, OfASchedulerThatTheJobTellsNothingIsAllDerived) {
    EXPECT_EQ(Read(" time-at-processing=5 Duplex=None"), "+Duplex=None;+time-at-processing=5;");
}

TEST(OptionString, WrittenReadsBackTheSame) {
    const std::string values[] = {"",      "a b",   "tab\there", "line\nfeed", "back\\slash",
                                  "'x'",   "\"x\"", "{a=1 b=2}", "x={y}",      "a,b",
                                  "Grüße", "日本",  "=",         "\\",         "\v\f\r"};
    std::string written;
    std::string expected;
    for (std::size_t i = 0; i < std::size(values); i++) {
        const std::string name = "o" + std::string(1, static_cast<char>('a' + i));
        AppendOption(written, name, values[i]);
        expected += name + "=" + values[i] + ";";
    }
    EXPECT_EQ(Read(written), expected);
}

TEST(OptionString, OfAHundredKilobytesIsReadInNoTime) {
    std::string options;
    std::string derived = " time-at-processing=5";
    for (int i = 0; options.size() < 50'000; i++) {
        options += "o" + std::to_string(i) + "=v ";
        derived += " o" + std::to_string(i) + "=w";
    }
    for (const JobOption &option : ParseOptionString((options + "x=y" + derived).c_str())) {
        if (option.name != "time-at-processing") {
            ASSERT_FALSE(option.derived) << option.name;
        }
    }
}

TEST(OptionString, NamesAreTheSameWithoutRegardToCase) {
    EXPECT_TRUE(SameName("KVStaple", "kvstaple"));
    EXPECT_FALSE(SameName("KVStaple", "KVStapl"));
    EXPECT_FALSE(SameName("KVStapl", "KVStaple"));
    EXPECT_TRUE(SameName("", ""));
}
