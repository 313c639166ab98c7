#include "app/tags/tag_run.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/platform/path.h"
#include "core/tags/id3v2_writer.h"
#include "tests/support/child_process.h"
#include "tests/support/file_limit.h"
#include "tests/support/run_failures.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::Noise;

TagChange WriteTrailer(TextView /*path*/, const FileTags& tags) {
    TagChange change{tags.V1, {}, {TagMode::Write, TagMode::Leave}};
    change.V1.Title = "New";
    return change;
}

class Run : public testing::Test {
protected:
    Text Make(TextView name, const Bytes& contents) { return folder_.File(name, contents); }
    TempFolder folder_;
};

TEST_F(Run, OneFileIsReadChangedAndWrittenPerStep) {
    const Text a = Make(u"a.mp3", Noise(300));
    const Text b = Make(u"b.mp3", Noise(300));
    TagRun run({a, b}, WriteTrailer);
    EXPECT_EQ(run.Total(), 2U);
    EXPECT_EQ(run.Done(), 0U);
    EXPECT_EQ(run.Current(), a);
    EXPECT_TRUE(run.Step());
    EXPECT_EQ(ReadFile(a).size(), 428U);
    EXPECT_EQ(ReadFile(b).size(), 300U);
    EXPECT_EQ(run.Done(), 1U);
    EXPECT_EQ(run.Current(), b);
    EXPECT_FALSE(run.Step());
    EXPECT_EQ(ReadFile(b).size(), 428U);
    EXPECT_TRUE(run.Finished());
    EXPECT_EQ(run.Current(), u"");
    EXPECT_FALSE(run.Step());
    EXPECT_EQ(PlacesDone(run.Report()), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(SummaryText(run.Report(), TagWording), u"2 done, 0 skipped, 0 failed");
}

TEST_F(Run, StoppingBeginsNoFurtherFile) {
    const Text a = Make(u"a.mp3", Noise(300));
    const Text b = Make(u"b.mp3", Noise(300));
    TagRun run({a, b}, WriteTrailer);
    run.Step();
    run.Stop();
    EXPECT_FALSE(run.Step());
    EXPECT_TRUE(run.Finished());
    EXPECT_TRUE(run.Report().Stopped);
    EXPECT_EQ(ReadFile(b).size(), 300U);
}

TEST_F(Run, NothingToRunIsFinishedAtOnce) {
    TagRun run({}, WriteTrailer);
    EXPECT_TRUE(run.Finished());
    EXPECT_FALSE(run.Step());
    run.Stop();
    EXPECT_FALSE(run.Report().Stopped);
    EXPECT_EQ(FailureText(run.Report(), TagWording), u"");
}

TEST_F(Run, AFileThatFailsIsNamedAndTheOthersAreWritten) {
    const Text tiny = Make(u"tiny.mp3", Noise(20));
    const Text missing = folder_ / u"missing.mp3";
    const Text broken = Make(u"broken.mp3", test::TagHeader(100000) + Noise(500));
    const Text good = Make(u"good.mp3", Noise(300));
    TagRun run({tiny, missing, broken, good}, WriteTrailer);
    while (run.Step()) continue;
    ASSERT_EQ(FailuresOf(run.Report()).size(), 3U);
    EXPECT_EQ(FailureText(run.Report(), TagWording),
              u"The tags of 3 files could not be saved:\n\"" + tiny + u"\": Bad record number\n\"" +
                  missing + u"\": File not found\n\"" + broken + u"\": Input past end of file");
    EXPECT_EQ(PlacesDone(run.Report()), std::vector<std::size_t>{3});
    EXPECT_EQ(ReadFile(tiny), Noise(20));
    EXPECT_EQ(ReadFile(broken), test::TagHeader(100000) + Noise(500));
    EXPECT_FALSE(IsThere(missing));
    EXPECT_EQ(SummaryText(run.Report(), TagWording), u"1 done, 0 skipped, 3 failed");
}

TEST_F(Run, AFileOnWhichThereIsNothingToDoIsNoFailure) {
    TagRun run({Make(u"a.mp3", Noise(300))}, [](TextView, const FileTags&) { return TagChange(); });
    run.Step();
    EXPECT_EQ(run.Report().Count(FileFate::Unchanged), 1U);
    EXPECT_TRUE(FailuresOf(run.Report()).empty());
    EXPECT_TRUE(PlacesDone(run.Report()).empty());
}

TEST_F(Run, AWriteProtectedFileFailsOnlyWhenThereIsSomethingToWrite) {
    const Text path = Make(u"a.mp3", Noise(300));
    ASSERT_EQ(::chmod(NativePath(path).c_str(), 0444), 0);
    const auto summaryOf = [&](const TagRun::Edit& edit) {
        TagRun run({path}, edit);
        run.Step();
        return SummaryText(run.Report(), TagWording);
    };
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  const bool failed = summaryOf(WriteTrailer) == u"0 done, 0 skipped, 1 failed";
                  const bool skipped = summaryOf([](TextView, const FileTags&) {
                                           return TagChange();
                                       }) == u"0 done, 1 skipped, 0 failed";
                  return failed && skipped ? 0 : 1;
              }),
              0);
    EXPECT_EQ(ReadFile(path), Noise(300));
}

TEST_F(Run, AGrowingTagIsWrittenToTheOpenFile) {
    const Bytes audio = Noise(3000);
    const Text path = Make(u"a.mp3", audio + test::Trailer("V1"));
    TagRun run({path}, [](TextView, const FileTags& tags) {
        TagChange change{tags.V1, tags.V2, {TagMode::Remove, TagMode::Write}};
        change.V2.Title = "New title";
        return change;
    });
    while (run.Step()) continue;
    EXPECT_EQ(PlacesDone(run.Report()).size(), 1U);
    EXPECT_TRUE(ReadFile(path) ==
                BuildTagHeader(40) + BuildFrame("TIT2", "New title") + test::Nuls(20) + audio);
    EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Run, AFailureInPlacePutsBackWhatTheFileHeld) {
    const Bytes tag = test::WholeTag(test::TextFrame("TIT2", "Old title"), 300);
    const Bytes whole = tag + Noise(2000) + test::Trailer("Old title", 3);
    // Declares ten bytes more than the file holds.
    const Bytes alone = BuildTagHeader(static_cast<std::int64_t>(tag.size())) + tag.substr(10);
    struct Case {
        Bytes Before;
        SaveModes Modes;
        std::size_t Limit;  // bytes that the disk takes
    };
    const Case cases[] = {
        {whole, {TagMode::Write, TagMode::Leave}, whole.size() - 68},
        {whole, {TagMode::Write, TagMode::Write}, whole.size() - 68},
        {whole, {TagMode::Leave, TagMode::Write}, 15},
        {whole, {TagMode::Leave, TagMode::Write}, 100},
        {tag + Noise(2000), {TagMode::Write, TagMode::Write}, tag.size() + 2060},
        {alone, {TagMode::Leave, TagMode::Write}, alone.size() + 4},
    };
    for (const Case& c : cases) {
        const Text path = Make(u"a.mp3", c.Before);
        TagRun run({path}, [&](TextView, const FileTags& tags) {
            TagChange change{tags.V1, tags.V2, c.Modes};
            change.V1.Title = change.V2.Title = "New title, a longer one";
            return change;
        });
        {
            const test::FileLimit full(c.Limit);
            run.Step();
        }
        EXPECT_EQ(FailuresOf(run.Report()).size(), 1U) << c.Limit;
        EXPECT_TRUE(ReadFile(path) == c.Before) << c.Limit;
    }
}

TEST_F(Run, TheEditSeesWhatTheFileHolds) {
    const Bytes tag = test::WholeTag(test::TextFrame("TIT2", "Title"), 20);
    FileTags seen;
    Text seenPath;
    const Text path = Make(u"a.mp3", tag + Noise(300) + test::Trailer("V1"));
    TagRun run({path}, [&](TextView where, const FileTags& tags) {
        seen = tags;
        seenPath = where;
        return TagChange();
    });
    run.Step();
    EXPECT_EQ(seenPath, path);
    EXPECT_EQ(seen.V2.Title, "Title");
    EXPECT_EQ(FieldText(seen.V1.Title), "V1");
    EXPECT_EQ(seen.V2Text.substr(0, tag.size() - 10), tag.substr(10));
}

// --- files that are written anew ---

const Bytes Audio = Noise(3000);

TagChange FirstTag(TextView /*path*/, const FileTags& tags) {
    TagChange change{tags.V1, tags.V2, {TagMode::Leave, TagMode::Write}};
    change.V2.Title = "New title";
    change.V2.Comments += Bytes(tags.V2Text.size() + 1, 'c');  // never fits into the old tag
    return change;
}

class Growing : public Run {
protected:
    Growing() {
        for (const TextView name : {u"a.mp3", u"b.mp3", u"c.mp3"})
            paths_.push_back(Make(name, Audio));
    }
    [[nodiscard]] std::size_t Tagged() const {
        return static_cast<std::size_t>(
            std::count_if(paths_.begin(), paths_.end(), [](const Text& path) {
                const Bytes contents = ReadFile(path);
                EXPECT_EQ(contents.substr(contents.size() - Audio.size()), Audio);
                return contents.substr(0, 3) == "ID3";
            }));
    }
    [[nodiscard]] std::vector<Bytes> Names() const { return ListTree(folder_.Path()); }
    static std::vector<Text> ReasonsOf(const TagRun& run) {
        std::vector<Text> reasons;
        for (const FileFailure& failure : FailuresOf(run.Report()))
            reasons.push_back(failure.Reason);
        return reasons;
    }

    std::vector<Text> paths_;
};

const std::vector<Bytes> OnlyTheFiles = {"a.mp3", "b.mp3", "c.mp3"};

TEST_F(Growing, AreToldWhenTheyHaveTheirNamesInTheOrderOfTheFiles) {
    paths_.push_back(folder_ / u"missing.mp3");
    TagRun run(paths_, FirstTag);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(run.Step());
    EXPECT_EQ(run.Done(), 3U);
    EXPECT_TRUE(run.Report().Files.empty());
    paths_.pop_back();
    EXPECT_EQ(Tagged(), 0U);
    paths_.push_back(folder_ / u"missing.mp3");
    std::size_t told = 0;
    while (run.Step()) {
        if (run.Report().Files.size() > told) {
            EXPECT_EQ(Names(), OnlyTheFiles);
        }
        told = run.Report().Files.size();
    }
    const std::vector<FileOutcome>& files = run.Report().Files;
    ASSERT_EQ(files.size(), 4U);
    for (std::size_t i = 0; i < files.size(); ++i) {
        EXPECT_EQ(files[i].Path, paths_[i]);
        EXPECT_EQ(files[i].What, i < 3 ? FileFate::Done : FileFate::Failed);
    }
    EXPECT_EQ(SummaryText(run.Report(), TagWording), u"3 done, 0 skipped, 1 failed");
}

TEST_F(Growing, StoppedThoseThatWaitGetTheirNames) {
    TagRun run(paths_, FirstTag);
    run.Step();
    run.Step();
    run.Stop();
    EXPECT_FALSE(run.Finished());
    EXPECT_EQ(run.Current(), u"");
    while (run.Step()) continue;
    EXPECT_TRUE(run.Report().Stopped);
    EXPECT_EQ(PlacesDone(run.Report()), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(Tagged(), 2U);
    EXPECT_TRUE(ReadFile(paths_[2]) == Audio);
    EXPECT_EQ(Names(), OnlyTheFiles);
}

TEST_F(Growing, ARunThatGoesInTheMiddleLeavesTheFilesAsTheyWere) {
    {
        TagRun run(paths_, FirstTag);
        run.Step();
        run.Step();
    }
    EXPECT_EQ(Tagged(), 0U);
    EXPECT_EQ(Names(), OnlyTheFiles);
}

TEST_F(Growing, AFileThatIsNamedTwiceIsReadAgainAfterItWasWritten) {
    const Text link = folder_.Link(u"link.mp3", u"a.mp3");
    std::vector<std::size_t> lengths;
    TagRun run({paths_[0], link, paths_[0]}, [&](TextView path, const FileTags& tags) {
        lengths.push_back(tags.V2.Comments.size());
        return FirstTag(path, tags);
    });
    while (run.Step()) continue;
    EXPECT_EQ(PlacesDone(run.Report()).size(), 3U);
    ASSERT_EQ(lengths.size(), 3U);
    EXPECT_EQ(lengths[0], 0U);
    EXPECT_LT(lengths[0], lengths[1]);
    EXPECT_LT(lengths[1], lengths[2]);
    EXPECT_EQ(Tagged(), 1U);
}

TEST_F(Growing, AnErrorThatStaysLeavesEveryFileAndEachIsNamed) {
    TagRun run(paths_, FirstTag);
    {
        const test::FileLimit full(Audio.size() + 10);
        while (run.Step()) continue;
    }
    EXPECT_EQ(ReasonsOf(run), std::vector<Text>(3, u"Disk full"));
    for (std::size_t i = 0; i < paths_.size(); ++i) {
        EXPECT_EQ(FailuresOf(run.Report())[i].Path, paths_[i]);
        EXPECT_TRUE(ReadFile(paths_[i]) == Audio);
    }
    EXPECT_EQ(Names(), OnlyTheFiles);
}

TEST_F(Growing, AFileThatAnotherProgramChangesBetweenReadAndWriteIsLeftToIt) {
    const Bytes others = Noise(4000);
    TagRun run({paths_[0]}, [&](TextView path, const FileTags& tags) {
        WriteFile(path, others);
        return FirstTag(path, tags);
    });
    while (run.Step()) continue;
    EXPECT_EQ(ReasonsOf(run),
              std::vector<Text>{u"Another program changed, moved or removed this file meanwhile. "
                                u"Nothing was written; look at the file and save it again."});
    EXPECT_TRUE(ReadFile(paths_[0]) == others);
    EXPECT_EQ(Names(), OnlyTheFiles);
}

TEST_F(Growing, TwoRunsAtOnceLoseNothing) {
    TagRun first(paths_, FirstTag);
    TagRun second(paths_, FirstTag);
    while (!first.Finished() || !second.Finished()) {
        first.Step();
        second.Step();
    }
    EXPECT_EQ(Tagged(), 3U);
    EXPECT_EQ(Names(), OnlyTheFiles);
    EXPECT_EQ(PlacesDone(first.Report()).size(), 3U);
    EXPECT_EQ(ReasonsOf(second),
              std::vector<Text>(3,
                                u"Another program is writing to this file. Nothing was written; "
                                u"save it again when that program is done."));
}

}  // namespace
}  // namespace mdlPLM
