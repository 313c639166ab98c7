#include "core/tags/save_tags.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/platform/path.h"
#include "core/tags/file_tags.h"
#include "core/tags/id3v2_writer.h"
#include "tests/support/child_process.h"
#include "tests/support/error_numbers.h"
#include "tests/support/file_limit.h"
#include "tests/support/folder_watch.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::Noise;
using test::Nuls;
using test::Trailer;
using test::WholeTag;

constexpr auto Remove = TagMode::Remove;
constexpr auto Leave = TagMode::Leave;
constexpr auto Write = TagMode::Write;

const Bytes Audio = Noise(3000);
const Bytes OldTag = WholeTag(test::TextFrame("TIT2", "Old title"), 200);
const Bytes OldTrailer = Trailer("Old title", 3);
const Bytes NewTrailer = Trailer("New title", 9);

ID3v2Tag Titled(BytesView title) {
    ID3v2Tag tag;
    tag.Title = title;
    return tag;
}

SaveResult SaveWholly(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes) {
    return SaveTags(path, v1, v2, modes);
}

class Saving : public testing::Test {
protected:
    Text Make(const Bytes& contents) { return folder_.File(u"song.mp3", contents); }

    SaveResult Save(SaveModes modes, const ID3v2Tag& v2 = Titled("New title")) {
        return SaveTags(folder_ / u"song.mp3", ParseID3v1(NewTrailer), v2, modes);
    }

    // What is only tried tells the outcome and leaves the file alone.
    void ExpectTried(const Bytes& before, SaveModes modes, const ID3v2Tag& v2, SaveResult result) {
        const Text path = Make(before);
        SetModificationTime(path, 1'000'000'000);
        const SaveResult tried = TrySaveTags(path, ParseID3v1(NewTrailer), v2, modes);
        EXPECT_EQ(tried.Outcome, result.Outcome);
        EXPECT_EQ(tried.Error, result.Error);
        EXPECT_TRUE(ReadFile(path) == before);
        EXPECT_EQ(ModificationTime(path), 1'000'000'000);
    }

    void ExpectWritten(const Bytes& before, SaveModes modes, const Bytes& after) {
        ExpectTried(before, modes, Titled("New title"), {SaveOutcome::Written, ErrorNumber::None});
        const Text path = Make(before);
        EXPECT_EQ(Save(modes).Outcome, SaveOutcome::Written);
        EXPECT_TRUE(ReadFile(path) == after) << ReadFile(path).size() << ' ' << after.size();
        EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"song.mp3"});
    }

    void ExpectNoWork(const Bytes& before, SaveModes modes, const ID3v2Tag& v2) {
        ExpectTried(before, modes, v2, {});
        const Text path = Make(before);
        SetModificationTime(path, 1'000'000'000);
        const SaveResult result = Save(modes, v2);
        EXPECT_EQ(result.Outcome, SaveOutcome::NoWork);
        EXPECT_EQ(result.Error, ErrorNumber::None);
        EXPECT_FALSE(static_cast<bool>(result));
        EXPECT_TRUE(ReadFile(path) == before);
        EXPECT_EQ(ModificationTime(path), 1'000'000'000);
    }

    void ExpectFailed(const Bytes& before, SaveModes modes, ErrorNumber error) {
        ExpectTried(before, modes, Titled("New title"), {SaveOutcome::Failed, error});
        const Text path = Make(before);
        const SaveResult result = Save(modes);
        EXPECT_EQ(result.Outcome, SaveOutcome::Failed);
        EXPECT_EQ(result.Error, error);
        EXPECT_FALSE(static_cast<bool>(result));
        EXPECT_TRUE(ReadFile(path) == before);
        EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"song.mp3"});
    }

    TempFolder folder_;
};

// "TIT2" with "New title" and what precedes and follows it.
Bytes NewTag(std::int64_t declared, std::size_t padding) {
    return BuildTagHeader(declared) + BuildFrame("TIT2", "New title") + Nuls(padding);
}
constexpr std::size_t FrameLength = 20;

TEST_F(Saving, AFirstTagIsPutBeforeTheAudio) {
    ExpectWritten(Audio, {Leave, Write}, NewTag(40, 20) + Audio);
    ExpectWritten(Audio, {Write, Write}, NewTag(40, 20) + Audio + NewTrailer);
    ExpectWritten(Audio + OldTrailer, {Leave, Write}, NewTag(40, 20) + Audio + OldTrailer);
    ExpectWritten(Audio + OldTrailer, {Write, Write}, NewTag(40, 20) + Audio + NewTrailer);
    ExpectWritten(Audio + OldTrailer, {Remove, Write}, NewTag(40, 20) + Audio);
}

TEST_F(Saving, AnOldTagWithRoomIsOverwrittenInPlace) {
    const Bytes saved =
        NewTag(static_cast<std::int64_t>(OldTag.size()), OldTag.size() - 10 - FrameLength);
    ASSERT_EQ(saved.size(), OldTag.size());
    ExpectWritten(OldTag + Audio, {Leave, Write}, saved + Audio);
    ExpectWritten(OldTag + Audio, {Write, Write}, saved + Audio + NewTrailer);
    ExpectWritten(OldTag + Audio + OldTrailer, {Leave, Write}, saved + Audio + OldTrailer);
    ExpectWritten(OldTag + Audio + OldTrailer, {Write, Write}, saved + Audio + NewTrailer);
}

TEST_F(Saving, InPlaceTheFileItselfIsKept) {
    const Text path = Make(OldTag + Audio);
    struct stat before {};
    struct stat after {};
    ::stat(NativePath(path).c_str(), &before);
    EXPECT_TRUE(Save({Leave, Write}));
    ::stat(NativePath(path).c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(Saving, WithTheTrailerRemovedATagWithRoomIsWrittenAnew) {
    const auto declared = static_cast<std::int64_t>(OldTag.size());
    ExpectWritten(OldTag + Audio + OldTrailer, {Remove, Write}, NewTag(declared, 20) + Audio);
    ExpectWritten(OldTag + Audio, {Remove, Write}, NewTag(declared, 20) + Audio);
}

TEST_F(Saving, AnOldTagWithoutRoomIsWrittenAnew) {
    const Bytes small = WholeTag(test::TextFrame("TIT2", "a"));
    ExpectWritten(small + Audio + OldTrailer, {Leave, Write}, NewTag(22, 20) + Audio + OldTrailer);
    ExpectWritten(small + Audio + OldTrailer, {Write, Write}, NewTag(22, 20) + Audio + NewTrailer);
}

TEST_F(Saving, OnlyTheTrailer) {
    ExpectWritten(Audio, {Write, Leave}, Audio + NewTrailer);
    ExpectWritten(Audio + OldTrailer, {Write, Leave}, Audio + NewTrailer);
    ExpectWritten(OldTag + Audio + OldTrailer, {Write, Leave}, OldTag + Audio + NewTrailer);
}

TEST_F(Saving, RemovingTheTrailerKeepsEveryOtherByte) {
    ExpectWritten(Audio + OldTrailer, {Remove, Leave}, Audio);
    ExpectWritten(OldTag + Audio + OldTrailer, {Remove, Leave}, OldTag + Audio);
    ExpectWritten(Audio + OldTrailer + OldTrailer, {Remove, Leave}, Audio + OldTrailer);
}

TEST_F(Saving, RemovingTheTagKeepsAudioAndTrailer) {
    ExpectWritten(OldTag + Audio, {Leave, Remove}, Audio);
    ExpectWritten(OldTag + Audio + OldTrailer, {Leave, Remove}, Audio + OldTrailer);
    ExpectWritten(OldTag + Audio + OldTrailer, {Write, Remove}, Audio + NewTrailer);
    ExpectWritten(OldTag + Audio, {Write, Remove}, Audio + NewTrailer);
    ExpectWritten(OldTag + Audio + OldTrailer, {Remove, Remove}, Audio);
    ExpectWritten(OldTag + Audio, {Remove, Remove}, Audio);
}

TEST_F(Saving, WhatIsNotThereIsRemovedBesideWhatIs) {
    ExpectWritten(Audio + OldTrailer, {Remove, Remove}, Audio);
    ExpectWritten(Audio, {Write, Remove}, Audio + NewTrailer);
}

TEST_F(Saving, ATwiceSavedFileKeepsItsLength) {
    const Text path = Make(Audio);
    EXPECT_TRUE(Save({Write, Write}));
    const Bytes once = ReadFile(path);
    EXPECT_TRUE(Save({Write, Write}));
    const Bytes twice = ReadFile(path);
    EXPECT_EQ(once.size(), twice.size());
    EXPECT_EQ(twice, NewTag(50, 20) + Audio + NewTrailer);
}

TEST_F(Saving, ThereIsNoWork) {
    const ID3v2Tag some = Titled("x");
    ExpectNoWork(OldTag + Audio + OldTrailer, {Leave, Leave}, some);
    ExpectNoWork(OldTag + Audio, {Remove, Leave}, some);
    ExpectNoWork(Audio + OldTrailer, {Leave, Remove}, some);
    ExpectNoWork(Audio, {Remove, Remove}, some);
    ExpectNoWork(Audio + OldTrailer, {Leave, Write}, ID3v2Tag());
    ExpectNoWork(Audio, {Remove, Write}, ID3v2Tag());
}

TEST_F(Saving, NothingToWriteIntoAFileWithoutATagStillWritesTheTrailer) {
    const Text path = Make(Audio);
    EXPECT_TRUE(Save({Write, Write}, ID3v2Tag()));
    EXPECT_EQ(ReadFile(path), Audio + NewTrailer);
}

TEST_F(Saving, AllFieldsEmptiedLeaveATagOfNuls) {
    const Text path = Make(OldTag + Audio);
    EXPECT_TRUE(Save({Leave, Write}, ID3v2Tag()));
    EXPECT_EQ(ReadFile(path), BuildTagHeader(static_cast<std::int64_t>(OldTag.size())) +
                                  Nuls(OldTag.size() - 10) + Audio);
}

TEST_F(Saving, TheBytesBetweenTagAndFirstFrameAreKept) {
    const Bytes gap = Nuls(37) + "junk" + Bytes("\xFF\xFB\x90\x64") + Audio;
    ExpectWritten(OldTag + gap, {Leave, Remove}, gap);
}

TEST_F(Saving, OtherFramesSurviveByteForByte) {
    const Bytes others = test::Frame("APIC", Nuls(1) + "image/png" + Nuls(2) + Noise(40000)) +
                         test::Frame("USLT", Nuls(1) + "engwords" + Nuls(1) + "la la la") +
                         test::Frame("PRIV", "owner" + Nuls(1) + Noise(100)) +
                         test::Frame("TXXX", "\1\xFF\xFE" + Noise(20)) +
                         test::Frame("TSRC", "\3h\xC3\xA9");
    const Text path = Make(WholeTag(others + test::TextFrame("TALB", "Old album"), 100) + Audio);
    CollectedErrors errors;
    ID3v2Tag tag = ReadID3v2(path, errors);
    tag.Title = "A new title";
    EXPECT_TRUE(Save({Leave, Write}, tag));
    EXPECT_NE(ReadFile(path).find(others), Bytes::npos);
    const ID3v2Tag again = ReadID3v2(path, errors);
    EXPECT_EQ(again.Title, "A new title");
    EXPECT_EQ(again.Album, "Old album");
    EXPECT_EQ(again.OtherFrames.substr(0, others.size()), others);
    EXPECT_TRUE(errors.Empty());
}

TEST_F(Saving, AMissingFileFailsAndIsNotCreated) {
    for (const SaveModes modes :
         {SaveModes{Write, Leave}, SaveModes{Leave, Write}, SaveModes{Remove, Remove}}) {
        const SaveResult result = Save(modes);
        EXPECT_EQ(result.Outcome, SaveOutcome::Failed);
        EXPECT_EQ(result.Error, ErrorNumber::FileNotFound);
    }
    EXPECT_TRUE(ListTree(folder_.Path()).empty());
}

TEST_F(Saving, AFolderFails) {
    const SaveResult result = SaveTags(folder_.Path(), ID3v1Tag(), Titled("x"), {Write, Write});
    EXPECT_EQ(result.Outcome, SaveOutcome::Failed);
}

TEST_F(Saving, AFileBelow128BytesFailsAndStays) {
    for (const SaveModes modes : {SaveModes{Write, Leave}, SaveModes{Leave, Write},
                                  SaveModes{Remove, Leave}, SaveModes{Leave, Remove}}) {
        ExpectFailed(Noise(127), modes, ErrorNumber::BadRecordNumber);
        ExpectFailed("", modes, ErrorNumber::BadRecordNumber);
        ExpectFailed(OldTag.substr(0, 50), modes, ErrorNumber::BadRecordNumber);
    }
}

TEST_F(Saving, ATagThatDeclaresMoreThanTheFileHoldsFails) {
    const Bytes file = test::TagHeader(3000) + Noise(1000);
    for (const SaveModes modes : {SaveModes{Write, Leave}, SaveModes{Leave, Write},
                                  SaveModes{Leave, Remove}, SaveModes{Write, Write}}) {
        ExpectFailed(file, modes, ErrorNumber::InputPastEnd);
        ExpectFailed(file + OldTrailer, modes, ErrorNumber::InputPastEnd);
    }
}

TEST_F(Saving, AFullDiskWhileRewritingLeavesTheFile) {
    const Bytes before = Audio + OldTrailer;
    const Text path = Make(before);
    for (const rlim_t most : {0U, 10U, 40U, 1000U, 3100U}) {
        const test::FileLimit limit(most);
        EXPECT_EQ(Save({Write, Write}).Outcome, SaveOutcome::Failed) << most;
        EXPECT_TRUE(ReadFile(path) == before) << most;
        EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"song.mp3"});
    }
}

TEST_F(Saving, WhatIsWrittenAnewTakesItsNameInOneStepAndIsNeverDeleted) {
    const Bytes small = WholeTag(test::TextFrame("TIT2", "a"));
    for (const Bytes& before : {Audio, Audio + OldTrailer, small + Audio}) {
        for (const SaveModes modes : {SaveModes{Write, Write}, SaveModes{Leave, Write}}) {
            (void)Make(before);
            const test::FolderWatch watch(folder_.Path());
            EXPECT_EQ(Save(modes).Outcome, SaveOutcome::Written);
            const std::vector<Bytes> seen = watch.Seen();
            ASSERT_FALSE(seen.empty());
            const Bytes made = seen[0].substr(std::size("created ") - 1);
            EXPECT_EQ(made.substr(0, 4) + made.substr(made.size() - 4), "plm-.tmp");
            EXPECT_EQ(seen, (std::vector<Bytes>{"created " + made, "written " + made,
                                                "renamed away " + made, "renamed to song.mp3",
                                                "written song.mp3"}));
        }
    }
}

TEST_F(Saving, AFullDiskWhileTheFirstTagIsWrittenLeavesTheFile) {
    const Text path = Make(Audio);
    for (const rlim_t most : {rlim_t{0}, rlim_t{40}, rlim_t{Audio.size()}}) {
        const test::FileLimit limit(most);
        EXPECT_EQ(Save({Write, Write}).Outcome, SaveOutcome::Failed) << most;
        EXPECT_TRUE(ReadFile(path) == Audio) << most;
    }
}

TEST_F(Saving, AFailureInPlaceLeavesTheFile) {
    const Bytes before = OldTag + Audio;
    const Text path = Make(before);
    for (const rlim_t most :
         {rlim_t{0}, rlim_t{15}, rlim_t{100}, rlim_t{before.size()}, rlim_t{before.size() + 5}}) {
        const test::FileLimit limit(most);
        EXPECT_EQ(Save({Write, Write}).Outcome, SaveOutcome::Failed) << most;
        EXPECT_TRUE(ReadFile(path) == before) << most;
    }
}

TEST_F(Saving, AFailureWhileAppendingATrailerLeavesTheFile) {
    const Text path = Make(Audio);
    const test::FileLimit limit(Audio.size() + 60);
    EXPECT_EQ(Save({Write, Leave}).Outcome, SaveOutcome::Failed);
    EXPECT_TRUE(ReadFile(path) == Audio);
}

TEST_F(Saving, AWriteProtectedFileFailsAndStays) {
    const Bytes untagged = Audio + OldTrailer;
    for (const Bytes& before : {OldTag + untagged, untagged}) {
        const Text path = Make(before);
        ASSERT_EQ(::chmod(NativePath(path).c_str(), 0444), 0);
        EXPECT_EQ(RunInChild([&] {
                      ObeyPermissions();
                      const SaveResult result = Save({Write, Write});
                      return result.Outcome == SaveOutcome::Failed &&
                                     result.Error == ErrorNumber::PermissionDenied
                                 ? 0
                                 : 1 + static_cast<int>(result.Error);
                  }),
                  0);
        EXPECT_TRUE(ReadFile(path) == before);
        ASSERT_EQ(::chmod(NativePath(path).c_str(), 0644), 0);
    }
}

TEST_F(Saving, InAWriteProtectedFolderWhatIsWrittenAnewFailsAndWhatGoesInPlaceIsWritten) {
    const Text path = folder_.File(u"closed/song.mp3", Audio + OldTrailer);
    const Text untagged = folder_.File(u"closed/bare.mp3", Audio);
    const Text inPlace = folder_.File(u"closed/room.mp3", OldTag + Audio);
    ASSERT_EQ(::chmod(NativePath(folder_ / u"closed").c_str(), 0555), 0);
    const auto errorOf = [](const Text& file, auto save) {
        return RunInChild([&] {
            ObeyPermissions();
            const SaveResult result = save(file, ID3v1Tag(), Titled("New title"), {Leave, Write});
            return static_cast<int>(result.Error);
        });
    };
    constexpr auto denied = static_cast<int>(ErrorNumber::PermissionDenied);
    for (const Text& file : {path, untagged}) {
        EXPECT_EQ(errorOf(file, TrySaveTags), denied);
        EXPECT_EQ(errorOf(file, SaveWholly), denied);
    }
    EXPECT_EQ(errorOf(inPlace, TrySaveTags), 0);
    EXPECT_EQ(errorOf(inPlace, SaveWholly), 0);
    EXPECT_TRUE(ReadFile(path) == Audio + OldTrailer);
    EXPECT_TRUE(ReadFile(untagged) == Audio);
    EXPECT_EQ(ListTree(folder_ / u"closed"),
              (std::vector<Bytes>{"bare.mp3", "room.mp3", "song.mp3"}));
    ASSERT_EQ(::chmod(NativePath(folder_ / u"closed").c_str(), 0755), 0);
}

TEST_F(Saving, AFileThatShrankSinceItWasShownIsLookedAtAnew) {
    const Text path = Make(OldTag + Audio + OldTrailer);
    CollectedErrors errors;
    const FileTags shown = ReadFileTags(path, ID3v2Parts::Everything, errors);
    WriteFile(path, OldTag.substr(0, 150));
    const SaveResult result = SaveTags(path, shown.V1, shown.V2, {Write, Write});
    EXPECT_EQ(result.Outcome, SaveOutcome::Failed);
    EXPECT_EQ(ReadFile(path), OldTag.substr(0, 150));
}

TEST_F(Saving, AFileThatWasReplacedSinceItWasShownKeepsItsOwnAudio) {
    const Text path = Make(OldTag + Audio + OldTrailer);
    CollectedErrors errors;
    FileTags shown = ReadFileTags(path, ID3v2Parts::Everything, errors);
    const Bytes other = Noise(7000);
    WriteFile(path, other);
    shown.V2.OtherFrames.clear();
    EXPECT_TRUE(SaveTags(path, shown.V1, shown.V2, {Write, Write}));
    const Bytes title = BuildFrame("TIT2", "Old title");
    EXPECT_EQ(ReadFile(path), BuildTagHeader(40) + title + Nuls(20) + other + OldTrailer);
}

TEST_F(Saving, ThroughASymbolicLinkTheFileItselfIsWritten) {
    const Text path = folder_.File(u"real/song.mp3", Audio);
    const Text link = folder_.Link(u"link.mp3", u"real/song.mp3");
    EXPECT_TRUE(SaveTags(link, ID3v1Tag(), Titled("New title"), {Leave, Write}));
    EXPECT_EQ(ReadFile(path), NewTag(40, 20) + Audio);
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"link.mp3", "real/", "real/song.mp3"}));
}

TEST_F(Saving, AFileThatAnotherProgramWritesToIsLeftAloneAndThatIsSaid) {
    for (const Bytes& before : {OldTag + Audio, Audio}) {
        const Text path = Make(before);
        File other;
        ASSERT_TRUE(other.Open(path, File::Mode::ReadWrite).Ok());
        ASSERT_TRUE(other.Lock().Ok());
        for (const SaveResult result :
             {Save({Write, Write}), TryWriteID3v1(path),
              TrySaveTags(path, ParseID3v1(NewTrailer), Titled("x"), {Write, Write})}) {
            EXPECT_EQ(result.Outcome, SaveOutcome::Failed);
            EXPECT_EQ(result.Error, ErrorNumber::FileAlreadyOpen);
            EXPECT_EQ(ReasonOf(result),
                      u"Another program is writing to this file. Nothing was written; save it "
                      u"again when that program is done.");
        }
        CollectedErrors errors;
        EXPECT_FALSE(WriteID3v1(path, ParseID3v1(NewTrailer), errors));
        EXPECT_EQ(test::NumbersOf(errors), std::vector<ErrorNumber>{ErrorNumber::FileAlreadyOpen});
        EXPECT_TRUE(ReadFile(path) == before);
        EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"song.mp3"});
    }
    EXPECT_TRUE(Save({Write, Write}));
}

TEST_F(Saving, AFileThatChangedSinceItWasReadIsLeftAloneAndThatIsSaid) {
    const Bytes other = Noise(5000);
    for (const Bytes& before : {OldTag + Audio + OldTrailer, Audio}) {
        for (const bool replaced : {false, true}) {
            const Text path = Make(before);
            File file;
            ASSERT_TRUE(file.Open(path, File::Mode::ReadWrite).Ok());
            CollectedErrors errors;
            const FileTags tags = ReadFileTags(file, path, ID3v2Parts::FieldsAndText, errors);
            if (replaced) {
                EXPECT_EQ(std::remove(NativePath(path).c_str()), 0);
            }
            WriteFile(path, other);
            const TagChange change{tags.V1, Titled("New title"), {Write, Write}};
            const SaveResult result = SaveTags({path, file, &tags}, change);
            EXPECT_EQ(result.Outcome, SaveOutcome::Failed);
            EXPECT_EQ(SaveMessage(result),
                      u"Another program changed, moved or removed this file meanwhile. Nothing was "
                      u"written; look at the file and save it again.");
            EXPECT_TRUE(ReadFile(path) == other);
            EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"song.mp3"});
        }
    }
}

TEST_F(Saving, TheMessageOfAnErrorHasItsNumber) {
    const SaveResult full{SaveOutcome::Failed, ErrorNumber::DiskFull};
    EXPECT_EQ(ReasonOf(full), u"Disk full");
    EXPECT_EQ(SaveMessage(full), ErrorMessage(ErrorNumber::DiskFull));
}

TEST_F(Saving, TryingToWriteATrailerTellsTheErrorOfWritingIt) {
    for (const std::size_t size : {0U, 127U, 128U, 500U}) {
        const Bytes before = Noise(size);
        const Text path = Make(before);
        const SaveResult tried = TryWriteID3v1(path);
        EXPECT_TRUE(ReadFile(path) == before);
        CollectedErrors errors;
        EXPECT_EQ(WriteID3v1(path, ParseID3v1(NewTrailer), errors),
                  tried.Outcome == SaveOutcome::Written);
        EXPECT_EQ(test::NumbersOf(errors), tried.Error == ErrorNumber::None
                                               ? std::vector<ErrorNumber>{}
                                               : std::vector<ErrorNumber>{tried.Error});
    }
    EXPECT_EQ(TryWriteID3v1(folder_ / u"missing.mp3").Outcome, SaveOutcome::Failed);
}

}  // namespace
}  // namespace mdlPLM
