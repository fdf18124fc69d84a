// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/PrintMode.h"

#include <gtest/gtest.h>

#include "support/TicketJob.h"

namespace {

// The keys of a job's print type, in a fixed order: "type 2 owner alice password 4711 name Report".
std::string PrintType(const CompletedTicket &ticket) {
    const struct {
        const char *word, *key;
    } kKeys[] = {
        {"type", "*PrintTypeTicketKey"},
        {"owner", "*PrintTypeUserNameTicketKey"},
        {"password", "*PrintTypePasswordTicketKey"},
        {"time", "*DelayPrintTicketKey"},
        {"box", "*PrintTypeMBNTicketKey"},
        {"boxpassword", "*PrintTypeMBNPasswordTicketKey"},
        {"nametype", "*DocumentNameTypeTicketKey"},
        {"name", "*DocumentNameTicketKey"},
    };
    std::string text;
    for (const auto &[word, key] : kKeys) {
        const std::string value = Value(ticket, key);
        if (value != "absent") text += (text.empty() ? "" : " ") + std::string(word) + " " + value;
    }
    return text;
}

std::string PrintType(const std::string &options) {
    const CompletedTicket ticket = Complete({options});
    EXPECT_EQ(Said(ticket), "") << options;
    EXPECT_FALSE(ticket.refused) << options;
    return PrintType(ticket);
}

// What refuses a job.
std::string Refused(const TicketJob &job) {
    const CompletedTicket ticket = Complete(job);
    EXPECT_TRUE(ticket.refused) << job.options;
    return Said(ticket);
}

std::string Queue(const std::string &mode) {
    return PpdOption("KVPrintMode", mode, "JCLSetup");
}

constexpr char kDialog[] = KV_TICKET;

}  // namespace

TEST(PrintMode, NamesOf192BytesFit) {
    const auto said = [](std::size_t letters) {
        return Said(Complete({"KVPrintMode=Sample KVJobName=" + std::string(letters, 'x')}));
    };
    EXPECT_EQ(said(192), "");
    EXPECT_NE(said(193), "");
}

TEST(PrintMode, IsWhatWasChosen) {
    EXPECT_EQ(PrintType(""), "");
    EXPECT_EQ(PrintType("KVPrintMode=Normal"), "type 1");
    EXPECT_EQ(PrintType("KVPrintMode=Secure KVPassword=4711"),
              "type 2 owner alice password 4711 nametype 2 name Report");
    EXPECT_EQ(PrintType("KVPrintMode=Sample"), "type 3 owner alice nametype 2 name Report");
    EXPECT_EQ(PrintType("KVPrintMode=Delay KVDelayUntil=23:30"),
              "type 4 time 23:30 nametype 2 name Report");
    EXPECT_EQ(PrintType("KVPrintMode=Mailbox KVMailbox=0012"),
              "type 5 box 0012 nametype 2 name Report");
    EXPECT_EQ(PrintType("KVPrintMode=Mailbox KVMailbox=12 KVPassword=abc"),
              "type 5 box 12 boxpassword abc nametype 2 name Report");
}

TEST(PrintMode, IsWhatItsOptionsStandFor) {
    EXPECT_EQ(PrintType("KVPassword=4711"),
              "type 2 owner alice password 4711 nametype 2 name Report");
    EXPECT_EQ(PrintType("KVMailbox=3"), "type 5 box 3 nametype 2 name Report");
    EXPECT_EQ(PrintType("KVMailbox=3 KVPassword=1"),
              "type 5 box 3 boxpassword 1 nametype 2 name Report");
    EXPECT_EQ(PrintType("KVDelayUntil=00:00"), "type 4 time 00:00 nametype 2 name Report");
    EXPECT_EQ(PrintType("job-password=1234"),
              "type 2 owner alice password 1234 nametype 2 name Report");
    EXPECT_EQ(PrintType("job-password="), "");
    EXPECT_EQ(PrintType("KVPassword=None"), "");
}

TEST(PrintMode, OwnerAndNameAreTheJobsUnlessGiven) {
    EXPECT_EQ(PrintType("KVPassword=1 KVOwner=Anna KVJobName=Offer"),
              "type 2 owner Anna password 1 nametype 2 name Offer");
    EXPECT_EQ(PrintType(Complete({"KVPassword=1", "", "Grüße", "", "1"})),
              "type 2 owner Grüße password 1")
        << "a job without a title";
}

TEST(PrintMode, DefaultsOfTheQueueCount) {
    const std::string secure = Queue("Secure Normal");
    EXPECT_EQ(PrintType(Complete({"KVPassword=1", secure})),
              "type 2 owner alice password 1 nametype 2 name Report");
    EXPECT_EQ(PrintType(Complete({"KVPrintMode=Normal", secure})), "type 1");
    EXPECT_EQ(
        Refused({"", secure}),
        "refused: KVPassword is needed for a secure print, at most 16 bytes of letters that the "
        "printer knows\n");
    const std::string normal = Queue("Normal Secure");
    EXPECT_EQ(PrintType(Complete({"", normal})), "") << "a queue that keeps no jobs says nothing";
    EXPECT_EQ(PrintType(Complete({"KVPassword=1", normal})),
              "type 2 owner alice password 1 nametype 2 name Report")
        << "the job's password beats what nobody chose";
    EXPECT_EQ(PrintType(Complete({"", normal + PpdOption("KVMailbox", "7 None", "JCLSetup")})), "")
        << "a mailbox by default is for jobs that go to mailboxes";
}

TEST(PrintMode, OfTheDialogStands) {
    const std::string dialog = kDialog;
    EXPECT_EQ(PrintType(dialog + "PrintTypeTicketKey=2 " + dialog +
                        "PrintTypePasswordTicketKey=/49 " + dialog +
                        "PrintTypeUserNameTicketKey=Bob " + dialog + "DocumentNameTypeTicketKey=1"),
              "type 2 owner Bob password /49 nametype 1");
    EXPECT_EQ(PrintType(dialog + "PrintTypeTicketKey=2 " + dialog + "PrintTypePasswordTicketKey=1"),
              "type 2 owner alice password 1 nametype 2 name Report")
        << "without an owner it would be printed at once";
    EXPECT_EQ(PrintType(dialog + "PrintTypeTicketKey=3"),
              "type 3 owner alice nametype 2 name Report");
    EXPECT_EQ(PrintType(dialog + "PrintTypeTicketKey=99"), "type 99");
    EXPECT_EQ(PrintType(dialog + "PrintTypeTicketKey=-1"), "type -1");
    EXPECT_EQ(PrintType(dialog + "PrintTypeTicketKey=4 " + dialog + "DelayPrintTicketKey=07:30"),
              "type 4 time 07:30 nametype 2 name Report");
}

TEST(PrintMode, WhatDoesNotBelongToItIsSaid) {
    EXPECT_EQ(
        Said(Complete({"KVOwner=Anna KVMailbox=1 KVDelayUntil=12:00 KVJobName=x "
                       "KVPrintMode=Normal"})),
        "KVOwner is not used: it belongs to KVPrintMode Secure or Sample\n"
        "KVMailbox=1 is not used: it belongs to KVPrintMode Mailbox\n"
        "KVDelayUntil=12:00 is not used: it belongs to KVPrintMode Delay\n"
        "KVJobName is not used: it belongs to KVPrintMode Secure, Sample, Delay or Mailbox\n");
    for (const char *time : {"24:00", "12:60", "1200x", "12-00", "ab:cd", "1a:00", "12:a0", "12:0a",
                             "/2:00", "12:0/"}) {
        const CompletedTicket ticket = Complete({std::string("KVDelayUntil=") + time});
        EXPECT_EQ(Said(ticket), "KVDelayUntil=" + std::string(time) +
                                    " is no time as 23:30: the job is printed at once\n");
        EXPECT_EQ(PrintType(ticket), "");
    }
    EXPECT_EQ(Said(Complete({"KVPrintMode=Delay"})),
              "KVDelayUntil is no time as 23:30: the job is printed at once\n");
}

TEST(PrintMode, JobThatCannotBeConfidentialIsRefused) {
    const std::string needsPassword =
        "refused: KVPassword is needed for a secure print, at most 16 bytes of letters that the "
        "printer knows\n";
    const std::string changed =
        "refused: KVPassword has more than 16 bytes or letters that the printer does not know: it "
        "would not be the same there\n";
    const std::string noOwner =
        "refused: KVOwner has no letters that the printer knows, and a secure print needs an "
        "owner\n";
    const std::string dialog = kDialog;
    const struct {
        TicketJob job;
        std::string said;
    } kJobs[] = {
        {{"KVPrintMode=Secure"}, needsPassword},
        {{"KVPassword=12345678901234567"}, changed},
        {{"KVPassword=日本"}, changed},
        {{"KVPassword=47日11"}, changed},
        {{"KVPassword=a\\\"b"}, changed},
        {{"KVPassword=1", "", "Юлия"}, "user has no letters that the printer knows\n" + noOwner},
        {{"KVPassword=1 KVOwner=日本"},
         "KVOwner has no letters that the printer knows\n" + noOwner},
        {{"KVPassword=1", "", ""}, "user has no letters that the printer knows\n" + noOwner},
        {{"KVPassword="},
         "refused: KVPassword is not understood; allowed: None, a text of at most 29 bytes\n"},
        {{"KVPrintMode=Secrue"},
         "refused: KVPrintMode=Secrue is not understood; allowed: Normal, Secure, Sample, Delay, "
         "Mailbox\n"},
        {{"KVPrintMode=Normal KVPassword=1"},
         "refused: KVPassword would not keep the job: KVPrintMode is neither Secure nor Mailbox\n"},
        {{"KVPrintMode=Sample KVPassword=1"},
         "refused: KVPassword would not keep the job: KVPrintMode is neither Secure nor Mailbox\n"},
        {{dialog + "PrintTypeTicketKey=1 job-password=1"},
         "refused: job-password would not keep the job: KVPrintMode is neither Secure nor "
         "Mailbox\n"},
        {{"KVPrintMode=Mailbox"},
         "refused: KVMailbox has to be the number of a mailbox, 1 to 4 digits\n"},
        {{"KVMailbox=12a"},
         "refused: KVMailbox=12a has to be the number of a mailbox, 1 to 4 digits\n"},
        {{"KVMailbox=12345"},
         "refused: KVMailbox=12345 has to be the number of a mailbox, 1 to 4 digits\n"},
        {{"KVMailbox=1 KVPassword=123456789012345678901234567890"},
         "refused: KVPassword has more than 29 bytes or letters that the printer does not know: it "
         "would not be the same there\n"},
        {{"job-password=<01010101>"},
         "refused: job-password is binary, which CUPS does not pass on as it was\n"},
        {{"job-password=1234 job-password-encryption=sha"},
         "refused: job-password is encrypted, which the printer does not take\n"},
        {{dialog + "PrintTypeTicketKey=2"}, needsPassword},
        {{dialog + "PrintTypeTicketKey=2 " + dialog + "PrintTypePasswordTicketKey=a\\\"b"},
         needsPassword},
        {{dialog + "PrintTypeTicketKey=2 " + dialog + "PrintTypePasswordTicketKey=1 " + dialog +
          "PrintTypeUserNameTicketKey=日本"},
         noOwner},
        {{dialog + "PrintTypeTicketKey=5 " + dialog + "PrintTypeMBNTicketKey=12345"},
         "refused: KVMailbox has to be the number of a mailbox, 1 to 4 digits\n"},
        {{dialog + "PrintTypeTicketKey=5 " + dialog + "PrintTypeMBNTicketKey=1 " + dialog +
          "PrintTypeMBNPasswordTicketKey=日本"},
         "refused: KVPassword has more than 29 bytes or letters that the printer does not know\n"},
    };
    for (const auto &[job, said] : kJobs) EXPECT_EQ(Refused(job), said) << job.options;
}

TEST(PrintMode, PrinterThatReadsUTF8TakesEveryLetter) {
    const std::string utf8 = "*KVPrinterLanguageEncoding: \"UTF-8\"\n";
    const CompletedTicket ticket = Complete({"KVPassword=日本", utf8, "Юлия"});
    EXPECT_EQ(Said(ticket), "");
    EXPECT_FALSE(ticket.refused);
    EXPECT_TRUE(Complete({"KVPassword=日本日本日本", utf8}).refused) << "18 bytes";
}
