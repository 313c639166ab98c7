#include "core/tags/file_tags.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/error_numbers.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::Frame;
using test::Noise;
using test::Nuls;
using test::NumbersOf;
using test::TagHeader;
using test::TextFrame;
using test::Trailer;
using test::WholeTag;
using Numbers = std::vector<ErrorNumber>;

class TagsOfFile : public testing::Test {
protected:
    Text Make(const Bytes& contents) { return folder_.File(u"song.mp3", contents); }
    FileTags Read(const Bytes& contents) {
        return ReadFileTags(Make(contents), ID3v2Parts::Everything, errors_);
    }

    TempFolder folder_;
    CollectedErrors errors_;
};

const Bytes TitleFrame = TextFrame("TIT2", "A title");

TEST_F(TagsOfFile, BothTagsAreReadInOneGo) {
    const Bytes file = WholeTag(TitleFrame, 30) + Noise(500) + Trailer("V1 title", 5);
    const FileTags tags = Read(file);
    EXPECT_TRUE(tags.Exists);
    EXPECT_EQ(tags.V2.Title, "A title");
    EXPECT_EQ(tags.V2.Version, "3.0");
    EXPECT_EQ(FieldText(tags.V1.Title), "V1 title");
    EXPECT_TRUE(tags.V1HasTrackByte);
    EXPECT_EQ(tags.FileSize, static_cast<std::int64_t>(file.size()));
    EXPECT_EQ(tags.V2Length, static_cast<std::int64_t>(10 + TitleFrame.size() + 30));
    EXPECT_FALSE(tags.V1Failed || tags.V2Failed);
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(TagsOfFile, AFileThatIsNotLetBeReadIsToldApartFromABrokenTag) {
    for (const Bytes& broken : {Bytes("ID3"), TagHeader(1000000) + Noise(50), Bytes(), Noise(127)})
        EXPECT_EQ(Read(broken).Unreadable, ErrorNumber::None);
    EXPECT_EQ(Read(WholeTag(TitleFrame) + Noise(200)).Unreadable, ErrorNumber::None);
    EXPECT_EQ(ReadFileTags(folder_.Folder(u"album"), ID3v2Parts::Everything, errors_).Unreadable,
              ErrorNumber::None);
    EXPECT_EQ(ReadFileTags(folder_ / u"none", ID3v2Parts::Everything, errors_).Unreadable,
              ErrorNumber::None);
    EXPECT_EQ(ReadFileTags(folder_.Unopenable(u"x"), ID3v2Parts::Everything, errors_).Unreadable,
              ErrorNumber::DeviceUnavailable);
    const Text closed = Make("sound");
    ASSERT_EQ(::chmod(NativePath(closed).c_str(), 0), 0);
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  const FileTags tags = ReadFileTags(closed, ID3v2Parts::Everything, errors_);
                  return static_cast<int>(tags.Unreadable);
              }),
              static_cast<int>(ErrorNumber::PermissionDenied));
}

TEST_F(TagsOfFile, OtherFramesHoldTheTenBytesBehindTheTag) {
    const Bytes audio = Noise(300);
    const FileTags tags = Read(WholeTag(TitleFrame, 6) + audio);
    EXPECT_EQ(tags.V2.OtherFrames, Nuls(6) + audio.substr(0, 10));
}

TEST_F(TagsOfFile, ATagOfAnyLengthIsReadWhole) {
    // The borders of the first read among them.
    for (const std::size_t length : {10U, 4000U, 4060U, 4066U, 4067U, 4068U, 4076U, 4077U, 4086U,
                                     4087U, 4096U, 5000U, 70000U}) {
        const Bytes picture = Frame("APIC", Noise(length));
        const Bytes audio = Noise(200);
        Bytes contents = WholeTag(picture + TitleFrame);
        const FileTags tags = Read(contents.append(audio));
        EXPECT_EQ(tags.V2.Title, "A title") << length;
        EXPECT_EQ(tags.V2.OtherFrames, picture + audio.substr(0, 10)) << length;
        EXPECT_FALSE(tags.V2Failed);
    }
}

TEST_F(TagsOfFile, ATrailerInsideTheFirstReadAndBeyondItIsTheSame) {
    for (const std::size_t audio : {0U, 1U, 3967U, 3968U, 3969U, 9000U}) {
        const FileTags tags = Read(Noise(audio) + Trailer("V1 title"));
        EXPECT_EQ(FieldText(tags.V1.Title), "V1 title") << audio;
        EXPECT_FALSE(tags.V1HasTrackByte);
    }
}

TEST_F(TagsOfFile, WithoutTagsTheRecordsSaySo) {
    const FileTags tags = Read(Noise(300));
    EXPECT_FALSE(tags.V1.Present() || tags.V2.Present());
    EXPECT_EQ(tags.V1.Genre, NoGenre);
    EXPECT_EQ(tags.V2.ID, Nuls(3));
    EXPECT_EQ(tags.V2Length, 0);
    EXPECT_FALSE(tags.V1HasTrackByte);
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(TagsOfFile, AMissingFileHasNoTagsAndNoError) {
    const FileTags tags = ReadFileTags(folder_ / u"missing.mp3", ID3v2Parts::Everything, errors_);
    EXPECT_FALSE(tags.Exists || tags.V1Failed || tags.V2Failed);
    EXPECT_EQ(tags.V1.Genre, '\0');
    EXPECT_TRUE(errors_.Empty());
    EXPECT_FALSE(ReadID3v2(folder_ / u"missing.mp3", errors_).Present());
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(TagsOfFile, AFolderIsReportedOnce) {
    const FileTags tags = ReadFileTags(folder_.Path(), ID3v2Parts::Everything, errors_);
    EXPECT_TRUE(tags.Exists && tags.V1Failed && tags.V2Failed);
    EXPECT_EQ(NumbersOf(errors_), Numbers{ErrorNumber::PathFileAccess});
}

TEST_F(TagsOfFile, ADeclaredSizeLargerThanTheFileIsInputPastEnd) {
    const Bytes file = TagHeader(501) + TitleFrame + Noise(490 - TitleFrame.size());
    ASSERT_EQ(file.size(), 500U);
    const FileTags tags = Read(file);
    EXPECT_TRUE(tags.V2Failed);
    EXPECT_TRUE(tags.V2.Present());
    EXPECT_EQ(tags.V2.Version + tags.V2.Title + tags.V2.OtherFrames, "");
    EXPECT_EQ(tags.V2Length, 0);
    EXPECT_FALSE(tags.V1Failed);
    EXPECT_EQ(NumbersOf(errors_), Numbers{ErrorNumber::InputPastEnd});
}

TEST_F(TagsOfFile, ATagThatReachesToTheEndOrATouchBeyondIsNoError) {
    const Bytes body = TitleFrame + Noise(490 - TitleFrame.size());
    for (const std::size_t size : {480U, 485U, 490U, 495U, 500U}) {
        const FileTags tags = Read(TagHeader(size) + body);
        EXPECT_FALSE(tags.V2Failed) << size;
        EXPECT_EQ(tags.V2.Title, "A title") << size;
        EXPECT_EQ(tags.V2.OtherFrames, body.substr(TitleFrame.size())) << size;
    }
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(TagsOfFile, AHugeDeclaredSizeTakesNoMemory) {
    const FileTags tags = Read("ID3\3" + Nuls(2) + "\xFF\xFF\xFF\xFF" + Noise(300));
    EXPECT_TRUE(tags.V2Failed);
    EXPECT_EQ(NumbersOf(errors_), Numbers{ErrorNumber::InputPastEnd});
}

TEST_F(TagsOfFile, AFileThatEndsInsideTheHeaderIsAnError) {
    for (std::size_t length = 3; length < 10; ++length) {
        CollectedErrors errors;
        const Text path = Make(TagHeader(0).substr(0, length));
        const ID3v2Tag tag = ReadID3v2(path, errors);
        EXPECT_TRUE(tag.Present());
        EXPECT_EQ(tag.Version, "") << length;
        EXPECT_EQ(NumbersOf(errors), Numbers{ErrorNumber::InputPastEnd}) << length;
    }
}

TEST_F(TagsOfFile, AFileThatIsOnlyAHeaderIsAnEmptyTag) {
    const ID3v2Tag tag = ReadID3v2(Make(TagHeader(0)), errors_);
    EXPECT_EQ(tag.Version, "3.0");
    EXPECT_EQ(tag.OtherFrames, "");
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(TagsOfFile, AFileOfTwoBytesHasNoTag) {
    EXPECT_FALSE(ReadID3v2(Make("ID"), errors_).Present());
    EXPECT_TRUE(errors_.Empty());
    EXPECT_TRUE(Read("ID").V1Failed);
    EXPECT_EQ(NumbersOf(errors_), Numbers{ErrorNumber::BadRecordNumber});
}

TEST_F(TagsOfFile, ReadingOnlyTheTagGivesTheSameRecord) {
    const Bytes file = WholeTag(TitleFrame + Frame("APIC", Noise(9000)), 100) + Noise(500);
    const ID3v2Tag alone = ReadID3v2(Make(file), errors_);
    const ID3v2Tag both = Read(file).V2;
    EXPECT_EQ(alone.Title, both.Title);
    EXPECT_EQ(alone.Version, both.Version);
    EXPECT_EQ(alone.OtherFrames, both.OtherFrames);
}

TEST_F(TagsOfFile, TheTagTextComesInPlaceOfTheOtherFramesWhenAskedFor) {
    for (const std::size_t length : {10U, 9000U}) {
        const Bytes frames =
            TitleFrame + TextFrame("TCOM", "composer") + Frame("APIC", Noise(length));
        const Bytes audio = Noise(500);
        const Text path = Make(WholeTag(frames) + audio);
        const FileTags tags = ReadFileTags(path, ID3v2Parts::FieldsAndText, errors_);
        EXPECT_EQ(tags.V2Text, frames + audio.substr(0, 10));
        EXPECT_EQ(tags.V2.Title, "A title");
        EXPECT_EQ(tags.V2.Composer, "composer");
        EXPECT_EQ(tags.V2.OtherFrames, "");
        EXPECT_EQ(ReadFileTags(path, ID3v2Parts::Everything, errors_).V2Text, "");
    }
}

TEST_F(TagsOfFile, ANewNameDoesNotBuildTheOtherFrames) {
    const Text path = Make(WholeTag(TitleFrame + Frame("APIC", Noise(9000))) + Noise(500));
    const FileTags tags = ReadFileTags(path, ID3v2Parts::NameFields, errors_);
    EXPECT_EQ(tags.V2.Title, "A title");
    EXPECT_EQ(tags.V2.OtherFrames, "");
}

}  // namespace
}  // namespace mdlPLM
