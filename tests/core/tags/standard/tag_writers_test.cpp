// Tags as other programs write them, of every version and encoding: read right, and after an edit
// every other program sees all else as it was.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/core/tags/standard/standard_bytes.h"
#include "tests/support/real_mp3.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tools.h"

namespace mdlPLM::standard {
namespace {

using Words = std::vector<Bytes>;

struct Title {
    Bytes Name;
    Text Value;
    bool Latin1;
};

const std::vector<Title>& Titles() {
    static const std::vector<Title> titles = {
        {"ascii", u"Plain title", true},
        {"latin", u"H\u00E5kan \u00DCber", true},
        {"cyrillic", u"\u041F\u0440\u0438\u0432\u0435\u0442", false},
        {"japanese", u"\u65E5\u672C\u8A9E\u306E\u66F2", false},
        {"emoji", u"Song \U0001F3B5", false},
        {"long", Text(200, u'l') + u" \u00E5", true},
    };
    return titles;
}

constexpr TextView NewTitle = u"\u041D\u043E\u0432\u044B\u0439";

// Makes the files of the two libraries in one start of their interpreter: a file for each line of
// "library version encoding name title".
constexpr const char* MakeScript = R"(
import shutil, struct, sys, zlib
import mutagen.id3 as id3
import eyed3, eyed3.id3
base, folder, rows = sys.argv[1:]

def chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))

picture = (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', 8, 8, 8, 2, 0, 0, 0)) +
           chunk(b'IDAT', zlib.compress((b'\0' + b'\xff\0\0' * 8) * 8)) +
           chunk(b'tEXt', b'like audio\0' + b'\xff\xfb\x90\x64\0' * 300) + chunk(b'IEND', b''))

def by_mutagen(path, version, encoding, title):
    tags = id3.ID3()
    for kind, text in ((id3.TIT2, title), (id3.TPE1, 'Peer'), (id3.TRCK, '13/20'),
                       (id3.TDRC, '1999-05-17'), (id3.TCON, 'Rock'), (id3.TPE2, ['One', 'Two'])):
        tags.add(kind(encoding=encoding, text=text))
    tags.add(id3.COMM(encoding=encoding, lang='eng', desc='', text='A comment'))
    tags.add(id3.COMM(encoding=encoding, lang='swe', desc='other', text='Another'))
    tags.add(id3.COMM(encoding=0, lang='eng', desc='iTunNORM', text=' 0000028F'))
    tags.add(id3.TXXX(encoding=encoding, desc='key', text=['one', 'two']))
    tags.add(id3.WXXX(encoding=encoding, desc='d', url='http://example.org/'))
    tags.add(id3.WOAR(url='http://example.org/artist'))
    tags.add(id3.APIC(encoding=encoding, mime='image/png', type=3, desc='Front',
                      data=picture))
    tags.add(id3.USLT(encoding=encoding, lang='eng', desc='', text='La\nla'))
    tags.add(id3.SYLT(encoding=encoding, lang='eng', format=2, type=1, desc='s', text=[('la', 5)]))
    tags.add(id3.POPM(email='me@example.org', rating=128, count=3))
    tags.add(id3.UFID(owner='http://example.org', data=b'id'))
    tags.add(id3.PRIV(owner='owner', data=bytes(range(256))))
    tags.add(id3.GEOB(encoding=encoding, mime='a/b', filename='f', desc='d', data=b'ID3\x03\0\0'))
    tags.add(id3.MCDI(data=b'\0' * 40 + b'cd'))
    tags.add(id3.PCNT(count=300))
    tags.add(id3.TLEN(encoding=encoding, text='500'))
    if version == 4:
        tags.add(id3.RVA2(desc='track', channel=1, gain=-3.5, peak=0.5))
    else:
        tags.update_to_v23()
        tags.add(id3.RVAD(adjustments=[1, 2, 3, 4]))
    tags.save(path, v2_version=version, v23_sep=None, padding=lambda info: 100)

def by_eyed3(path, version, encoding, title):
    audio = eyed3.load(path)
    audio.initTag((2, version, 0))
    tag = audio.tag
    tag.title, tag.artist, tag.genre, tag.track_num = title, 'Peer', 'Rock', (13, 20)
    tag.recording_date = '1999'
    tag.comments.set('A comment')
    tag.images.set(3, picture, 'image/png', 'Front')
    tag.user_text_frames.set('value', 'key')
    tag.save(version=(2, version, 0), encoding=('latin1', 'utf16', 'utf-16-be', 'utf8')[encoding])

makers = {'mutagen': by_mutagen, 'eyed3': by_eyed3}
for row in open(rows, encoding='utf-8'):
    library, version, encoding, name, title = row.rstrip('\n').split('\t')
    shutil.copy(base, folder + name)
    makers[library](folder + name, int(version), int(encoding), title)
)";

// Says of each file what differs beside the title, for each of the two libraries.
constexpr const char* JudgeScript = R"(
import logging, os, sys
import mutagen.id3 as id3
import mutagen.mp3
import eyed3
before, after, title = sys.argv[1:]
logging.disable(logging.CRITICAL)

def frames(path):
    tags = id3.ID3(path, translate=False)
    found = {}
    for key, frame in tags.items():
        found[key] = (type(frame).__name__, repr(frame), getattr(frame, 'encoding', None))
    return found, sorted(tags.unknown_frames), tags.version

def seen(path):
    tag = eyed3.load(path).tag
    return (tag.artist, tag.album, tuple(tag.track_num), str(tag.genre), str(tag.recording_date),
            [(c.description, c.text) for c in tag.comments],
            [(i.mime_type, i.picture_type, i.description, i.image_data) for i in tag.images],
            [(t.description, t.text) for t in tag.user_text_frames])

def stream(path):
    info = mutagen.mp3.MP3(path).info
    return (info.length, info.bitrate, info.bitrate_mode, info.sample_rate, info.encoder_info)

for name in sorted(os.listdir(before)):
    old, new = before + name, after + name
    try:
        old_frames, old_unknown, version = frames(old)
        has_title = old_frames.pop('TIT2', None)
    except id3.ID3NoHeaderError:
        old_frames, old_unknown, version = {}, [], None
    new_frames, new_unknown, new_version = frames(new)
    found = new_frames.pop('TIT2', None)
    if found is None or id3.ID3(new)['TIT2'].text != [title]:
        print(name, 'mutagen: title', found)
    if version and version >= (2, 3, 0) and (old_frames != new_frames or version != new_version):
        print(name, 'mutagen: frames', set(old_frames.items()) ^ set(new_frames.items()))
    if old_unknown != new_unknown:
        print(name, 'mutagen: unknown frames')
    if stream(old) != stream(new):
        print(name, 'mutagen: stream', stream(old), stream(new))
    if eyed3.load(new).tag.title != title:
        print(name, 'eyeD3: title', eyed3.load(new).tag.title)
    if version and seen(old) != seen(new):
        print(name, 'eyeD3: other fields', seen(old), seen(new))
print('judged', len(os.listdir(before)))
)";

struct Written {
    Bytes Name;
    Bytes Contents;
    Text Title;
};

// All files, made once.
class Writers {
public:
    Writers() {
        WriteFile(folder_ / u"base.mp3", EncodedMp3());
        MakeByLibraries();
        for (const Title& title : Titles()) {
            MakeByConverter(title);
            MakeByEncoder(title);
        }
        MakeByTagger();
    }

    [[nodiscard]] const std::vector<Written>& Files() const { return files_; }

private:
    [[nodiscard]] Bytes Native(TextView name) const { return NativePath(folder_ / name); }

    void Add(const Bytes& name, const Title& title, const Text& file) {
        files_.push_back({name + ", " + title.Name, ReadFile(folder_ / file), title.Value});
    }

    void MakeByLibraries() {
        struct Row {
            Bytes Library;
            int Version;
            int Encoding;
        };
        std::vector<Row> rows;
        for (const Bytes& library : {Bytes("mutagen"), Bytes("eyed3")}) {
            for (const int encoding : {0, 1}) rows.push_back({library, 3, encoding});
            for (const int encoding : {0, 1, 2, 3}) rows.push_back({library, 4, encoding});
        }
        Bytes lines;
        std::vector<std::pair<Bytes, const Title*>> made;
        for (const Row& row : rows) {
            for (const Title& title : Titles()) {
                if (row.Encoding == 0 && !title.Latin1) continue;
                const Bytes name = row.Library + " 2." + std::to_string(row.Version) +
                                   ", encoding " + std::to_string(row.Encoding);
                made.emplace_back(name, &title);
                lines += row.Library + "\t" + std::to_string(row.Version) + "\t" +
                         std::to_string(row.Encoding) + "\tmade" + std::to_string(made.size()) +
                         ".mp3\t" + ToUtf8(title.Value) + "\n";
            }
        }
        WriteFile(folder_ / u"make.py", MakeScript);
        WriteFile(folder_ / u"rows.txt", lines);
        (void)mdlPLM::test::OutputOf({"/usr/bin/python3", Native(u"make.py"), Native(u"base.mp3"),
                                      NativePath(folder_.Path()), Native(u"rows.txt")});
        for (std::size_t i = 0; i < made.size(); ++i)
            Add(made[i].first, *made[i].second,
                u"made" + NumberText(static_cast<long long>(i) + 1) + u".mp3");
    }

    void MakeByConverter(const Title& title) {
        for (const Bytes version : {"3", "4"}) {
            (void)mdlPLM::test::OutputOf({"ffmpeg",
                                          "-v",
                                          "error",
                                          "-y",
                                          "-i",
                                          Native(u"base.mp3"),
                                          "-c",
                                          "copy",
                                          "-id3v2_version",
                                          version,
                                          "-metadata",
                                          "title=" + ToUtf8(title.Value),
                                          "-metadata",
                                          "artist=Peer",
                                          "-metadata",
                                          "track=13/20",
                                          "-metadata",
                                          "date=1999",
                                          "-metadata",
                                          "genre=Rock",
                                          "-metadata",
                                          "comment=A comment",
                                          Native(u"converted.mp3")});
            Add("ffmpeg 2." + version, title, u"converted.mp3");
        }
    }

    void MakeByEncoder(const Title& title) {
        for (const Bytes encoding : {"latin1", "utf16"}) {
            if (encoding == "latin1" && !title.Latin1) continue;
            (void)mdlPLM::test::OutputOf({"lame",
                                          "--quiet",
                                          "--mp3input",
                                          "-V",
                                          "5",
                                          "--id3v2-only",
                                          "--id3v2-" + encoding,
                                          "--tt",
                                          ToUtf8(title.Value),
                                          "--ta",
                                          "Peer",
                                          "--tn",
                                          "13/20",
                                          "--ty",
                                          "1999",
                                          "--tg",
                                          "17",
                                          "--tc",
                                          "A comment",
                                          Native(u"base.mp3"),
                                          Native(u"encoded.mp3")});
            Add("lame, " + encoding, title, u"encoded.mp3");
        }
    }

    void MakeByTagger() {
        const Title& title = Titles().front();
        WriteFile(folder_ / u"tagged.mp3", EncodedMp3());
        (void)mdlPLM::test::OutputOf({"id3v2", "-2", "-t", ToUtf8(title.Value), "-a", "Peer", "-T",
                                      "13/20", "-y", "1999", "-g", "17", "-c", "A comment",
                                      Native(u"tagged.mp3")});
        Add("id3v2", title, u"tagged.mp3");
    }

    TempFolder folder_;
    std::vector<Written> files_;
};

const std::vector<Written>& Files() {
    static const Writers writers;
    return writers.Files();
}

TEST(TagWriters, AreAllReadRight) {
    EXPECT_GE(Files().size(), 78U);
    for (const Written& file : Files()) {
        SCOPED_TRACE(file.Name);
        const Tag tag = ParseTag(file.Contents);
        EXPECT_EQ(FieldText(tag, Field::Title), file.Title);
        EXPECT_EQ(FieldText(tag, Field::Artist), u"Peer");
        EXPECT_EQ(FieldText(tag, Field::Track), u"13/20");
        EXPECT_EQ(FieldText(tag, Field::Genre), u"Rock");
        // The converter has a text of the user's own for it.
        const bool comment = file.Name.substr(0, 6) != "ffmpeg";
        EXPECT_EQ(FieldText(tag, Field::Comments), comment ? u"A comment" : u"");
        EXPECT_EQ(FieldForName(tag, Field::Title), file.Title);
        EXPECT_EQ(FieldForName(tag, Field::Track), u"13");
        EXPECT_EQ(FieldForName(tag, Field::Year), u"1999");
        EXPECT_TRUE(tag.Unread.empty());
        const FileLayout layout = test::LayoutOf(file.Contents);
        EXPECT_EQ(layout.TagRoom, tag.Header.Length());
        EXPECT_EQ(layout.AudioBegin, layout.TagRoom);
    }
}

TEST(TagWriters, PicturesAndExactDatesAreRead) {
    std::size_t pictures = 0;
    for (const Written& file : Files()) {
        const Tag tag = ParseTag(file.Contents);
        for (const PlacedPicture& picture : ReadPictures(tag)) {
            ++pictures;
            EXPECT_EQ(picture.Content.Mime, "image/png") << file.Name;
            EXPECT_EQ(picture.Content.Description, u"Front") << file.Name;
            EXPECT_GT(picture.Content.Data.size(), 1500U) << file.Name;
            EXPECT_EQ(picture.Content.Data.substr(0, 4), "\x89PNG") << file.Name;
            EXPECT_EQ(picture.Content.Data.substr(picture.Content.Data.size() - 8, 4), "IEND");
        }
        if (file.Name.substr(0, 7) != "mutagen") continue;
        EXPECT_EQ(FieldText(tag, Field::Year), u"1999-05-17") << file.Name;
        EXPECT_EQ(FieldText(tag, Field::AlbumArtist), u"One; Two") << file.Name;
    }
    EXPECT_GE(pictures, 50U);
}

TEST(TagWriters, SeeAllElseAsItWasAfterAnEdit) {
    const TempFolder before;
    const TempFolder after;
    for (const Written& file : Files()) {
        const Text name = FromUtf8(file.Name) + u".mp3";
        WriteFile(before / name, file.Contents);
        WriteFile(after / name, test::SavedFile(file.Contents, test::Edit(Field::Title, NewTitle)));
    }
    const TempFolder scripts;
    WriteFile(scripts / u"judge.py", JudgeScript);
    EXPECT_EQ(mdlPLM::test::OutputOf({"/usr/bin/python3", NativePath(scripts / u"judge.py"),
                                      NativePath(before.Path()), NativePath(after.Path()),
                                      ToUtf8(NewTitle)}),
              "judged " + std::to_string(Files().size()) + "\n");
}

// Identifier, flags and content of every frame but the title's.
Bytes OtherFrames(const Bytes& file) {
    Bytes others;
    const Tag tag = ParseTag(file);
    for (const Frame& frame : tag.Frames) {
        if (frame.Id == FrameId("TIT2")) continue;
        others.append(frame.Id.View()).append(frame.Flags.data(), frame.Flags.size());
        others.append(frame.Body).append("\n");
    }
    return others;
}

TEST(TagWriters, KeepEveryOtherFrameByteForByte) {
    for (const Written& file : Files()) {
        const Bytes edited = test::SavedFile(file.Contents, test::Edit(Field::Title, NewTitle));
        EXPECT_NE(edited, file.Contents);
        EXPECT_EQ(OtherFrames(edited), OtherFrames(file.Contents)) << file.Name;
    }
}

// What the converter says of a file, but for its title and its name.
Bytes SeenByConverter(const Text& path) {
    const Bytes entries = "format=duration:format_tags:stream=codec_name,duration_ts:stream_tags";
    return mdlPLM::test::OutputOf(
        {"ffprobe", "-v", "error", "-show_entries", entries, "-of", "json", NativePath(path)});
}

TEST(TagWriters, OfTheConverterToo) {
    const TempFolder folder;
    for (const Written& file : Files()) {
        if (file.Title != Titles()[3].Value) continue;
        SCOPED_TRACE(file.Name);
        const Bytes edited = test::SavedFile(file.Contents, test::Edit(Field::Title, NewTitle));
        const Bytes old = SeenByConverter(folder.File(u"a.mp3", file.Contents));
        const Bytes now = SeenByConverter(folder.File(u"b.mp3", edited));
        const Bytes oldTitle = "\"title\": \"" + ToUtf8(file.Title) + "\"";
        const std::size_t at = old.find(oldTitle);
        ASSERT_NE(at, Bytes::npos) << old;
        Bytes expected = old;
        expected.replace(at, oldTitle.size(), "\"title\": \"" + ToUtf8(NewTitle) + "\"");
        EXPECT_EQ(now, expected);
        if (file.Name.substr(0, 4) != "lame") continue;
        EXPECT_EQ(mdlPLM::test::DecodedSamples(folder / u"b.mp3"),
                  mdlPLM::test::DecodedSamples(folder / u"a.mp3"));
    }
}

TEST(TagWriters, FilesDoNotGrowByBeingSaved) {
    for (const Written& file : Files()) {
        SCOPED_TRACE(file.Name);
        Bytes contents = test::SavedFile(file.Contents, test::Edit(Field::Title, u"Save 0"));
        const std::size_t size = contents.size();
        for (int i = 1; i <= 5; ++i) {
            const Text title = u"Save " + NumberText(static_cast<long long>(i) * 1000);
            contents = test::SavedFile(contents, test::Edit(Field::Title, title));
            EXPECT_EQ(contents.size(), size);
            EXPECT_EQ(test::SavedFile(contents, test::Edit(Field::Title, title)), contents);
        }
    }
}

}  // namespace
}  // namespace mdlPLM::standard
