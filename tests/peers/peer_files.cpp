#include "tests/peers/peer_files.h"

#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tools.h"

namespace mdlPLM::test {

namespace {

using Words = std::vector<Bytes>;

const Bytes Umlaut = "T\xC3\xA4g";  // as programs are told it; a byte 0xE4 in the code page

// --- what other programs make ---

struct Row {
    Bytes Name;
    Words Options;
    Text NewName;
    const char* Why;
};

constexpr auto FromName = u"Old - Name ( ).mp3";
constexpr auto FromNameTagged = u"Old - Name ( Unknown).mp3";
constexpr auto NoGenre = u"03 - Peer - T\u00E4g ( Unknown).mp3";

class Maker {
public:
    Maker() { MakePicture(); }

    std::vector<PeerFile> Take() { return std::move(files_); }
    [[nodiscard]] Bytes Picture() const { return ReadFile(folder_ / u"cover.png"); }

    void ByEncoder(const Row& row) {
        const Words command{"lame", "--quiet",         "-t", "-r", "-s", "44.1", "-m",
                            "m",    "--little-endian", "-b", "64"};
        if (music_.empty()) music_ = Made(command, {}, {Native(u"tone.raw"), Target()});
        Add(row, Made(command, row.Options, {Native(u"tone.raw"), Target()}), music_);
    }

    // Streams are copied; "+cover" among the options stands for the picture.
    void ByConverter(const Row& row) {
        Add(row, Made({"ffmpeg", "-v", "error", "-y", "-i", Base()}, row.Options, {Target()}),
            EncodedMp3());
    }

    // Editors that change a file where it is.
    void ByEditor(const Bytes& program, const Row& row, const Bytes& from) {
        WriteFile(folder_ / u"made.mp3", from);
        Add(row, Made({program}, row.Options, {Target()}), EncodedMp3());
    }

    // Several files by one start of a library's interpreter: line by line the files of `rows`.
    void ByLibrary(const Bytes& script, const std::vector<Row>& rows) {
        WriteFile(folder_ / u"make.py", script);
        (void)OutputOf(
            {"/usr/bin/python3", Native(u"make.py"), Base(), NativePath(folder_.Path())});
        for (const Row& row : rows) Add(row, ReadFile(folder_ / FromUtf8(row.Name)), EncodedMp3());
    }

    void ByHand(const Bytes& name, const Bytes& contents, const Text& newName, const char* why) {
        Add({name, {}, newName, why}, contents, EncodedMp3());
    }

    [[nodiscard]] Bytes Cover() const { return Native(u"cover.png"); }

private:
    void MakePicture() {
        (void)OutputOf({"ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", "color=red:s=8x8",
                        "-frames:v", "1", Cover()});
        WriteFile(folder_ / u"base.mp3", EncodedMp3());
        Bytes samples;
        for (int i = 0; i < 22050; ++i) samples.append(i / 50 % 2 == 0 ? "\0\x20" : "\0\xE0", 2);
        WriteFile(folder_ / u"tone.raw", samples);
    }

    [[nodiscard]] Bytes Made(Words command, const Words& options, const Words& ends) const {
        command.insert(command.end(), options.begin(), options.end());
        command.insert(command.end(), ends.begin(), ends.end());
        (void)OutputOf(command);
        return ReadFile(folder_ / u"made.mp3");
    }

    void Add(const Row& row, const Bytes& contents, const Bytes& music) {
        files_.push_back({row.Name, contents, music, row.NewName, row.Why});
    }

    [[nodiscard]] Bytes Native(TextView name) const { return NativePath(folder_ / name); }
    [[nodiscard]] Bytes Base() const { return Native(u"base.mp3"); }
    [[nodiscard]] Bytes Target() const { return Native(u"made.mp3"); }

    TempFolder folder_;
    Bytes music_;  // of the encoder's files
    std::vector<PeerFile> files_;
};

void AddEncoderFiles(Maker& maker) {
    const auto both = [](Words first, const Words& rest) {
        first.insert(first.end(), rest.begin(), rest.end());
        return first;
    };
    const Words texts{"--ta", "Peer", "--tl", "Album", "--ty", "1999"};
    maker.ByEncoder({"encoder, ID3v1.1",
                     both({"--id3v1-only", "--tt", "Plain", "--tg", "17", "--tn", "3"}, texts),
                     u"03 - Peer - Plain (1999 Rock).mp3", ""});
    maker.ByEncoder({"encoder, ID3v1.0",
                     both({"--id3v1-only", "--tt", "Plain", "--tc", Bytes(30, 'c')}, texts),
                     u"Peer - Plain (1999 Unknown).mp3", "no track, no genre"});
    maker.ByEncoder({"encoder, ID3v2.3, Latin-1, padded",
                     both({"--id3v2-only", "--id3v2-latin1", "--pad-id3v2-size", "500", "--tt",
                           Umlaut, "--tn", "3"},
                          texts),
                     u"03 - Peer - T\u00E4g (1999 Unknown).mp3", ""});
    maker.ByEncoder({"encoder, ID3v2.3, UTF-16",
                     both({"--id3v2-only", "--id3v2-utf16", "--tt", Umlaut}, texts), FromNameTagged,
                     "texts in UTF-16 end in a NUL here"});
    maker.ByEncoder(
        {"encoder, ID3v2.3 and picture",
         both({"--id3v2-only", "--id3v2-latin1", "--ti", maker.Cover(), "--tt", Umlaut}, texts),
         u"Peer - T\u00E4g (1999 Unknown).mp3", ""});
}

void AddConverterFiles(Maker& maker) {
    const Words cover{"-i", maker.Cover(), "-map", "0", "-map", "1"};
    for (const Bytes version : {"3", "4"}) {
        const Words tags{
            "-c",        "copy",        "-id3v2_version", version,   "-metadata", "title=" + Umlaut,
            "-metadata", "artist=Peer", "-metadata",      "track=3", "-metadata", "date=1999"};
        maker.ByConverter(
            {"converter, ID3v2." + version, tags, FromNameTagged, "its texts end in a NUL"});
        Words more(cover);
        more.insert(more.end(), tags.begin(), tags.end());
        more.insert(more.end(), {"-write_id3v1", "1"});
        maker.ByConverter({"converter, both tags and picture, ID3v2." + version, more,
                           u"03 - Peer - T\u00E3\u00A4g (1999 Unknown).mp3",
                           "the trailer's texts, which the converter writes in UTF-8"});
    }
}

void AddEditorFiles(Maker& maker) {
    const Bytes& base = EncodedMp3();
    const auto edit = [&](const Bytes& version, const Bytes& encoding, const Text& name,
                          const char* why) {
        maker.ByEditor("eyeD3",
                       {"editor, ID3v2." + version + ", " + encoding + ", picture",
                        {"-Q", "--no-color", "--no-config", "--to-v2." + version, "--encoding",
                         encoding, "-a", "Peer", "-t", Umlaut, "-n", "3", "-G", "Rock",
                         "--add-image", maker.Cover() + ":FRONT_COVER"},
                        name,
                        why},
                       base);
    };
    edit("3", "latin1", NoGenre, "a genre as plain text is not taken over");
    edit("4", "latin1", NoGenre, "");
    edit("3", "utf16", FromNameTagged, "the last byte of a text is a NUL");
    edit("4", "utf16", FromNameTagged, "");
    edit("4", "utf16-be", u"03 - R - G ( Unknown).mp3", "what stands behind the last NUL");
    edit("4", "utf8", u"03 - Peer - T\u00E3\u00A4g ( Unknown).mp3", "UTF-8 read in the code page");
    maker.ByEditor("eyeD3",
                   {"editor, ID3v1.1",
                    {"-Q", "--no-color", "--no-config", "-1", "--to-v1.1", "-a", "Peer", "-t",
                     Umlaut, "-n", "3"},
                    u"03 - Peer - T\u00E4g ( Other).mp3",
                    "the editor's own genre"},
                   base);
    maker.ByEditor("id3v2",
                   {"plain tagger, ID3v2.3, padded",
                    {"-2", "-a", "Peer", "-t", Umlaut, "-T", "3/9", "-y", "1999", "-g", "17"},
                    u"3 9 - Peer - T\u00E4g (1999 Rock).mp3",
                    "the slash of a total is no character of a name"},
                   base);
}

constexpr const char* Script = R"(
import shutil, sys
import mutagen.id3 as id3
from mutagen.apev2 import APEv2
base, folder = sys.argv[1:]

def tagged(name, version, encoding, v1, padding):
    path = folder + name
    shutil.copy(base, path)
    tags = id3.ID3()
    for kind, text in ((id3.TIT2, 'T\u00e4g'), (id3.TPE1, 'Peer'), (id3.TRCK, '3'),
                       (id3.TDRC, '1999'), (id3.TCON, 'Rock')):
        tags.add(kind(encoding=encoding, text=text))
    if version == 3:
        tags.update_to_v23()
    tags.save(path, v2_version=version, v1=v1, padding=lambda info: padding)

tagged('library, ID3v2.3, Latin-1, ID3v1', 3, 0, 2, 0)
tagged('library, ID3v2.3, UTF-16, padded', 3, 1, 0, 13000)
tagged('library, ID3v2.4, UTF-16BE', 4, 2, 0, 1)
tagged('library, ID3v2.4, UTF-8, ID3v1', 4, 3, 2, 100)
ape = APEv2()
ape['Title'] = 'Ape'
ape['Artist'] = 'Ape'
shutil.copy(base, folder + 'library, APE')
ape.save(folder + 'library, APE')
tagged('library, APE behind ID3v1', 3, 0, 2, 0)
ape.save(folder + 'library, APE behind ID3v1')
)";

void AddLibraryFiles(Maker& maker) {
    const Text all = u"03 - Peer - T\u00E4g (1999 Rock).mp3";
    maker.ByLibrary(
        Script, {{"library, ID3v2.3, Latin-1, ID3v1", {}, all, "texts end in a NUL: the trailer's"},
                 {"library, ID3v2.3, UTF-16, padded", {}, FromNameTagged, ""},
                 {"library, ID3v2.4, UTF-16BE", {}, FromNameTagged, ""},
                 {"library, ID3v2.4, UTF-8, ID3v1", {}, all, "texts end in a NUL: the trailer's"},
                 {"library, APE", {}, FromName, "no tag of ours"},
                 {"library, APE behind ID3v1",
                  {},
                  FromNameTagged,
                  "a trailer that something follows is none"}});
}

// --- what none of them makes ---

Bytes TagWith(char major, char flags, const Bytes& inner) {
    return Bytes("ID3") + major + Nul + flags + SevenBitSize(inner.size()) + inner;
}

Bytes SampleFrames() {
    return TextFrame("TPE1", "Peer") + TextFrame("TIT2", "T\xE4g") + TextFrame("TYER", "1999") +
           TextFrame("TCON", "(17)") + TextFrame("TRCK", "3");
}

Bytes ShortFrame(const Bytes& identifier, const Bytes& text) {
    return identifier + Nuls(2) + static_cast<char>(text.size() + 1) + Nul + text;
}

Bytes PictureFrame(const Bytes& picture) {
    return Frame("APIC", Nul + "image/png" + Nul + "\x03" + Nul + picture);
}

// Lyrics3 v2.00: the size of all that stands before it, six digits, then the mark.
Bytes Lyrics() {
    const Bytes fields = "LYRICSBEGININD0000210LYR00010[00:01]la\r";
    Bytes size = std::to_string(fields.size());
    size.insert(0, 6 - size.size(), '0');
    return fields + size + "LYRICS200";
}

// An APE tag of version 2 without header, with one item.
Bytes Ape() {
    const Bytes item = Bytes("\x03\0\0\0\0\0\0\0", 8) + "Title" + Nul + "Ape";
    return item + "APETAGEX" + Bytes("\xD0\x07\0\0", 4) + static_cast<char>(item.size() + 32) +
           Nuls(3) + "\x01" + Nuls(3) + Nuls(4) + Nuls(8);
}

void AddHandMadeFiles(Maker& maker) {
    const Bytes& audio = EncodedMp3();
    const Bytes frames = SampleFrames();
    const Text all = u"03 - Peer - T\u00E4g (1999 Rock).mp3";
    const Text trailers = u"07 - An Artist - T\u00E4g (1999 Rock).mp3";
    const Bytes trailer = Trailer("T\xE4g", 7);
    maker.ByHand("by hand, ID3v2.2",
                 TagWith(2, 0, ShortFrame("TT2", "Other") + ShortFrame("TP1", "Other")) + audio,
                 FromNameTagged, "frames with three letters are not looked at");
    maker.ByHand("by hand, ID3v2.2 and ID3v1",
                 TagWith(2, 0, ShortFrame("TT2", "Other") + Nuls(40)) + audio + trailer, trailers,
                 "the trailer's");
    maker.ByHand(
        "by hand, unsynchronised",
        TagWith(3, '\x80', Unsynchronised(frames + PictureFrame(maker.Picture() + "\xFF\xE0"))) +
            audio,
        all, "");
    maker.ByHand("by hand, extended header of ID3v2.3",
                 TagWith(3, '\x40', Bytes("\0\0\0\x06\0\0\0\0\0\0", 10) + frames) + audio, all, "");
    maker.ByHand("by hand, extended header of ID3v2.4",
                 TagWith(4, '\x40', Bytes("\0\0\0\x06\x01\0", 6) + frames) + audio, all, "");
    const Bytes head = TagWith(4, '\x10', frames);
    maker.ByHand("by hand, footer", head + "3DI" + head.substr(3, 7) + audio, all, "");
    maker.ByHand("by hand, Lyrics3 and ID3v1", audio + Lyrics() + trailer, trailers, "");
    maker.ByHand("by hand, APE, Lyrics3 and ID3v1", audio + Ape() + Lyrics() + trailer, trailers,
                 "");
    maker.ByHand("by hand, everything",
                 WholeTag(frames + PictureFrame(maker.Picture()), 13000) + audio + Ape() +
                     Lyrics() + trailer,
                 all, "");
    maker.ByHand("by hand, plain sizes beyond seven bits",
                 TagHeader(frames.size() + 210) + PlainSizeFrame("TXXX", Nul + Bytes(199, 'x')) +
                     frames + audio,
                 all, "frames are found by their letters");
    maker.ByHand("by hand, a tag of no version", TagWith('\xFF', '\xFF', frames) + audio, all, "");
}

struct Made {
    std::vector<PeerFile> Files;
    Bytes Picture;
};

Made MakeAll() {
    Maker maker;
    AddEncoderFiles(maker);
    AddConverterFiles(maker);
    AddEditorFiles(maker);
    AddLibraryFiles(maker);
    AddHandMadeFiles(maker);
    return {maker.Take(), maker.Picture()};
}

const Made& All() {
    static const Made made = MakeAll();
    return made;
}

}  // namespace

const std::vector<PeerFile>& PeerFiles() { return All().Files; }
const Bytes& PeerPicture() { return All().Picture; }

}  // namespace mdlPLM::test
