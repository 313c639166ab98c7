#include "core/tags/standard/frame_body.h"

#include <algorithm>

#include "core/tags/standard/frame_table.h"
#include "core/tags/standard/inflate.h"
#include "core/tags/standard/sizes.h"
#include "core/tags/standard/unsynchronisation.h"

namespace mdlPLM::standard {

namespace {

constexpr std::size_t SizeField = 4;

// Which bits of the second flag byte put what before the content.
struct FormatFlags {
    unsigned Compressed;
    unsigned Encrypted;
    unsigned Grouped;
    unsigned DataLength;
};
constexpr FormatFlags NoFlags{0, 0, 0, 0};
constexpr FormatFlags FlagsOfV23{0x80, 0x40, 0x20, 0};
constexpr FormatFlags FlagsOfV24{0x08, 0x04, 0x40, 0x01};
constexpr unsigned UnsynchronisedFlag = 0x02;  // of ID3v2.4

constexpr std::size_t MostGrowth = 32;
constexpr std::size_t LeastRoom = 1024;

constexpr const FormatFlags& FlagsOf(TagForm form) {
    if (form == TagForm::V24) return FlagsOfV24;
    return form == TagForm::V23 ? FlagsOfV23 : NoFlags;
}

bool Has(const Frame& frame, unsigned flag) {
    return (static_cast<unsigned char>(frame.Flags[1]) & flag) != 0;
}

// A compressed frame has its size before it in ID3v2.3; in ID3v2.4 that is a flag of its own, and
// some programs leave it out.
struct Prefix {
    std::size_t Size = 0;
    std::size_t DataLength = 0;  // 0: not told
};

Prefix PrefixOf(const Frame& frame, const FormatFlags& flags) {
    Prefix prefix;
    prefix.Size = Has(frame, flags.Grouped) ? 1 : 0;
    const bool length =
        frame.Form == TagForm::V24 ? Has(frame, flags.DataLength) : Has(frame, flags.Compressed);
    if (!length) return prefix;
    const std::size_t at = frame.Form == TagForm::V24 ? prefix.Size : 0;
    const BytesView field = frame.Body.substr(std::min(at, frame.Body.size()), SizeField);
    prefix.Size += SizeField;
    const bool plain = frame.Form != TagForm::V24 || !IsSevenBit(field);
    prefix.DataLength = plain ? PlainNumber(field) : SevenBitNumber(field);
    return prefix;
}

void Take(Content& content, Bytes bytes) {
    content.Own = std::make_shared<const Bytes>(std::move(bytes));
    content.View = *content.Own;
}

// A frame that says it is unsynchronised and holds as much as its data length is not.
bool NeedsResynchronising(const Frame& frame, const Content& content, const Prefix& prefix) {
    const bool compressed = Has(frame, FlagsOf(frame.Form).Compressed);
    if (!compressed && prefix.DataLength == content.View.size()) return false;
    return content.View.find(BytesView("\xFF\0", 2)) != BytesView::npos &&
           CanBeUnsynchronised(content.View);
}

void Inflate(Content& content) {
    const std::size_t most = MostGrowth * content.View.size() + LeastRoom;
    std::optional<Bytes> inflated = Inflated(content.View, most);
    content.Readable = inflated.has_value();
    if (inflated) Take(content, *std::move(inflated));
}

// --- carrying over ---

constexpr std::size_t FormatSize = 3;  // of a picture, and of an identifier, in ID3v2.2

Bytes PictureOfV22(BytesView body) {
    const BytesView format = body.substr(1, FormatSize);
    Bytes picture(body.substr(0, 1));
    picture.append(MimeOfFormat(format)).push_back('\0');
    return picture.append(body.substr(1 + format.size()));
}

CarriedFrame FromV22(const Frame& frame) {
    CarriedFrame carried{{}, frame.Body, {}};
    if (KindOf(frame.Id) == FrameKind::Picture && !frame.Body.empty())
        carried.Own = PictureOfV22(frame.Body);
    if (frame.Id == FrameId("LINK") && frame.Body.size() >= FormatSize)
        carried.Own = Bytes(IdOfThreeLetters(frame.Body.substr(0, FormatSize)).View())
                          .append(frame.Body.substr(FormatSize));
    return carried;
}

// A frame of ID3v2.4 in a tag of ID3v2.3: the group is all that is left before its content.
CarriedFrame FromV24(const Frame& frame) {
    const Content content = ContentOf(frame);
    if (!content.Readable) return {frame.Flags, frame.Body, {}};
    CarriedFrame carried{{StatusFlags(frame, TagForm::V23), '\0'}, content.View, {}};
    const bool grouped = Has(frame, FlagsOfV24.Grouped);
    if (grouped) carried.Flags[1] = static_cast<char>(FlagsOfV23.Grouped);
    if (grouped || content.Own) carried.Own = Bytes(frame.Body.substr(0, grouped ? 1 : 0));
    if (grouped || content.Own) carried.Own.append(content.View);
    return carried;
}

Bytes ResynchronisedBody(const Frame& frame) {
    const Prefix prefix = PrefixOf(frame, FlagsOf(frame.Form));
    Content content{true, frame.Body, nullptr};
    content.View.remove_prefix(std::min(prefix.Size, frame.Body.size()));
    if (!NeedsResynchronising(frame, content, prefix)) return {};
    return Bytes(frame.Body.substr(0, prefix.Size)).append(Resynchronised(content.View));
}

}  // namespace

Content ContentOf(const Frame& frame) {
    const FormatFlags& flags = FlagsOf(frame.Form);
    Content content{true, frame.Body, nullptr};
    if (frame.Flags[1] == '\0' && !frame.Unsynchronised) return content;
    const Prefix prefix = PrefixOf(frame, flags);
    content.Readable = !Has(frame, flags.Encrypted) && prefix.Size <= frame.Body.size();
    if (!content.Readable) return {};
    content.View.remove_prefix(prefix.Size);
    if (frame.Unsynchronised && NeedsResynchronising(frame, content, prefix))
        Take(content, Resynchronised(content.View));
    if (Has(frame, flags.Compressed)) Inflate(content);
    if (!content.Readable) return {};
    return content;
}

CarriedFrame CarryOver(const Frame& frame, TagForm form) {
    if (frame.Form == TagForm::V22) return FromV22(frame);
    if (frame.Form != form) return FromV24(frame);
    CarriedFrame carried{frame.Flags, frame.Body, {}};
    // Only the tag said so, and it will not any more.
    const bool ofTag = frame.Unsynchronised && !Has(frame, UnsynchronisedFlag);
    if (ofTag) carried.Own = ResynchronisedBody(frame);
    return carried;
}

char StatusFlags(const Frame& frame, TagForm form) {
    if (frame.Form == form || frame.Form == TagForm::V22) return frame.Flags[0];
    const auto flags = static_cast<unsigned char>(frame.Flags[0]);
    return static_cast<char>(form == TagForm::V23 ? flags << 1U & 0xE0U : flags >> 1U & 0x70U);
}

}  // namespace mdlPLM::standard
