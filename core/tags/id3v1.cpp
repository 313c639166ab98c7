#include "core/tags/id3v1.h"

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

struct FieldPlace {
    Bytes ID3v1Tag::*Field;
    std::size_t Offset;  // from the start of the trailer
    std::size_t Width;
};

constexpr std::array<FieldPlace, 6> Layout = {{{&ID3v1Tag::Tag, 0, 3},
                                               {&ID3v1Tag::Title, 3, 30},
                                               {&ID3v1Tag::Artist, 33, 30},
                                               {&ID3v1Tag::Album, 63, 30},
                                               {&ID3v1Tag::Year, 93, 4},
                                               {&ID3v1Tag::Comment, 97, 30}}};
constexpr std::size_t ZeroByteOffset = 125;
constexpr std::size_t TrackOffset = 126;
constexpr std::size_t GenreOffset = 127;
constexpr std::size_t CommentWithZeroByte = 29;

constexpr int FieldWidth = 30;
constexpr int YearWidth = 4;
constexpr std::size_t OptimizedRoom = 59;  // two fields less the NUL between text and continuation
constexpr BytesView Nul{"\0", 1};

BytesView TrimBlanks(BytesView bytes) {
    const std::size_t first = bytes.find_first_not_of(' ');
    if (first == BytesView::npos) return {};
    return bytes.substr(first, bytes.find_last_not_of(' ') - first + 1);
}

BytesView Beyond(BytesView text, std::size_t width) {
    return text.substr(std::min(text.size(), width));
}

Bytes Joined(BytesView text, BytesView continuation) {
    Bytes field(text);
    return field.append(Nul).append(continuation);
}

int CharactersLeft(std::size_t used) {
    return static_cast<int>(OptimizedRoom - std::min(used, OptimizedRoom));
}

}  // namespace

Bytes PadString(BytesView text, int length, BytesView pad) {
    const auto width = static_cast<std::size_t>(std::max(length, 0));
    Bytes result(text.substr(0, width));
    if (!pad.empty()) result.resize(width, pad.front());
    return result;
}

BytesView UpToNul(BytesView field) { return field.substr(0, field.find('\0')); }

BytesView Continuation(BytesView field) {
    const std::size_t end = field.find('\0');
    return end == BytesView::npos ? BytesView() : UpToNul(field.substr(end + 1));
}

Bytes FieldText(BytesView field, BytesView continuation) {
    if (continuation.empty()) return Bytes(TrimBlanks(UpToNul(field)));
    return Bytes(TrimBlanks(Bytes(UpToNul(field)).append(continuation)));
}

bool HasTrackByte(BytesView trailer) {
    return trailer.size() == ID3v1Size && trailer[ZeroByteOffset] == '\0';
}

ID3v1Tag ParseID3v1(BytesView trailer) {
    ID3v1Tag tag;
    ParseID3v1(trailer, tag);
    return tag;
}

void ParseID3v1(BytesView trailer, ID3v1Tag& tag) {
    tag.Genre = NoGenre;
    if (trailer.size() != ID3v1Size || trailer.substr(0, 3) != "TAG") return;
    for (const FieldPlace& place : Layout)
        (tag.*place.Field).assign(trailer.substr(place.Offset, place.Width));
    if (HasTrackByte(trailer)) {
        tag.Track = trailer[TrackOffset];
        tag.Comment[CommentWithZeroByte] = '\0';
    }
    tag.Genre = trailer[GenreOffset];
}

Bytes RenderID3v1(const ID3v1Tag& tag) {
    Bytes trailer(ID3v1Size, '\0');
    for (const FieldPlace& place : Layout) {
        const BytesView field = BytesView(tag.*place.Field).substr(0, place.Width);
        trailer.replace(place.Offset, field.size(), field);
    }
    trailer.replace(0, 3, "TAG");
    if (tag.Track != '\0') {
        trailer[ZeroByteOffset] = '\0';
        trailer[TrackOffset] = tag.Track;
    }
    trailer[GenreOffset] = tag.Genre;
    return trailer;
}

void LayOutID3v1(ID3v1Tag& tag, const ID3v1Texts& texts, bool optimized) {
    const Bytes title = ToCodePage(Trimmed(texts.Title));
    const Bytes artist = ToCodePage(Trimmed(texts.Artist));
    // Only the optimized layout trims album and comment; kept on purpose.
    const Bytes album = optimized ? Joined(ToCodePage(Trimmed(texts.Album)), Beyond(artist, 30))
                                  : ToCodePage(texts.Album);
    const Bytes comment = optimized ? Joined(ToCodePage(Trimmed(texts.Comment)), Beyond(title, 30))
                                    : ToCodePage(texts.Comment);
    tag.Title = PadString(title, FieldWidth, Nul);
    tag.Artist = PadString(artist, FieldWidth, Nul);
    tag.Album = PadString(album, FieldWidth, Nul);
    tag.Comment = PadString(comment, FieldWidth, Nul);
    tag.Year = PadString(ToCodePage(texts.Year), YearWidth, Nul);
}

ID3v1Texts ShowID3v1(const ID3v1Tag& tag, bool optimized) {
    const BytesView restOfTitle = optimized ? Continuation(tag.Comment) : BytesView();
    const BytesView restOfArtist = optimized ? Continuation(tag.Album) : BytesView();
    const auto shown = [](BytesView field, BytesView rest = {}) {
        return FromCodePage(FieldText(field, rest));
    };
    return {shown(tag.Title, restOfTitle), shown(tag.Artist, restOfArtist), shown(tag.Album),
            shown(tag.Year), shown(tag.Comment)};
}

int OptimizedArtistLimit(std::size_t albumLength) { return CharactersLeft(albumLength); }

int OptimizedTitleLimit(std::size_t commentLength, bool hasTrack) {
    return std::max(FieldWidth, CharactersLeft(commentLength + (hasTrack ? 2 : 0)));
}

}  // namespace mdlPLM
