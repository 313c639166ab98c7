// What is said about a run, from what became of each file.
#include "app/list/run_texts.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace mdlPLM;

namespace {

const RunWording Sorting{FileFate::Done, "This could not be sorted:", "%1 could not be sorted:"};
const RunWording Saving{FileFate::Skipped, "One was not saved:", "%1 were not saved:"};

FileOutcome Failed(TextView path, ErrorNumber error) {
    return {Text(path), {}, FileFate::Failed, {Why::SystemError, error}};
}

FileOutcome Skipped(TextView path, Why reason) {
    return {Text(path), {}, FileFate::Skipped, {reason}};
}

RunReport Of(std::vector<FileOutcome> files) {
    RunReport report;
    report.Files = std::move(files);
    return report;
}

std::ptrdiff_t Lines(const Text& text) { return std::count(text.begin(), text.end(), u'\n'); }

}  // namespace

TEST(RunTexts, NoFailureGivesNoMessage) {
    EXPECT_EQ(FailureText({}, Sorting), u"");
    EXPECT_EQ(FailureText(Of({{u"/a.mp3"}}), Sorting), u"");
    EXPECT_EQ(DetailsText({}, Sorting), u"");
}

TEST(RunTexts, TheMessageNamesWhatFailedAndWhy) {
    RunReport report = Of({{u"/0.mp3"}, Failed(u"/a.mp3", ErrorNumber::DiskFull)});
    EXPECT_EQ(FailureText(report, Sorting), u"This could not be sorted:\n\"/a.mp3\": Disk full");
    report.Files.push_back(Failed(u"/b.mp3", ErrorNumber::PermissionDenied));
    EXPECT_EQ(FailureText(report, Sorting),
              u"2 could not be sorted:\n\"/a.mp3\": Disk full\n\"/b.mp3\": Permission denied");
}

TEST(RunTexts, TheMessageStaysShortEnoughForABoxAndCountsTheRest) {
    const RunReport report =
        Of(std::vector<FileOutcome>(1000, Failed(u"/a.mp3", ErrorNumber::DiskFull)));
    const Text text = FailureText(report, Sorting);
    EXPECT_EQ(Lines(text), 16);
    EXPECT_TRUE(StartsWith(text, u"1000 could not be sorted:\n"));
    EXPECT_TRUE(EndsWith(text, u"\nand 985 more."));
    EXPECT_EQ(Lines(DetailsText(report, Sorting)), 1000);
}

TEST(RunTexts, ABoxThatIsJustFullNamesAll) {
    const RunReport report =
        Of(std::vector<FileOutcome>(15, Failed(u"/a.mp3", ErrorNumber::DiskFull)));
    EXPECT_TRUE(EndsWith(FailureText(report, Sorting), u"\n\"/a.mp3\": Disk full"));
}

TEST(RunTexts, TheSummaryCountsDoneSkippedAndFailed) {
    EXPECT_EQ(SummaryText({}, Sorting), u"0 done, 0 skipped, 0 failed");
    const RunReport report = Of({{u"/a.mp3"},
                                 {u"/b.mp3", {}, FileFate::Unchanged},
                                 {u"/c.mp3", {}, FileFate::Unchanged},
                                 Skipped(u"/d.mp3", Why::Missing),
                                 Failed(u"/e.mp3", ErrorNumber::DiskFull)});
    EXPECT_EQ(SummaryText(report, Sorting), u"3 done, 1 skipped, 1 failed");
    EXPECT_EQ(SummaryText(report, Saving), u"1 done, 3 skipped, 1 failed");
}

TEST(RunTexts, TheDetailsSayWhatBecameOfEveryFile) {
    const RunReport report = Of({{u"/a.mp3", u"/out/A.mp3"},
                                 {u"/b.mp3", u"/b.mp3", FileFate::Unchanged},
                                 Skipped(u"/c.mp3", Why::Missing),
                                 Failed(u"/d.mp3", ErrorNumber::DiskFull)});
    EXPECT_EQ(DetailsText(report, Sorting),
              u"Done: \"/a.mp3\" to \"/out/A.mp3\"\n"
              u"Done: \"/b.mp3\" to \"/b.mp3\"\n"
              u"Skipped: \"/c.mp3\": The file is missing\n"
              u"Failed: \"/d.mp3\": Disk full\n");
    EXPECT_EQ(DetailsText(Of({{u"/a.mp3"}, {u"/b.mp3", {}, FileFate::Unchanged}}), Saving),
              u"Done: \"/a.mp3\"\n"
              u"Skipped: \"/b.mp3\": There was nothing to change\n");
}

TEST(RunTexts, EveryCauseHasItsWords) {
    const std::pair<Cause, TextView> causes[] = {
        {{}, u""},
        {{Why::TargetExists}, u"There is a file of its new name"},
        {{Why::Missing}, u"The file is missing"},
        {{Why::NoArtist}, u"Its name has no artist"},
        {{Why::NoNameLeft}, u"no name is left"},
        {{Why::NoNameLeft, {}, u".mp3"}, u"no name is left (\".mp3\")"},
        {{Why::SourceStays, ErrorNumber::PermissionDenied},
         u"Copied, but the original could not be removed: Permission denied"},
        {{Why::AnotherWrites},
         u"Another program is writing to this file. Nothing was written; save it again when that "
         u"program is done."},
        {{Why::ChangedMeanwhile},
         u"Another program changed, moved or removed this file meanwhile. Nothing was written; "
         u"look "
         u"at the file and save it again."},
        {{Why::SystemError, ErrorNumber::DiskFull}, u"Disk full"},
        {{Why::SystemError, ErrorNumber::FileAlreadyExists, u"/t"},
         u"File already exists (\"/t\")"},
    };
    for (const auto& [cause, words] : causes) EXPECT_EQ(ReasonText(cause), words);
    EXPECT_NE(ReasonText({Why::GivenUp}), u"");
}
