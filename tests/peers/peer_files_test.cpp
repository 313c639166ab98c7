// Files of other programs are read without an error, named by the rules, never changed by being
// read, and keep their music and their pictures when they are tagged.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "app/list/folder_walk.h"
#include "app/list/list_operations.h"
#include "app/tags/tag_panel.h"
#include "core/names/fix_file_name.h"
#include "core/platform/path.h"
#include "core/tags/save_tags.h"
#include "core/text/code_page.h"
#include "tests/peers/peer_files.h"
#include "tests/support/collected_errors.h"
#include "tests/support/real_mp3.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::PeerFile;
using test::PeerFiles;

bool Holds(BytesView text, BytesView part) { return text.find(part) != BytesView::npos; }

// What the system tells of a file but when it was last read.
struct Looks {
    Bytes Contents;
    timespec Modified{};
    timespec Changed{};
    unsigned Mode = 0;
    std::uint64_t Node = 0;

    explicit Looks(TextView path) : Contents(ReadFile(path)) {
        struct stat status {};
        if (::stat(NativePath(path).c_str(), &status) != 0) return;
        Modified = status.st_mtim;
        Changed = status.st_ctim;
        Mode = status.st_mode;
        Node = status.st_ino;
    }
    friend bool operator==(const Looks& a, const Looks& b) {
        const auto same = [](const timespec& x, const timespec& y) {
            return x.tv_sec == y.tv_sec && x.tv_nsec == y.tv_nsec;
        };
        return a.Contents == b.Contents && same(a.Modified, b.Modified) &&
               same(a.Changed, b.Changed) && a.Mode == b.Mode && a.Node == b.Node;
    }
};

// Every file in a folder of its own, all with the same name.
class FilesOfPeers : public testing::Test {
protected:
    void ForEach(const std::function<void(const PeerFile&, const Text& path)>& check) {
        for (std::size_t i = 0; i < PeerFiles().size(); ++i) {
            const PeerFile& file = PeerFiles()[i];
            SCOPED_TRACE(file.Name + (file.Why[0] == '\0' ? "" : Bytes(": ") + file.Why));
            const Text name =
                NumberText(static_cast<long long>(i)) + u"/" + Text(test::PeerOldName);
            check(file, folder_.File(name, file.Contents));
        }
    }
    [[nodiscard]] NamingContext Context() const {
        return {settings_, replacements_, settings_.InPattern};
    }

    const TempFolder folder_;
    Settings settings_;
    ReplacementList replacements_;
    CollectedErrors errors_;
};

TEST_F(FilesOfPeers, AreOfEveryVersionAndEncoding) {
    const auto some = [](const Bytes& words) {
        return std::any_of(PeerFiles().begin(), PeerFiles().end(),
                           [&](const PeerFile& file) { return Holds(file.Contents, words); });
    };
    for (const Bytes& start : {Bytes("ID3\x02"), Bytes("ID3\x03"), Bytes("ID3\x04"), Bytes("TAG"),
                               Bytes("APETAGEX"), Bytes("LYRICS200"), test::PeerPicture(),
                               Bytes("\x01\xFF\xFE"), Bytes("\x02\0T\0\xE4", 5)})
        EXPECT_TRUE(some(start)) << start;
    EXPECT_GE(PeerFiles().size(), 30U);
}

TEST_F(FilesOfPeers, AreNamedByTheRules) {
    ForEach([&](const PeerFile& file, const Text& path) {
        EXPECT_EQ(ToUtf8(FixFileName(path, test::PeerOutPattern, Context())), ToUtf8(file.NewName));
    });
}

TEST_F(FilesOfPeers, ShowTheSameStreamAsTheMusicAlone) {
    const Text bare = folder_.File(u"bare.mp3", EncodedMp3());
    const auto stream = [&](const Text& path) {
        TagPanel panel(settings_, replacements_);
        panel.ShowFile(path, errors_);
        return panel.Stream();
    };
    const StreamLines expected = stream(bare);
    ForEach([&](const PeerFile&, const Text& path) {
        const StreamLines lines = stream(path);
        EXPECT_EQ(lines.Version, expected.Version);
        EXPECT_EQ(lines.Layer, expected.Layer);
        EXPECT_EQ(lines.Bitrate, expected.Bitrate);
        EXPECT_EQ(lines.Frequency, expected.Frequency);
    });
    EXPECT_TRUE(errors_.Empty());
}

// Listed, selected by tag, shown, previewed and asked whether they could be saved.
TEST_F(FilesOfPeers, AreNeverChangedByBeingRead) {
    std::vector<std::pair<Text, Looks>> before;
    ForEach([&](const PeerFile&, const Text& path) { before.emplace_back(path, Looks(path)); });
    std::vector<Text> paths;
    for (FolderWalk walk(folder_.Path(), u"mp3"); !walk.Finished();) walk.Step(paths);
    ASSERT_EQ(paths.size(), PeerFiles().size());
    FileList list;
    list.Append(paths);
    (void)UpdateSizes(list, 0, list.Count());
    SelectByTag(list, TagKind::V1);
    EXPECT_GE(list.SelectedCount(), 8U);
    SelectByTag(list, TagKind::V2);
    EXPECT_GE(list.SelectedCount(), 20U);
    TagPanel panel(settings_, replacements_);
    for (const Text& path : paths) {
        panel.ShowFile(path, errors_);
        (void)FixFileName2(path, test::PeerOutPattern, panel.Boxes(), Context());
        list.SetNewName(0, FixFileName(path, test::PeerOutPattern, Context()));
        const FileTags tags = ReadFileTags(path, ID3v2Parts::Everything, errors_);
        (void)TrySaveTags(path, tags.V1, tags.V2, {TagMode::Write, TagMode::Write});
    }
    for (const auto& [path, looks] : before) EXPECT_TRUE(Looks(path) == looks) << ToUtf8(path);
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(FilesOfPeers, KeepMusicAndPicturesWhenTheyAreTagged) {
    ForEach([&](const PeerFile& file, const Text& path) {
        ASSERT_TRUE(Holds(file.Contents, file.Music));
        TagPanel panel(settings_, replacements_);
        panel.ShowFile(path, errors_);
        panel.TickID3v2(true);
        panel.Enter(TagBox::txtV2Title, u"A new title");
        EXPECT_EQ(panel.SaveID3().Outcome, SaveOutcome::Written);
        EXPECT_EQ(panel.Boxes().txtV2Title, u"A new title");
        const Bytes after = ReadFile(path);
        EXPECT_TRUE(Holds(after, file.Music));
        EXPECT_EQ(Holds(after, test::PeerPicture()), Holds(file.Contents, test::PeerPicture()));
        EXPECT_EQ(after.substr(after.size() - 128, 3) == "TAG",
                  file.Contents.substr(file.Contents.size() - 128, 3) == "TAG");
    });
    EXPECT_TRUE(errors_.Empty());
}

}  // namespace
}  // namespace mdlPLM
