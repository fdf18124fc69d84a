// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/QueueDefaults.h"

#include <gtest/gtest.h>

#include "support/LeaksOfCups.h"
#include "support/TicketJob.h"

// Lists that libcups leaks are told from ours by the whole way to them, which libcups, built
// without frame pointers, shows to this unwinder only.
extern "C" const char *__asan_default_options();
extern "C" const char *__asan_default_options() {
    return "fast_unwind_on_malloc=0";
}

namespace {

const std::string kStaple = PpdOption("KVStaple", "None UpperLeftSingle LeftDouble");
const std::string kStapled = PpdOption("KVStaple", "LeftDouble None UpperLeftSingle");
const std::string kColor = "*ColorDevice: True\n" + PpdOption("KVColorMode", "Color Gray Black");
const std::string kBlack = "*ColorDevice: True\n" + PpdOption("KVColorMode", "Black Gray Color");
const std::string kDuplex = PpdOption("Duplex", "None DuplexNoTumble DuplexTumble");
const std::string kMedia = PpdOption("MediaType", "Plain Glossy Thick");
const std::string kNoGlossyStaple =
    "*UIConstraints: *KVStaple LeftDouble *MediaType Glossy\n"
    "*UIConstraints: *MediaType Glossy *KVStaple LeftDouble\n";

std::string Of(const std::string &options, const std::string &lines, const std::string &key) {
    return Value(Complete({options, lines}), key);
}

// The source of a key: "KVStaple=None (queue default)".
std::string Source(const CompletedTicket &ticket, const std::string &key) {
    for (const TicketEntry &entry : ticket.entries) {
        if (entry.key == key) {
            return key + "=" + entry.value + " (" + TicketSourceName(entry.source) + ")";
        }
    }
    return "absent";
}

}  // namespace

TEST(QueueDefaults, FillWhatTheJobLeavesOpen) {
    for (const char *const *key = kQueueTicketKeys; *key; key++) {
        const std::string lines = PpdOption(*key, "One Two Three");
        EXPECT_EQ(Source(Complete({"", lines}), *key), std::string(*key) + "=One (queue default)");
        EXPECT_EQ(Source(Complete({std::string(*key) + "=two", lines}), *key),
                  std::string(*key) + "=Two (job)")
            << "spelled as the PPD does";
    }
}

TEST(QueueDefaults, BookletIsOffWhereThePPDHasNone) {
    EXPECT_EQ(Of("", "", "KVSignature"), "None");
    EXPECT_EQ(Of("KVSignature=LeftSig", "", "KVSignature"), "LeftSig");
    EXPECT_EQ(Of("", PpdOption("KVSignature", "LeftSig None"), "KVSignature"), "LeftSig");
    EXPECT_EQ(Of("", "", "KVStaple"), "absent");
    EXPECT_EQ(Of("KVStaple=Any", "", "KVStaple"), "Any") << "a PPD that does not know it";
}

TEST(QueueDefaults, SidesComeFromDuplex) {
    const struct {
        const char *choice, *sides;
    } kChoices[] = {{"None", "one-sided"},
                    {"False", "one-sided"},
                    {"DuplexNoTumble", "two-sided-long-edge"},
                    {"LongEdge", "two-sided-long-edge"},
                    {"Top", "two-sided-long-edge"},
                    {"DuplexTumble", "two-sided-short-edge"},
                    {"ShortEdge", "two-sided-short-edge"},
                    {"Bottom", "two-sided-short-edge"},
                    {"Other", "absent"}};
    for (const auto &[choice, sides] : kChoices) {
        for (const char *option : {"Duplex", "JCLDuplex", "EFDuplex", "KD03Duplex"}) {
            const std::string lines = PpdOption(option, std::string(choice) + " X1 X2");
            EXPECT_EQ(Of("", lines, "sides"), sides) << option << " " << choice;
        }
    }
    EXPECT_EQ(Of("", "", "sides"), "absent");
    EXPECT_EQ(Of("Duplex=DuplexTumble", kDuplex, "sides"), "two-sided-short-edge");
    EXPECT_EQ(Of("sides=two-sided-long-edge", kDuplex, "sides"), "two-sided-long-edge");
    EXPECT_EQ(Said(Complete({"sides=both", kDuplex})),
              "sides=both is not understood; allowed: one-sided, two-sided-long-edge, "
              "two-sided-short-edge\n");
    EXPECT_EQ(Of("sides=both", kDuplex, "sides"), "one-sided");
}

TEST(QueueDefaults, WhatTheQueueDoesNotKnowIsDroppedWithAWord) {
    const CompletedTicket ticket =
        Complete({"KVStaple=Nonsense KVColorMode=Colour", kStaple + kColor});
    EXPECT_EQ(Said(ticket),
              "KVColorMode=Colour is not understood; allowed: Color, Gray, Black\n"
              "KVStaple=Nonsense is not understood; allowed: None, UpperLeftSingle, LeftDouble\n");
    EXPECT_EQ(Value(ticket, "KVStaple"), "None");
    EXPECT_EQ(Value(ticket, "KVColorMode"), "Color");
    EXPECT_FALSE(ticket.refused);
    EXPECT_EQ(Said(Complete({"MediaType=Silk", kMedia})),
              "MediaType=Silk is not understood; allowed: Plain, Glossy, Thick\n");
    EXPECT_EQ(Said(Complete({"PageSize=Letter"})), "");
    EXPECT_EQ(Said(Complete({"PageSize=A9"})),
              "PageSize=A9 is not understood; allowed: A4, Letter\n");
    EXPECT_EQ(Said(Complete({"KVStaple=Custom.3", kStaple})),
              "KVStaple=Custom.3 is not understood; allowed: None, UpperLeftSingle, LeftDouble\n");
    const std::string custom =
        kMedia + "*CustomMediaType True: \"pop\"\n*ParamCustomMediaType Text: 1 string 1 30\n";
    const CompletedTicket own = Complete({"MediaType=Custom.Vellum", custom});
    EXPECT_EQ(Said(own), "");
    EXPECT_EQ(Value(own, "MediaType"), "Custom.Vellum");
    const std::string region = PpdOption("PageRegion", "A4 Letter") +
                               "*VariablePaperSize: True\n*MaxMediaWidth: \"999\"\n"
                               "*MaxMediaHeight: \"999\"\n*HWMargins: 20 20 20 20\n"
                               "*CustomPageSize True: \"pop pop pop pop pop\"\n"
                               "*ParamCustomPageSize Width: 1 points 1 999\n"
                               "*ParamCustomPageSize Height: 2 points 1 999\n";
    EXPECT_EQ(Said(Complete({"PageRegion=Letter", region})), "");
    EXPECT_EQ(Said(Complete({"PageRegion=Custom.100x200", region})), "");
    EXPECT_EQ(Said(Complete({"PageRegion=A9", region})),
              "PageRegion=A9 is not understood; allowed: A4, Letter, Custom\n");
}

TEST(QueueDefaults, ColorModeOfAClientCountsIfItWasChosen) {
    const std::string lp = "finishings=3 number-up=1 ";
    const struct {
        std::string options, lines;
        const char *mode;
    } kJobs[] = {
        {"", kColor, "Color"},
        {"print-color-mode=color", kBlack, "Color"},
        {"print-color-mode=monochrome", kColor, "Black"},
        {"print-color-mode=auto-monochrome", kColor, "Black"},
        {"print-color-mode=auto", kColor, "Color"},
        {"print-color-mode=auto", kBlack, "Black"},
        {lp + "print-color-mode=color", kBlack, "Black"},  // lp sends the queue's own value
        {lp + "print-color-mode=color", kColor, "Color"},
        {lp + "print-color-mode=monochrome", kColor, "Black"},  // that was typed
        {lp + "print-color-mode=color KVColorMode=Gray", kColor, "Gray"},
        {lp + "print-color-mode=monochrome", PpdOption("ColorModel", "Gray RGB") + kColor, "Color"},
        {lp + "print-color-mode=color", PpdOption("ColorModel", "Gray RGB") + kBlack, "Color"},
        {lp + "print-color-mode=color", PpdOption("ColorModel", "CMYK Gray") + kBlack, "Black"},
        {lp + "print-color-mode=monochrome", PpdOption("ColorModel", "RGB Gray") + kColor, "Black"},
        {lp + "print-color-mode=monochrome", PpdOption("ColorModel", "CMYK Gray") + kColor,
         "Black"},
        {lp + "time-at-processing=1 ColorModel=RGB print-color-mode=color",
         PpdOption("ColorModel", "CMYK RGB") + kBlack, "Black"},
        {"finishings=3 print-color-mode=color", kBlack, "Color"},  // not lp
        {"print-color-mode=monochrome KVColorMode=Color", kColor, "Color"},
    };
    for (const auto &[options, lines, mode] : kJobs) {
        EXPECT_EQ(Of(options, lines, "KVColorMode"), mode) << options;
    }
}

TEST(QueueDefaults, WhatAClientSentByDefaultBeatsNobody) {
    const std::string mapping =
        "*cupsIPPFinishings 3/none: \"*KVStaple None\"\n"
        "*cupsIPPFinishings 20/top-left: \"*KVStaple UpperLeftSingle\"\n";
    const std::string sent = " finishings=3 number-up=1 time-at-processing=1 KVStaple=None";
    EXPECT_EQ(Of("KVStaple=UpperLeftSingle" + sent, kStaple + mapping, "KVStaple"),
              "UpperLeftSingle");
    EXPECT_EQ(Of(sent, kStapled + mapping, "KVStaple"), "LeftDouble");
    const CompletedTicket chosen = Complete(
        {"finishings=20 time-at-processing=1 KVStaple=UpperLeftSingle", kStapled + mapping});
    EXPECT_EQ(Source(chosen, "KVStaple"), "KVStaple=UpperLeftSingle (IPP attribute)");

    const std::string preset =
        "*APPrinterPreset color/Color: \"*KVColorMode Color com.apple.print.preset.quality mid "
        "com.apple.print.preset.output-mode color\"\n";
    const std::string lp = "finishings=3 number-up=1 print-color-mode=color time-at-processing=1 ";
    EXPECT_EQ(Of(lp + "KVColorMode=Color", kBlack + preset, "KVColorMode"), "Black");
    EXPECT_EQ(Of("print-color-mode=color time-at-processing=1 KVColorMode=Color", kBlack + preset,
                 "KVColorMode"),
              "Color");
}

TEST(QueueDefaults, WhatTheJobNamesBeatsWhatItsAttributesStandFor) {
    EXPECT_EQ(Of("Duplex=None sides=two-sided-long-edge", kDuplex, "Duplex"), "None");
    const std::string noGlossyDuplex =
        "*UIConstraints: *Duplex DuplexNoTumble *MediaType Glossy\n"
        "*UIConstraints: *MediaType Glossy *Duplex DuplexNoTumble\n";
    EXPECT_EQ(Said(Complete({"MediaType=Glossy Duplex=None sides=two-sided-long-edge",
                             kDuplex + kMedia + noGlossyDuplex})),
              "");
    const std::string presets =
        "*APPrinterPreset grey/Grey: \"*KVColorMode Black com.apple.print.preset.quality mid "
        "com.apple.print.preset.output-mode monochrome\"\n"
        "*APPrinterPreset best/Best: \"*KVColorMode Gray com.apple.print.preset.quality high "
        "com.apple.print.preset.output-mode color\"\n";
    EXPECT_EQ(Of("KVColorMode=Color print-color-mode=monochrome", kColor + presets, "KVColorMode"),
              "Color");
    EXPECT_EQ(Of("KVColorMode=Color print-quality=5", kColor + presets, "KVColorMode"), "Color");
    const std::string noGlossyBlack =
        "*UIConstraints: *KVColorMode Black *MediaType Glossy\n"
        "*UIConstraints: *MediaType Glossy *KVColorMode Black\n";
    EXPECT_EQ(Said(Complete({"MediaType=Glossy KVColorMode=Color print-color-mode=monochrome",
                             kColor + kMedia + presets + noGlossyBlack})),
              "");
}

TEST(QueueDefaults, ConflictsAreResolved) {
    const std::string lines = kStaple + kMedia + kNoGlossyStaple;
    const CompletedTicket both = Complete({"KVStaple=LeftDouble MediaType=Glossy", lines});
    ASSERT_EQ(both.notices.size(), 1U) << Said(both);
    EXPECT_EQ(both.notices[0].kind, TicketNotice::Resolved);
    const bool stapleGone = Value(both, "KVStaple") == "None";
    const bool glossGone = Value(both, "MediaType") == "Plain";
    EXPECT_NE(stapleGone, glossGone) << Said(both);
    EXPECT_EQ(Source(both, "KVStaple").ends_with("(constraint)"), stapleGone);
    EXPECT_EQ(Source(both, "MediaType").ends_with("(constraint)"), glossGone);

    const std::string stapled = kStapled + kMedia + kNoGlossyStaple;
    const CompletedTicket chosen = Complete({"MediaType=Glossy", stapled});
    EXPECT_EQ(Said(chosen),
              "KVStaple=LeftDouble is not possible with MediaType=Glossy: KVStaple=None is used\n")
        << "the queue's default gives way to what was chosen";
    EXPECT_EQ(Source(chosen, "KVStaple"), "KVStaple=None (constraint)");
    EXPECT_EQ(Value(chosen, "MediaType"), "Glossy");
    EXPECT_EQ(Said(Complete({"KVStaple=LeftDouble MediaType=Thick", lines})), "");

    const std::string sided = stapled + kDuplex +
                              "*UIConstraints: *KVStaple LeftDouble *Duplex DuplexTumble\n"
                              "*UIConstraints: *Duplex DuplexTumble *KVStaple LeftDouble\n";
    EXPECT_EQ(
        Said(Complete({"MediaType=Glossy Duplex=DuplexTumble", sided})),
        "Duplex=DuplexTumble is not possible with KVStaple=LeftDouble, MediaType=Glossy: "
        "Duplex=None is used\n"
        "MediaType=Glossy is not possible with KVStaple=LeftDouble: MediaType=Plain is used\n")
        << "what the queue has set holds against two that were chosen";
}

TEST(QueueDefaults, ConflictsWithoutAWayOutAreSaid) {
    std::string lines = PpdOption("One", "A B") + PpdOption("Two", "A B");
    for (const std::string one : {"A", "B"}) {
        for (const std::string two : {"A", "B"}) {
            lines += "*UIConstraints: *One " + one + " *Two " + two + "\n";
            lines += "*UIConstraints: *Two " + two + " *One " + one + "\n";
        }
    }
    EXPECT_EQ(Said(Complete({"One=B", lines})), "options of this job are not possible together\n");
}

TEST(QueueDefaults, SidesFollowWhatConstraintsMakeOfDuplex) {
    const std::string lines = kDuplex + kMedia +
                              "*UIConstraints: *Duplex DuplexNoTumble *MediaType Glossy\n"
                              "*UIConstraints: *MediaType Glossy *Duplex DuplexNoTumble\n"
                              "*cupsUIResolver x: \"\"\n";
    const CompletedTicket ticket = Complete(
        {"MediaType=Glossy sides=two-sided-long-edge time-at-processing=1 Duplex=DuplexNoTumble",
         lines});
    EXPECT_EQ(ticket.notices.size(), 1U) << Said(ticket);
    const bool oneSided = Value(ticket, "sides") == "one-sided";
    EXPECT_EQ(oneSided, Value(ticket, "MediaType") == "Glossy") << Said(ticket);

    const std::string twoSided = PpdOption("Duplex", "DuplexNoTumble None DuplexTumble");
    const CompletedTicket glossy = Complete(
        {"MediaType=Glossy sides=two-sided-long-edge", lines.substr(kDuplex.size()) + twoSided});
    EXPECT_EQ(Value(glossy, "sides"), "one-sided") << Said(glossy);
    EXPECT_EQ(Value(glossy, "MediaType"), "Glossy");
}

TEST(QueueDefaults, CustomTextIsWhole) {
    const std::string text = "A name of more than the forty letters that libcups keeps";
    std::string lines = PpdOption("KVOwner", "Login", "JCLSetup") +
                        "*CustomKVOwner True: \"pop\"\n*ParamCustomKVOwner Name: 1 string 1 72\n" +
                        PpdOption("KVPrintMode", "Sample Normal", "JCLSetup");
    lines.replace(lines.find("*DefaultKVOwner: Login"), 22, "*DefaultKVOwner: Custom." + text);
    const CompletedTicket ticket = Complete({"", lines});
    EXPECT_EQ(Said(ticket), "");
    EXPECT_EQ(Value(ticket, "*PrintTypeUserNameTicketKey"), text);
    EXPECT_EQ(Value(Complete({"KVOwner=Bob", lines}), "*PrintTypeUserNameTicketKey"), "Bob");
}

TEST(QueueDefaults, WithoutAPPDTheJobGoesOn) {
    unsetenv("PPD");
    CloseJobPPD();
    std::string arguments[] = {"kvfilter", "17", "alice",
                               "Report",   "1",  "KVFrontEnd=CUPS KVStaple=LeftDouble KVTrim=3"};
    char *argv[7] = {};
    for (std::size_t i = 0; i < 6; i++) argv[i] = arguments[i].data();
    const CompletedTicket ticket = CompleteTicket(argv);
    EXPECT_EQ(Value(ticket, "KVStaple"), "LeftDouble");
    EXPECT_EQ(Value(ticket, "*TrimmerMMCuttingSizeTicket"), "3");
    EXPECT_EQ(Value(ticket, "KVSignature"), "None");
}
