// Files of a real encoder, tagged here, read and decoded by other programs.
#include <gtest/gtest.h>

#include "core/platform/path.h"
#include "core/tags/file_tags.h"
#include "core/tags/genres.h"
#include "core/tags/save_tags.h"
#include "tests/support/error_numbers.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tools.h"

namespace mdlPLM {
namespace {

using test::OutputOf;

constexpr auto Remove = TagMode::Remove;
constexpr auto Leave = TagMode::Leave;
constexpr auto Write = TagMode::Write;

ID3v1Tag SampleV1() {
    ID3v1Tag tag;
    LayOutID3v1(tag, {u"Brief title", u"Some artist", u"An album", u"1987", u"A remark"}, false);
    tag.Track = 7;
    tag.Genre = static_cast<char>(GetGenreIndex("Rock"));
    return tag;
}

ID3v2Tag SampleV2() {
    ID3v2Tag tag;
    tag.Title = Bytes(126, 't');
    tag.Artist = "The \xE9lite";
    tag.Album = "Long album";
    tag.Year = "1987";
    tag.Track = "7/12";
    tag.Genre = "Rock";
    tag.Comments = Bytes(122, 'c');
    tag.Composer = "Com Poser";
    tag.OrigArtist = "First One";
    tag.Copyright = "1987 Label";
    tag.Encoder = "an encoder";
    tag.URL = "http://example.org/" + Bytes(106, 'u');
    return tag;
}

bool Has(const Bytes& text, const Bytes& part) { return text.find(part) != Bytes::npos; }

class RealFile : public testing::Test {
protected:
    SaveResult Save(SaveModes modes) { return SaveTags(path_, SampleV1(), SampleV2(), modes); }

    TempFolder folder_;
    Text path_ = folder_.File(u"song.mp3", EncodedMp3());
    Bytes native_ = NativePath(path_);
};

TEST_F(RealFile, BothTagsAreReadByAPlainTagLister) {
    ASSERT_TRUE(Save({Write, Write}));
    const Bytes listed = OutputOf({"id3v2", "-l", native_});
    for (const Bytes& part :
         {Bytes("Title  : Brief title"), Bytes("Artist: Some artist"), Bytes("Album  : An album"),
          Bytes("Year: 1987"), Bytes("Genre: Rock (17)"), Bytes("Comment: A remark"),
          Bytes("Track: 7"), "TIT2 (Title/songname/content description): " + Bytes(126, 't'),
          Bytes("TALB (Album/Movie/Show title): Long album"), Bytes("TYER (Year): 1987"),
          Bytes("TRCK (Track number/Position in set): 7/12"),
          Bytes("TENC (Encoded by): an encoder"), "COMM (Comments): ()[eng]: " + Bytes(122, 'c'),
          Bytes("TCOM (Composer): Com Poser"), Bytes("TCOP (Copyright message): 1987 Label"),
          "WXXX (User defined URL link): (): http://example.org/" + Bytes(106, 'u')})
        EXPECT_TRUE(Has(listed, part)) << part << "\nin\n" << listed;
}

TEST_F(RealFile, TheTagIsReadByAMediaProbe) {
    ASSERT_TRUE(Save({Leave, Write}));
    const Bytes shown = OutputOf({"ffprobe", "-v", "error", "-show_format", native_});
    for (const Bytes& part :
         {"TAG:title=" + Bytes(126, 't'), Bytes("TAG:artist=The \xC3\xA9lite"),
          Bytes("TAG:album=Long album"), Bytes("TAG:track=7/12"), Bytes("TAG:genre=Rock"),
          "TAG:comment=" + Bytes(122, 'c'), Bytes("TAG:composer=Com Poser"),
          Bytes("TAG:copyright=1987 Label"), Bytes("TAG:encoded_by=an encoder")})
        EXPECT_TRUE(Has(shown, part)) << part << "\nin\n" << shown;
}

TEST_F(RealFile, TheTagIsReadByATagEditor) {
    ASSERT_TRUE(Save({Write, Write}));
    const Bytes shown = OutputOf({"eyeD3", "--no-color", "-2", native_});
    for (const Bytes& part : {Bytes("title: tttt"), Bytes("artist: The \xC3\xA9lite"),
                              Bytes("album: Long album"), Bytes("track: 7/12"),
                              Bytes("genre: Rock"), Bytes("Comment: [Description: ] [Lang: eng]")})
        EXPECT_TRUE(Has(shown, part)) << part << "\nin\n" << shown;
    const Bytes first = OutputOf({"eyeD3", "--no-color", "-1", native_});
    for (const Bytes& part : {Bytes("title: Brief title"), Bytes("artist: Some artist"),
                              Bytes("track: 7"), Bytes("genre: Rock")})
        EXPECT_TRUE(Has(first, part)) << part << "\nin\n" << first;
}

TEST_F(RealFile, AFirstSaveDoesNotTouchTheMusic) {
    const Bytes before = test::DecodedSamples(path_);
    ASSERT_TRUE(Save({Write, Write}));
    EXPECT_EQ(test::DecodedSamples(path_), before);
}

TEST_F(RealFile, RemovingOnlyTheTrailerDoesNotTouchTheMusic) {
    (void)OutputOf({"id3v2", "-t", "A title", "-a", "An artist", native_});
    const Bytes before = test::DecodedSamples(path_);
    ASSERT_TRUE(Save({Remove, Leave}));
    EXPECT_EQ(test::DecodedSamples(path_), before);
    EXPECT_FALSE(Has(OutputOf({"id3v2", "-l", native_}), "id3v1 tag info"));
    EXPECT_TRUE(Has(OutputOf({"id3v2", "-l", native_}), "A title"));
}

TEST_F(RealFile, RemovingATagOfTrueLengthDoesNotTouchTheMusic) {
    (void)OutputOf({"id3v2", "-2", "-t", "A title", "-a", "An artist", native_});
    ASSERT_NE(ReadFile(path_), EncodedMp3());
    ASSERT_TRUE(Save({Leave, Remove}));
    EXPECT_TRUE(ReadFile(path_) == EncodedMp3());
}

TEST_F(RealFile, TagsOfOtherProgramsAreRead) {
    (void)OutputOf({"id3v2", "-t", "A title", "-a", "An artist", "-A", "An album", "-y", "1999",
                    "-g", "17", "-T", "3/9", "-c", "desc:A remark:eng", native_});
    CollectedErrors errors;
    const FileTags tags = ReadFileTags(path_, ID3v2Parts::Everything, errors);
    EXPECT_EQ(tags.V2.Title, "A title");
    EXPECT_EQ(tags.V2.Artist, "An artist");
    EXPECT_EQ(tags.V2.Album, "An album");
    EXPECT_EQ(tags.V2.Year, "1999");
    EXPECT_EQ(tags.V2.Genre, "Rock");
    EXPECT_EQ(tags.V2.Track, "3/9");
    EXPECT_EQ(FieldText(tags.V1.Title), "A title");
    EXPECT_EQ(tags.V1.Track, 3);
    EXPECT_EQ(tags.V1.Genre, 17);
    EXPECT_TRUE(errors.Empty());
}

}  // namespace
}  // namespace mdlPLM
