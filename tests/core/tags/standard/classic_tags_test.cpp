// What the classic way of saving leaves is read right, and put right by the next save.
#include <gtest/gtest.h>

#include "core/tags/id3v2_writer.h"
#include "core/tags/save_plan.h"
#include "core/tags/standard/audio_start.h"
#include "core/text/code_page.h"
#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;
using test::TagOf;

const Bytes Picture = B("\0image/png\0\3\0\x89PNG") + Bytes(700, 'p');

Bytes TrailerOf() { return "TAG" + Bytes(125, ' '); }

// Saves the way the tag panel does: other frames are handed on as they were read.
class ClassicFile {
public:
    explicit ClassicFile(Bytes contents) : contents_(std::move(contents)) {}

    void Save(const Bytes& title, const Bytes& album, SaveModes modes) {
        ID3v2Tag tag;
        OldFile old;
        old.Size = static_cast<std::int64_t>(contents_.size());
        const BytesView all = contents_;
        old.HasV1 = all.substr(all.size() - 128, 3) == "TAG";
        old.HasV2 = all.substr(0, 3) == "ID3";
        if (old.HasV2) {
            old.V2Length = DecodeSize(all.substr(6, 4)) + 10;
            tag = ParseID3v2(all.substr(0, 10),
                             all.substr(10, static_cast<std::size_t>(old.V2Length)),
                             ID3v2Parts::Everything);
        }
        tag.Title = title;
        tag.Album = album;
        const ID3v1Tag v1 = ParseID3v1(TrailerOf());
        const SavePlan plan = mdlPLM::PlanSave(old, v1, tag, modes);
        ASSERT_NE(plan.Way, SaveWay::Refused);
        contents_ = test::Performed(contents_, plan);
    }

    [[nodiscard]] const Bytes& Contents() const { return contents_; }

private:
    Bytes contents_;
};

void ExpectRight(const Bytes& file, const Bytes& title, const Bytes& album) {
    const Tag tag = ParseTag(file);
    EXPECT_EQ(FieldText(tag, Field::Title), FromCodePage(title));
    EXPECT_EQ(FieldText(tag, Field::Album), FromCodePage(album));
    const FileLayout layout = test::LayoutOf(file);
    EXPECT_TRUE(IsFirstFrame(test::Reader(file), layout.AudioBegin, layout.AudioEnd));
    EXPECT_LE(layout.TagRoom, layout.AudioBegin);
}

// Saved once more the standard way: the sizes are plain and true, the audio is what it was.
void ExpectPutRight(const Bytes& file, const Bytes& album) {
    const FileLayout before = test::LayoutOf(file);
    const Bytes saved = test::SavedFile(file, test::Edit(Field::Title, u"\u0416"));
    const Tag tag = ParseTag(saved);
    EXPECT_EQ(FieldText(tag, Field::Title), u"\u0416");
    EXPECT_EQ(FieldText(tag, Field::Album), FromCodePage(album));
    const FileLayout after = test::LayoutOf(saved);
    EXPECT_EQ(tag.Header.Length(), after.TagRoom);
    EXPECT_EQ(saved.substr(static_cast<std::size_t>(after.AudioBegin)),
              file.substr(static_cast<std::size_t>(before.AudioBegin)));
    std::size_t at = 10;
    for (const Frame& frame : tag.Frames) {
        EXPECT_EQ(BytesView(saved).substr(at, 4), frame.Id.View());
        EXPECT_EQ(saved.substr(at + 4, 4), test::Plain(frame.Body.size()));
        at += 10 + frame.Body.size();
    }
}

constexpr SaveModes BothModes[] = {{TagMode::Leave, TagMode::Write},
                                   {TagMode::Write, TagMode::Write},
                                   {TagMode::Remove, TagMode::Write}};

TEST(ClassicTags, AreReadRightAfterAnyNumberOfSaves) {
    const Bytes starts[] = {
        test::Audio(40),
        test::Audio(40) + TrailerOf(),
        TagOf(test::Text23("TPE1", "Artist")) + test::Audio(40),
        TagOf(test::Text23("TPE1", "Artist") + test::Text23("TALB", "Album"), {3, 0, 1000, 0}) +
            test::Audio(40) + TrailerOf(),
        TagOf(test::Text23("TALB", "Album"), {3, 0, 13000, 0}) + test::Audio(40),
    };
    const Bytes titles[] = {
        "Short",         Bytes(126, 'a'),   Bytes(127, 'b'),        Bytes(128, 'c'),
        Bytes(300, 'd'), Bytes(20000, 'e'), "T\xE4g \x93quoted\x94"};
    for (std::size_t start = 0; start < std::size(starts); ++start) {
        for (const Bytes& title : titles) {
            for (const SaveModes modes : BothModes) {
                ClassicFile file(starts[start]);
                for (int saves = 1; saves <= 4; ++saves) {
                    SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(title.size()) +
                                 ", " + std::to_string(static_cast<int>(modes.V1)) + ", save " +
                                 std::to_string(saves));
                    const Bytes album = "Album " + Bytes(static_cast<std::size_t>(saves), 'x');
                    file.Save(title, album, modes);
                    ExpectRight(file.Contents(), title, album);
                    ExpectPutRight(file.Contents(), album);
                }
            }
        }
    }
}

// The classic way leaves the frames that it does not know as they are, whatever their sizes mean.
TEST(ClassicTags, KeepTheFramesOfOtherPrograms) {
    const Bytes starts[] = {
        TagOf(test::Text23("TPE2", "Band") + test::Frame23("APIC", Picture), {3, 0, 200, 0}),
        TagOf(test::Text24("TPE2", "Band") + test::Frame24("APIC", Picture), {4, 0, 200, 0}),
        TagOf(test::Frame22("TP2", B("\0Band")) +
                  test::Frame22("PIC", B("\0PNG\3\0\x89PNG") + Bytes(700, 'p')),
              {2, 0, 200, 0}),
    };
    for (const Bytes& start : starts) {
        for (const Bytes& title : {Bytes("Title"), Bytes(200, 't')}) {
            ClassicFile file(start + test::Audio(40));
            for (int saves = 1; saves <= 3; ++saves) {
                SCOPED_TRACE(std::to_string(start[3]) + ", save " + std::to_string(saves));
                file.Save(title, "Album " + std::to_string(saves),
                          {TagMode::Leave, TagMode::Write});
                const Tag tag = ParseTag(file.Contents());
                EXPECT_EQ(FieldText(tag, Field::Title), FromAscii(title));
                EXPECT_EQ(FieldText(tag, Field::AlbumArtist), u"Band");
                const std::vector<PlacedPicture> pictures = ReadPictures(tag);
                ASSERT_EQ(pictures.size(), 1U);
                EXPECT_EQ(pictures[0].Content.Data, Picture.substr(13));
                ExpectPutRight(file.Contents(), "Album " + std::to_string(saves));
            }
        }
    }
}

}  // namespace
}  // namespace mdlPLM::standard
