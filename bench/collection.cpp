#include "bench/collection.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/tags/id3v1.h"
#include "core/text/code_page.h"

namespace mdlPLM::bench {

namespace {

constexpr std::size_t FilesPerFolder = 250;
constexpr std::size_t Padding = 512;
constexpr int AudioFrames = 10;

constexpr std::array<const char*, 12> Artists = {
    "Aurora Lane",  "The Copper Kettles", "Benny & the Bolts", "Dust Parade",
    "Elin Vinter",  "Four Left Shoes",    "Gullviva",          "Hollow Harbour",
    "Iron Almanac", "July Machine",       "Kvarteret",         "Low Tide Society"};
constexpr std::array<const char*, 9> Words = {"Morning", "Lantern", "Railway", "Winter", "Paper",
                                              "Silver",  "Letter",  "Harbour", "Garden"};

struct Song {
    std::string Artist, Title, Album, Year, Track;
    char Genre = 0;
};

Song SongOf(std::size_t number) {
    const std::size_t album = number / 12;
    Song song;
    song.Artist = Artists[album % Artists.size()];
    song.Title =
        std::string(Words[number % 9]) + " " + Words[number / 9 % 9] + " " + std::to_string(number);
    song.Album = std::string(Words[album % 9]) + " Songs " + std::to_string(album);
    song.Year = std::to_string(1960 + album % 60);
    song.Track = std::to_string(number % 12 + 1);
    song.Genre = static_cast<char>(album % 80);
    return song;
}

std::string BadName(std::size_t number) {
    const Song song = SongOf(number);
    std::string name = song.Track + "-" + song.Artist + "_-_" + song.Title + ".MP3";
    for (char& c : name) {
        if (c == ' ') c = '_';
    }
    return name;
}

/// ID3v2.3.0, section 3.3: identifier, size, flags. All contents here are shorter than 128 bytes.
Bytes Frame(BytesView identifier, BytesView content) {
    Bytes frame(identifier);
    frame += {'\0', '\0', '\0', static_cast<char>(content.size())};
    return frame.append(2, '\0').append(content);
}

/// ID3v2.3.0, section 4.2: encoding byte and text.
Bytes TextFrame(BytesView identifier, BytesView text) {
    return Frame(identifier, Bytes(1, '\0').append(text));
}

Bytes ID3v2TagOf(const Song& song) {
    Bytes frames = TextFrame("TIT2", song.Title) + TextFrame("TPE1", song.Artist) +
                   TextFrame("TALB", song.Album) + TextFrame("TYER", song.Year) +
                   TextFrame("TRCK", song.Track) +
                   TextFrame("TCON", "(" + std::to_string(song.Genre) + ")") +
                   Frame("COMM", Bytes(1, '\0') + "eng" + Bytes(1, '\0') + "Ripped at home");
    frames.append(Padding, '\0');
    // ID3v2.3.0, section 3.1: four bytes of seven bits each.
    const std::size_t size = frames.size();
    Bytes tag("ID3\x03\0\0\0\0", 8);
    tag += {static_cast<char>(size >> 7 & 0x7F), static_cast<char>(size & 0x7F)};
    return tag + frames;
}

/// ISO/IEC 11172-3, section 2.4.1: MPEG 1 layer 3, 128 kbit/s, 44.1 kHz, 417 bytes; no side
/// information is silence.
Bytes Audio() {
    Bytes frame("\xFF\xFB\x90\x64", 4);
    frame.append(413, '\0');
    Bytes audio;
    for (int i = 0; i < AudioFrames; ++i) audio += frame;
    return audio;
}

Bytes TrailerOf(const Song& song) {
    ID3v1Tag tag;
    tag.Tag = "TAG";
    LayOutID3v1(tag,
                {FromCodePage(song.Title), FromCodePage(song.Artist), FromCodePage(song.Album),
                 FromCodePage(song.Year), u"Ripped at home"},
                false);
    tag.Track = static_cast<char>(std::stoi(song.Track));
    tag.Genre = song.Genre;
    return RenderID3v1(tag);
}

std::string SubfolderOf(std::size_t number) {
    const std::size_t folder = number / FilesPerFolder;
    return "disc " + std::to_string(folder / 20) + "/folder " + std::to_string(folder) + "/";
}

}  // namespace

Bytes SongFile(std::size_t number) {
    const Song song = SongOf(number);
    return ID3v2TagOf(song) + Audio() + TrailerOf(song);
}

Text NewTemporaryFolder() {
    Bytes folder = NativePath(TemporaryFolder()) + "plm_bench_XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return PathFromNative(folder) + Separator;
}

void RemoveFolderTree(const Text& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(NativePath(folder), ignored);
}

Collection::Collection(std::size_t count) : folder_(NewTemporaryFolder()) {
    const Bytes folder = NativePath(folder_);
    paths_.reserve(count);
    for (std::size_t number = 0; number < count; ++number) {
        const Bytes subfolder = folder + SubfolderOf(number);
        if (number % FilesPerFolder == 0) std::filesystem::create_directories(subfolder);
        const Bytes path = subfolder + BadName(number);
        std::ofstream file(path, std::ios::binary);
        file << SongFile(number) << std::flush;
        if (!file) throw std::runtime_error("cannot write " + path);
        paths_.push_back(PathFromNative(path));
    }
}

Collection::~Collection() { RemoveFolderTree(folder_); }

}  // namespace mdlPLM::bench
