#include "app/cli/sample_collection.h"

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/tags/id3v1.h"
#include "core/tags/id3v2_writer.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

constexpr int FramesPerSecond = 38;
constexpr std::size_t FrameLength = 417;
constexpr BytesView FrameHeader = "\xFF\xFB\x90\x64";

constexpr int Pop = 13;
constexpr int Rock = 17;
constexpr int Folk = 80;
constexpr int NoNumber = 255;

enum class Tags { None, V1, V2, Both };

struct SampleTags {
    Text Artist;
    Text Title;
    Text Album;
    Text Year;
    int Track = 0;
    int Genre = NoNumber;
};

Bytes V1Of(const SampleTags& tags) {
    ID3v1Tag record;
    record.Tag = "TAG";
    record.Genre = static_cast<char>(tags.Genre);
    record.Track = static_cast<char>(tags.Track);
    LayOutID3v1(record, {tags.Title, tags.Artist, tags.Album, tags.Year, {}}, false);
    return RenderID3v1(record);
}

Bytes V2Of(const SampleTags& tags) {
    ID3v2Tag record;
    record.Artist = ToCodePage(tags.Artist);
    record.Title = ToCodePage(tags.Title);
    record.Album = ToCodePage(tags.Album);
    record.Year = ToCodePage(tags.Year);
    if (tags.Track > 0) record.Track = std::to_string(tags.Track);
    if (tags.Genre != NoNumber) record.Genre = "(" + std::to_string(tags.Genre) + ")";
    const Bytes frames = BuildFrames(record);
    const auto length = static_cast<std::int64_t>(frames.size());
    return BuildTagHeader(2 * length) + frames + Bytes(frames.size(), '\0');
}

SampleFile Make(Bytes name, Tags kinds = Tags::None, const SampleTags& tags = {}) {
    const bool v2 = kinds == Tags::V2 || kinds == Tags::Both;
    const bool v1 = kinds == Tags::V1 || kinds == Tags::Both;
    return {std::move(name),
            (v2 ? V2Of(tags) : Bytes()) + SilentStream(1) + (v1 ? V1Of(tags) : Bytes())};
}

/// Both tags, which say different things: the second version counts.
SampleFile MakeDiffering(Bytes name, const SampleTags& v1, const SampleTags& v2) {
    return {std::move(name), V2Of(v2) + SilentStream(1) + V1Of(v1)};
}

std::vector<SampleFile> MakeSampleFiles() {
    const Text aurora = u"Aurora Lane";
    const Text ivar = u"Ivar Strand";
    const Text boats = u"The Paper Boats";
    return {
        Make("the_paper_boats_-_harbour%20lights.MP3"),
        Make("THE PAPER BOATS-anchor.mp3"),
        Make("03  aurora lane--first   snow.mp3", Tags::V1,
             {aurora, u"first snow", u"Winter", u"1998", 3, Pop}),
        Make("TRACK01.MP3", Tags::Both, {aurora, u"night train", u"Winter", u"1998", 1, Pop}),
        Make("winter.2.thaw.mp3", Tags::V2, {aurora, u"THAW", u"Winter", u"1998", 2, Pop}),
        Make("ivar strand - älven.mp3"),
        Make("polska_(live).mp3", Tags::V1, {ivar, u"Polska från Öland", u"", u"", 0, Folk}),
        MakeDiffering("old tag.mp3", {u"Unknown", u"Track 7", u"", u"", 7, Rock},
                      {boats, u"Lighthouse", u"Harbour", u"2001", 7, Rock}),
        Make("north-south.mp3", Tags::Both, {u"North/South", u"Which way?", u"", u"", 0, Rock}),
        Make("just a tune.mp3"),
        Make("new/aurora lane - night train.mp3", Tags::V1,
             {aurora, u"night train", u"Winter", u"1998", 1, Pop}),
        Make("album/a.mp3"),
        Make("album/b.mp3"),
        Make("album/c.mp3"),
    };
}

}  // namespace

Bytes SilentStream(int seconds) {
    Bytes frame(FrameHeader);
    frame.resize(FrameLength);
    Bytes stream;
    for (int i = 0; i < seconds * FramesPerSecond; ++i) stream += frame;
    return stream;
}

const std::vector<SampleFile>& SampleFiles() {
    static const std::vector<SampleFile> files = MakeSampleFiles();
    return files;
}

Bytes SampleAlbumText() {
    return "Artist: Ivar Strand\r\nAlbum: Songs from the Shore\r\nYear: 2003\r\n"
           "Release date: 1 May 2003\r\n\r\n"
           "1 - Ebb\r\n2 - Slack Water\r\n3 - Flood\r\n";
}

Status MakeSampleCollection(TextView folder) {
    for (const SampleFile& file : SampleFiles()) {
        const Text path = JoinPath(folder, PathFromNative(file.Name));
        if (const Status made = CreateFolders(FolderOfPath(path)); !made.Ok()) return made;
        if (const Status written = WriteWholeFile(path, file.Contents); !written.Ok())
            return written;
    }
    return WriteWholeFile(JoinPath(folder, u"album/album.txt"), SampleAlbumText());
}

}  // namespace mdlPLM::cli
