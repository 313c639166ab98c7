#include <gtest/gtest.h>

#include <filesystem>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/tags/id3v1.h"
#include "tests/support/error_numbers.h"
#include "tests/support/file_limit.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::Noise;
using test::NumbersOf;
using test::Trailer;

class ID3v1File : public testing::Test {
protected:
    Text Make(const Bytes& contents) { return folder_.File(u"song.mp3", contents); }
    ID3v1Tag Read(const Bytes& contents) { return ReadID3v1(Make(contents), errors_); }

    TempFolder folder_;
    CollectedErrors errors_;
};

TEST_F(ID3v1File, TheTrailerIsTheLast128Bytes) {
    const ID3v1Tag tag = Read(Noise(1000) + Trailer("Title", 7));
    EXPECT_TRUE(tag.Present());
    EXPECT_EQ(FieldText(tag.Title), "Title");
    EXPECT_EQ(tag.Track, 7);
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(ID3v1File, AFileThatIsOneTrailerReadsAsATag) {
    EXPECT_TRUE(Read(Trailer("Title")).Present());
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(ID3v1File, AFileOf127BytesIsReportedAsBadRecordNumber) {
    const ID3v1Tag tag = Read(Trailer("Title").substr(1));
    EXPECT_FALSE(tag.Present());
    EXPECT_EQ(tag.Genre, NoGenre);
    EXPECT_EQ(NumbersOf(errors_), std::vector{ErrorNumber::BadRecordNumber});
    EXPECT_EQ(errors_.Errors.at(0).Path, folder_ / u"song.mp3");
}

TEST_F(ID3v1File, AnEmptyFileIsReported) {
    EXPECT_EQ(Read("").Genre, NoGenre);
    EXPECT_EQ(NumbersOf(errors_), std::vector{ErrorNumber::BadRecordNumber});
}

TEST_F(ID3v1File, NoTrailerIsGenre255AndNoError) {
    EXPECT_EQ(Read(Noise(128)).Genre, NoGenre);
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(ID3v1File, AMissingFileIsAnAllNulRecord) {
    const ID3v1Tag tag = ReadID3v1(folder_ / u"missing.mp3", errors_);
    EXPECT_EQ(tag.Genre, '\0');
    EXPECT_FALSE(tag.Present());
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(ID3v1File, AFolderIsReported) {
    EXPECT_EQ(ReadID3v1(folder_.Path(), errors_).Genre, NoGenre);
    EXPECT_EQ(NumbersOf(errors_), std::vector{ErrorNumber::PathFileAccess});
}

TEST_F(ID3v1File, WritingAppendsOnceAndThenOverwrites) {
    const Bytes audio = Noise(500);
    const Text path = Make(audio);
    ID3v1Tag tag = ParseID3v1(Trailer("First", 3));
    EXPECT_TRUE(WriteID3v1(path, tag, errors_));
    EXPECT_EQ(ReadFile(path), audio + Trailer("First", 3));
    tag.Title = "Second";
    EXPECT_TRUE(WriteID3v1(path, tag, errors_));
    EXPECT_EQ(ReadFile(path), audio + Trailer("Second", 3));
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(ID3v1File, ALowerCaseTagIsNoTrailerAndASecondOneIsAppended) {
    Bytes lower = Trailer("Title");
    lower.replace(0, 3, "tag");
    const Text path = Make(lower);
    EXPECT_TRUE(WriteID3v1(path, ParseID3v1(Trailer("New")), errors_));
    EXPECT_EQ(ReadFile(path), lower + Trailer("New"));
}

TEST_F(ID3v1File, AFileBelow128BytesIsNotWritten) {
    const Text path = Make(Noise(127));
    EXPECT_FALSE(WriteID3v1(path, ID3v1Tag(), errors_));
    EXPECT_EQ(ReadFile(path), Noise(127));
    EXPECT_EQ(NumbersOf(errors_), std::vector{ErrorNumber::BadRecordNumber});
}

TEST_F(ID3v1File, AMissingFileIsNeverCreated) {
    const Text path = folder_ / u"missing.mp3";
    EXPECT_FALSE(WriteID3v1(path, ID3v1Tag(), errors_));
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(NumbersOf(errors_), std::vector{ErrorNumber::FileNotFound});
}

TEST_F(ID3v1File, AFullDiskLeavesTheFileAsItWas) {
    const Bytes audio = Noise(500);
    const Text path = Make(audio);
    {
        const test::FileLimit limit(510);
        EXPECT_FALSE(WriteID3v1(path, ParseID3v1(Trailer("New")), errors_));
    }
    EXPECT_EQ(ReadFile(path), audio);
    EXPECT_EQ(NumbersOf(errors_).size(), 1U);
}

TEST_F(ID3v1File, AFailureWhileOverwritingPutsTheOldTrailerBack) {
    const Bytes old = Noise(500) + Trailer("Old", 9);
    const Text path = Make(old);
    {
        const test::FileLimit limit(540);
        EXPECT_FALSE(WriteID3v1(path, ParseID3v1(Trailer("New")), errors_));
    }
    EXPECT_EQ(ReadFile(path), old);
}

TEST_F(ID3v1File, TheTagOfALinkedFileIsWrittenToTheFileItself) {
    const Text path = Make(Noise(200));
    const Text link = folder_.Link(u"link.mp3", path);
    EXPECT_TRUE(WriteID3v1(link, ParseID3v1(Trailer("New")), errors_));
    EXPECT_EQ(ReadFile(path), Noise(200) + Trailer("New"));
    EXPECT_TRUE(std::filesystem::is_symlink(NativePath(link)));
}

TEST_F(ID3v1File, TheGenreOfAFile) {
    EXPECT_EQ(GetFileGenre(Make(Noise(100) + Trailer("a", '\0', '\x11')), errors_), u"Rock");
    EXPECT_EQ(GetFileGenre(Make(Noise(100) + Trailer("a", '\0', '\xC8')), errors_), u"Unknown");
    EXPECT_EQ(GetFileGenre(Make(Noise(300)), errors_), u"Unknown");
    EXPECT_TRUE(errors_.Empty());
    EXPECT_EQ(GetFileGenre(folder_ / u"missing.mp3", errors_), u"");
    EXPECT_TRUE(errors_.Empty());
    EXPECT_EQ(GetFileGenre(Make(Noise(10)), errors_), u"Unknown");
    EXPECT_EQ(NumbersOf(errors_), std::vector{ErrorNumber::BadRecordNumber});
}

}  // namespace
}  // namespace mdlPLM
