// Files of other programs are read without an error, named by the rules, never changed by being
// read, and keep their music and their pictures when they are tagged.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

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
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tools.h"

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

// --- tags that are hard to walk, seen by others ---

// One line for each file: its texts, and what it holds beside them by its length and checksum.
constexpr const char* TellScript = R"(
import hashlib, sys
import mutagen.id3 as id3
for path in sys.argv[1:]:
    tags = id3.ID3(path)
    told = []
    for kind in ('TIT2', 'TPE1', 'TALB', 'TDRC', 'APIC', 'PRIV', 'GEOB'):
        for frame in tags.getall(kind):
            data = getattr(frame, 'data', None)
            told.append(kind + '=' + (str(frame) if data is None else
                                      str(len(data)) + ',' + hashlib.md5(data).hexdigest()))
    print('|'.join(told).encode('unicode_escape').decode())
)";

// A picture frame for each seed from `first` on, one behind the other with its length before it.
constexpr const char* PictureScript = R"(
import io, random, sys
import mutagen.id3 as id3
base, out, count = sys.argv[1], sys.argv[2], int(sys.argv[3])
with open(out, 'wb') as file:
    for seed in range(count):
        random.seed(seed)
        body = random.randbytes(random.randrange(120, 40000)).replace(b'\xff', b'\xff\0')
        tags = id3.ID3()
        tags.add(id3.APIC(encoding=0, mime='image/jpeg', type=3, desc='',
                          data=b'\xff\xd8\xff\xe0\0\x10JFIF\0' + body + b'\xff\xd9'))
        tag = io.BytesIO()
        tags.save(tag, v2_version=3, v1=0, padding=lambda info: 0)
        frame = tag.getvalue()[10:]
        file.write(len(frame).to_bytes(4, 'big') + frame)
)";

std::vector<Bytes> Lines(const Bytes& text) {
    std::vector<Bytes> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

class HardTagsOfPeers : public FilesOfPeers {
protected:
    [[nodiscard]] std::vector<Bytes> Told(const std::vector<Text>& paths) const {
        std::vector<Bytes> command{"/usr/bin/python3", "-c", TellScript};
        for (const Text& path : paths) command.push_back(NativePath(path));
        std::vector<Bytes> lines = Lines(test::OutputOf(command));
        if (lines.size() != paths.size()) throw std::runtime_error("not every file was told of");
        return lines;
    }

    void Retitle(const Text& path, TextView title) {
        TagPanel panel(settings_, replacements_);
        panel.ShowFile(path, errors_);
        panel.Enter(TagBox::txtV2Title, title);
        EXPECT_EQ(panel.SaveID3().Outcome, SaveOutcome::Written);
    }

    [[nodiscard]] std::vector<Text> HardFiles(const std::vector<test::HardTag>& tags) const {
        std::vector<Text> paths;
        for (const test::HardTag& tag : tags)
            paths.push_back(folder_.File(NumberText(static_cast<long long>(paths.size())) + u".mp3",
                                         tag.Whole + EncodedMp3()));
        return paths;
    }
};

TEST_F(HardTagsOfPeers, ASaveLeavesAllToOtherProgramsThatTheyFoundBefore) {
    std::vector<test::HardTag> tags = test::HardTags();
    // Of ID3v2.4 the sizes are misread behind a header of ID3v2.3, with or without the rest.
    tags.erase(std::remove_if(tags.begin(), tags.end(),
                              [](const auto& tag) { return tag.Whole[3] == '\4'; }),
               tags.end());
    const std::vector<Text> paths = HardFiles(tags);
    std::vector<Bytes> expected = Told(paths);
    for (std::size_t i = 0; i < tags.size(); ++i) {
        // The library does not read these two; they hold what the one before them holds.
        const Bytes what = tags[i].What;
        if (what == "unsynchronised, sizes count that" || what == "both")
            expected[i] = expected[i - 1];
        ASSERT_EQ(expected[i].find("TIT2=Old title|TPE1=Old artist|TALB=a\\xff|TDRC=1999"), 0U)
            << tags[i].What << ": " << expected[i];
    }
    for (Bytes& line : expected) line.replace(0, 14, "TIT2=New title");
    for (const Text& path : paths) Retitle(path, u"New title");
    EXPECT_EQ(Told(paths), expected);
    for (const Text& path : paths) {
        const Bytes probed = test::OutputOf({"ffprobe", "-v", "error", "-show_entries",
                                             "format_tags=title,artist,date", NativePath(path)});
        EXPECT_TRUE(Holds(probed, "title=New title\n")) << probed;
        EXPECT_TRUE(Holds(probed, "artist=Old artist\n")) << probed;
    }
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(HardTagsOfPeers, CoversInFrontOfTheTextsHideNothing) {
    constexpr std::size_t Count = 200;
    const Text framesPath = folder_ / u"frames";
    (void)test::OutputOf({"/usr/bin/python3", "-c", PictureScript, "", NativePath(framesPath),
                          std::to_string(Count)});
    const Bytes frames = ReadFile(framesPath);
    const Bytes artist = test::Frame("TPE1", "\1\xFF\xFE" + Bytes("P\0e\0", 4));
    std::vector<Text> paths;
    for (std::size_t at = 0; at < frames.size();) {
        const auto length = static_cast<std::size_t>(DecodePlainSize(frames.substr(at, 4)));
        const Bytes tag = test::WholeTag(
            test::TextFrame("TIT2", "Old") + frames.substr(at + 4, length) + artist, 100);
        paths.push_back(folder_.File(NumberText(static_cast<long long>(paths.size())) + u".mp3",
                                     tag + EncodedMp3()));
        at += 4 + length;
    }
    ASSERT_EQ(paths.size(), Count);
    std::vector<Bytes> expected = Told(paths);
    for (Bytes& line : expected) {
        ASSERT_EQ(line.find("TIT2=Old|TPE1=Pe|APIC="), 0U) << line;
        line.replace(0, 8, "TIT2=New");
    }
    for (const Text& path : paths) Retitle(path, u"New");
    EXPECT_EQ(Told(paths), expected);
    settings_.bRemHiddenID3 = true;
    for (const Text& path : paths) Retitle(path, u"Newer");
    for (const Bytes& line : Told(paths)) EXPECT_EQ(line, "TIT2=Newer|TPE1=Pe");
}

}  // namespace
}  // namespace mdlPLM
