// Frames of any tag text: finding and cutting agree with a plain reckoning, a cut never lets the
// text grow, and a frame that was built is read again.
#include <algorithm>
#include <array>

#include "app/dialogs/more_id3v2.h"
#include "core/tags/frames.h"
#include "core/tags/genres.h"
#include "core/tags/held_frames.h"
#include "core/tags/id3v2_writer.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

// Characters of a text from a 1-based position, as far as there are any.
Bytes Taken(BytesView text, std::int64_t start, std::int64_t count) {
    const auto size = static_cast<std::int64_t>(text.size());
    if (start > size || count < 1) return {};
    return Bytes(text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count)));
}

struct Found {
    std::int64_t At = 0;  // 1-based; 0: nowhere
    std::int64_t Size = 0;
};

Found Find(BytesView text, BytesView identifier) {
    const std::size_t at = text.find(identifier);
    if (at == BytesView::npos) return {};
    Found found{static_cast<std::int64_t>(at) + 1, 0};
    for (std::int64_t i = 4; i <= 7; ++i) {
        const Bytes byte = Taken(text, found.At + i, 1);
        found.Size = found.Size * 128 + (byte.empty() ? 0 : static_cast<unsigned char>(byte[0]));
    }
    return found;
}

Bytes PlainText(BytesView text, BytesView identifier) {
    const Found found = Find(text, identifier);
    if (found.At == 0) return {};
    const std::int64_t more = identifier == "COMM" ? 4 : 0;
    Bytes value = Taken(text, found.At + 11 + more, found.Size - 1 - more);
    for (std::size_t nul = value.find('\0'); nul != Bytes::npos; nul = value.find('\0'))
        value.erase(0, nul + 1);
    return value;
}

Bytes PlainCut(BytesView text, BytesView identifier) {
    const Found found = Find(text, identifier);
    if (found.At == 0 || found.Size == 0) return Bytes(text);
    const auto size = static_cast<std::int64_t>(text.size());
    return Taken(text, 1, found.At - 1) + Taken(text, found.At + 10 + found.Size, size);
}

void CheckFrame(BytesView text, BytesView identifier) {
    RequireEqual(GetFrameText(text, identifier), PlainText(text, identifier), "another text");
    const Bytes rest = RemoveFrame(text, identifier);
    RequireEqual(rest, PlainCut(text, identifier), "another rest");
    Require(rest.size() <= text.size(), "a cut let the text grow");
}

// What goes is one piece that begins with the letters.
void CheckCut(BytesView text, BytesView identifier) {
    const Bytes rest = CutFoundFrame(text, identifier);
    Require(rest.size() <= text.size(), "a cut of a real frame let the text grow");
    const std::size_t length = text.size() - rest.size();
    if (length == 0) return RequireEqual(rest, text, "a cut without a frame");
    for (std::size_t at = text.find(identifier); at != BytesView::npos;
         at = text.find(identifier, at + 1))
        if (text.substr(0, at) == BytesView(rest).substr(0, at) && at <= rest.size() &&
            text.substr(std::min(at + length, text.size())) == BytesView(rest).substr(at))
            return;
    Require(false, "something else was cut");
}

// In front of anything else a built frame is the first of its kind.
void CheckBuilding(BytesView text, BytesView identifier, const Bytes& content) {
    const Bytes frame = BuildFrame(identifier, content);
    if (content.empty()) return Require(frame.empty(), "a frame of an empty field");
    const std::size_t nul = content.rfind('\0');
    RequireEqual(GetFrameText(frame + Bytes(text), identifier),
                 nul == Bytes::npos ? content : content.substr(nul + 1), "another text is read");
    RequireEqual(RemoveFrame(frame + Bytes(text), identifier), text, "the rest is not what was");
}

class HeldText final : public OtherFramesText {
public:
    explicit HeldText(BytesView text) : text_(text) {}
    [[nodiscard]] const Bytes& OtherFrames() const override { return text_; }
    void SetOtherFrames(Bytes text) override { text_ = std::move(text); }

private:
    Bytes text_;
};

// Everything that is listed can be shown and removed, until nothing more gives way.
void CheckDialog(BytesView text) {
    HeldText held(text);
    for (const BytesView identifier : FramesIn(text)) {
        Require(text.find(identifier) != BytesView::npos, "a frame is listed that is not there");
        const ShownContent content(GetFrameText(text, identifier));
        RequireEqual(content.ContentOf(content.Shown()), GetFrameText(text, identifier),
                     "an untouched box changes a content");
        Require(ContentToSave(text, identifier).size() <= text.size(), "a content grew");
        const std::size_t before = held.OtherFrames().size();
        RemoveFrameAt(held, identifier);
        Require(held.OtherFrames().size() <= before, "removing let the frames grow");
    }
}

Bytes PlainGenre(BytesView raw) {
    const std::size_t close = raw.substr(std::min<std::size_t>(1, raw.size())).find(')');
    if (close == BytesView::npos || close == 0) return {};
    const Bytes number(raw.substr(1, close));
    const Text refinement = Trim(FromCodePage(raw.substr(close + 2)));
    Bytes name;
    if (IsAllDigits(BytesView(number))) {
        const std::size_t digits = number.find_first_not_of('0');
        const bool small = digits == Bytes::npos || number.size() - digits <= 3;
        name = small ? GenreNameOfNumber(std::stoll(number)) : "Unknown";
    }
    const bool refined = !refinement.empty() && LCase(refinement) != LCase(FromCodePage(name));
    return refined ? ToCodePage(refinement) : name;
}

}  // namespace

void FuzzFrames(BytesView bytes) {
    Input input(bytes);
    const Bytes identifier = input.Line();
    const Bytes content = input.Line();
    const BytesView text = input.Rest();
    for (const BytesView one : {BytesView("TIT2"), BytesView("COMM"), BytesView("WXXX")})
        CheckFrame(text, one);
    for (const KnownFrame& frame : KnownFrames) CheckCut(text, frame.Identifier);
    if (!identifier.empty()) CheckFrame(text, identifier);
    if (identifier.size() == 4) CheckBuilding(text, identifier, content);
    const bool sevenBits = content.size() < 0x10000000;
    const auto size = static_cast<std::int64_t>(content.size());
    if (sevenBits)
        Require(DecodeSize(BytesView(BuildTagHeader(size)).substr(6)) == size, "another size");
    CheckDialog(text);
    RequireEqual(ResolveGenre(content), PlainGenre(content), "another genre");
}

}  // namespace mdlPLM::fuzz
