#include "core/tags/id3v2.h"

#include <algorithm>

#include "core/tags/frames.h"
#include "core/tags/genres.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

constexpr BytesView CommentIdentifier = "COMM";
constexpr std::size_t SizeOffset = 4;
constexpr std::size_t TextOffset = 11;   // header and encoding byte
constexpr std::size_t CommentStart = 4;  // language and the NUL of an empty description

struct FramePlace {
    std::size_t Start = BytesView::npos;  // npos: not there
    std::int64_t Size = 0;                // of the content
};

BytesView From(BytesView bytes, std::size_t start) {
    return bytes.substr(std::min(start, bytes.size()));
}

FramePlace FrameAt(BytesView tagText, std::size_t start) {
    if (start == BytesView::npos) return {};
    return {start, DecodeSize(From(tagText, start + SizeOffset))};
}

// Anywhere in the tag text, even inside another frame's content: the first match counts, on
// purpose.
FramePlace FindFrame(BytesView tagText, BytesView identifier) {
    return FrameAt(tagText, tagText.find(identifier));
}

BytesView BehindLastNul(BytesView text) {
    const std::size_t nul = text.rfind('\0');
    return nul == BytesView::npos ? text : text.substr(nul + 1);
}

void CutFrame(Bytes& tagText, BytesView identifier) {
    const FramePlace frame = FindFrame(tagText, identifier);
    if (frame.Start == BytesView::npos || frame.Size == 0) return;
    tagText.erase(frame.Start, FrameHeaderSize + static_cast<std::size_t>(frame.Size));
}

Bytes VersionText(BytesView header) {
    const auto number = [&](std::size_t i) {
        return i < header.size() ? static_cast<unsigned char>(header[i]) : 0;
    };
    return std::to_string(number(3)) + "." + std::to_string(number(4));
}

// Saturates far above the last genre, so that no reference is too long for it.
long long NumberOf(BytesView digits) {
    constexpr long long enough = 1'000'000;
    long long number = 0;
    for (const char digit : digits) number = std::min(number * 10 + (digit - '0'), enough);
    return number;
}

Bytes OtherFramesOf(BytesView tagText) {
    Bytes rest(tagText);
    for (const KnownFrame& frame : KnownFrames) CutFrame(rest, frame.Identifier);
    if (rest.find_first_not_of('\0') == Bytes::npos) rest.clear();
    return rest;
}

}  // namespace

std::int64_t DecodeSize(BytesView fourBytes) {
    std::int64_t size = 0;
    for (std::size_t i = 0; i < 4; ++i)
        size = size * 128 + (i < fourBytes.size() ? static_cast<unsigned char>(fourBytes[i]) : 0);
    return size;
}

std::int64_t DecodePlainSize(BytesView fourBytes) {
    std::int64_t size = 0;
    for (const char byte : fourBytes.substr(0, 4))
        size = size * 256 + static_cast<unsigned char>(byte);
    return size;
}

Bytes GetFrameText(BytesView tagText, BytesView identifier) {
    return Bytes(FrameTextAt(tagText, tagText.find(identifier), identifier));
}

BytesView FrameTextAt(BytesView tagText, std::size_t start, BytesView identifier) {
    const FramePlace frame = FrameAt(tagText, start);
    const std::size_t skipped = identifier == CommentIdentifier ? CommentStart : 0;
    const std::int64_t length = frame.Size - 1 - static_cast<std::int64_t>(skipped);
    if (length < 1) return {};
    const BytesView content = From(tagText, start + TextOffset + skipped);
    return BehindLastNul(content.substr(0, static_cast<std::size_t>(length)));
}

Bytes RemoveFrame(BytesView tagText, BytesView identifier) {
    Bytes rest(tagText);
    CutFrame(rest, identifier);
    return rest;
}

Bytes ResolveGenre(BytesView rawGenre) {
    // What stands from the second character up to the first ")" at or after it, whatever the first
    // character is; a genre without such a reference is not taken over. Kept on purpose.
    const std::size_t close = rawGenre.find(')', 1);
    if (close == BytesView::npos || close < 2) return {};
    const BytesView reference = rawGenre.substr(1, close - 1);
    Bytes name = IsAllDigits(reference) ? GenreNameOfNumber(NumberOf(reference)) : Bytes();
    if (close + 1 == rawGenre.size()) return name;
    const Text refinement = Trim(FromCodePage(rawGenre.substr(close + 1)));
    if (refinement.empty() || EqualIgnoringCase(refinement, FromCodePage(name))) return name;
    return ToCodePage(refinement);
}

ID3v2Tag ParseID3v2(BytesView header, BytesView tagText, ID3v2Parts parts) {
    ID3v2Tag tag;
    if (header.substr(0, 3) != "ID3") return tag;
    tag.ID = "ID3";
    tag.Version = VersionText(header);
    const FramePlaces places = PlacesOfFrames(tagText);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const KnownFrame& frame = KnownFrames[i];
        if (frame.InNames || parts != ID3v2Parts::NameFields)
            tag.*frame.Field = FrameTextAt(tagText, places[i], frame.Identifier);
    }
    tag.Genre = ResolveGenre(tag.Genre);
    if (parts == ID3v2Parts::Everything) tag.OtherFrames = OtherFramesOf(tagText);
    return tag;
}

}  // namespace mdlPLM
