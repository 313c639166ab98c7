#include "app/dialogs/frame_picture.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "core/text/language.h"

namespace mdlPLM {
namespace {

constexpr std::size_t HeaderSize = 10;
constexpr BytesView PictureFrame = "APIC";

unsigned ByteAt(BytesView text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

bool IsUpperOrDigit(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

std::uint64_t SizeOf(BytesView text, std::size_t frame, unsigned bitsPerByte) {
    std::uint64_t size = 0;
    for (std::size_t i = 4; i < 8; ++i) size = (size << bitsPerByte) + ByteAt(text, frame + i);
    return size;
}

/// An identifier and a size that fits: the 7-bit reading, which is never the larger one.
bool IsFrameAt(BytesView text, std::size_t at) {
    if (at + HeaderSize > text.size()) return false;
    const BytesView identifier = text.substr(at, 4);
    return std::all_of(identifier.begin(), identifier.end(), IsUpperOrDigit) &&
           SizeOf(text, at, 7) <= text.size() - at - HeaderSize;
}

/// How well a frame can end at `at`: before the next frame best, then before the padding, the audio
/// or the end of the text. A NUL is found by chance inside a content too, a frame hardly.
int EndQuality(BytesView text, std::size_t at) {
    if (at > text.size()) return -1;
    if (IsFrameAt(text, at)) return 2;
    return at == text.size() || text[at] == '\0' || text[at] == '\xFF' ? 1 : 0;
}

/// The content size of the frame that begins at `frame`. ID3v2.3 writes plain 32-bit sizes, ID3v2.4
/// and this program 7-bit groups; where the two differ, the one with the better end is right. In
/// doubt the larger: a picture with too many bytes behind it can be decoded, one with too few
/// cannot.
std::size_t ContentSize(BytesView text, std::size_t frame) {
    const std::size_t begin = frame + HeaderSize;
    const std::uint64_t plain = SizeOf(text, frame, 8);
    const std::uint64_t groups = SizeOf(text, frame, 7);
    const bool takePlain = EndQuality(text, begin + plain) >= EndQuality(text, begin + groups);
    return static_cast<std::size_t>(takePlain ? plain : groups);
}

/// Position behind the text that begins at `at` and ends in a NUL (two NULs in the 16-bit
/// encodings 1 and 2); npos when it does not end.
std::size_t BehindText(BytesView content, std::size_t at, unsigned encoding) {
    const bool wide = encoding == 1 || encoding == 2;
    if (!wide) {
        const std::size_t end = content.find('\0', at);
        return end == BytesView::npos ? end : end + 1;
    }
    for (; at + 1 < content.size(); at += 2) {
        if (content[at] == '\0' && content[at + 1] == '\0') return at + 2;
    }
    return BytesView::npos;
}

bool IsPrintable(BytesView text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

/// "ID3v2.3.0, section 4.15": encoding, MIME type, NUL, picture type, description, NUL, data.
std::optional<FramePicture> ParsePicture(BytesView content) {
    constexpr std::size_t LongestMimeType = 64;
    if (content.empty() || ByteAt(content, 0) > 3) return std::nullopt;
    const std::size_t mimeEnd = content.substr(0, LongestMimeType).find('\0', 1);
    if (mimeEnd == BytesView::npos || mimeEnd + 2 > content.size()) return std::nullopt;
    FramePicture picture;
    picture.MimeType = content.substr(1, mimeEnd - 1);
    picture.Type = static_cast<int>(ByteAt(content, mimeEnd + 1));
    const std::size_t data = BehindText(content, mimeEnd + 2, ByteAt(content, 0));
    if (!IsPrintable(picture.MimeType) || data == BytesView::npos) return std::nullopt;
    picture.Data = content.substr(data);
    return picture;
}

/// In ID3v2.4 a frame may begin with four bytes that repeat its length ("ID3v2.4.0, section
/// 4.1.2"), which its flags tell.
std::optional<FramePicture> PictureOf(BytesView content, unsigned formatFlags) {
    constexpr unsigned DataLength = 0x01;
    if ((formatFlags & DataLength) != 0 && content.size() > 4) {
        if (auto picture = ParsePicture(content.substr(4)); picture && !picture->MimeType.empty()) {
            return picture;
        }
    }
    return ParsePicture(content);
}

/// What stands where no frame can be is stepped over up to the next picture frame.
std::vector<FramePicture> Walk(BytesView text, std::size_t at) {
    std::vector<FramePicture> pictures;
    while (at < text.size() && text.size() - at >= HeaderSize) {
        if (!IsFrameAt(text, at)) {
            at = text.find(PictureFrame, at + 1);
            continue;
        }
        const std::size_t size = ContentSize(text, at);
        if (text.substr(at, 4) == PictureFrame) {
            const auto picture =
                PictureOf(text.substr(at + HeaderSize, size), ByteAt(text, at + 9));
            if (picture) pictures.push_back(*picture);
        }
        at += HeaderSize + size;
    }
    return pictures;
}

}  // namespace

std::vector<FramePicture> PicturesIn(BytesView otherFrames) {
    std::vector<FramePicture> pictures = Walk(otherFrames, 0);
    if (!pictures.empty()) return pictures;
    return Walk(otherFrames, otherFrames.find(PictureFrame));
}

const char* PictureTypeName(int type) {
    static constexpr std::array<const char*, 21> Names = {
        PLM_TRANSLATE("FramePicture", "Other"),
        PLM_TRANSLATE("FramePicture", "File icon"),
        PLM_TRANSLATE("FramePicture", "Other file icon"),
        PLM_TRANSLATE("FramePicture", "Front cover"),
        PLM_TRANSLATE("FramePicture", "Back cover"),
        PLM_TRANSLATE("FramePicture", "Leaflet page"),
        PLM_TRANSLATE("FramePicture", "Media"),
        PLM_TRANSLATE("FramePicture", "Lead artist"),
        PLM_TRANSLATE("FramePicture", "Artist"),
        PLM_TRANSLATE("FramePicture", "Conductor"),
        PLM_TRANSLATE("FramePicture", "Band or orchestra"),
        PLM_TRANSLATE("FramePicture", "Composer"),
        PLM_TRANSLATE("FramePicture", "Lyricist"),
        PLM_TRANSLATE("FramePicture", "Recording location"),
        PLM_TRANSLATE("FramePicture", "During recording"),
        PLM_TRANSLATE("FramePicture", "During performance"),
        PLM_TRANSLATE("FramePicture", "Screen capture"),
        PLM_TRANSLATE("FramePicture", "A bright coloured fish"),
        PLM_TRANSLATE("FramePicture", "Illustration"),
        PLM_TRANSLATE("FramePicture", "Band logotype"),
        PLM_TRANSLATE("FramePicture", "Publisher logotype")};
    const auto index = static_cast<std::size_t>(type);
    return type >= 0 && index < Names.size() ? Names[index] : "Other";
}

Bytes WithoutUnsynchronisation(BytesView data) {
    Bytes plain;
    plain.reserve(data.size());
    for (std::size_t i = 0; i < data.size(); ++i) {
        plain.push_back(data[i]);
        if (data[i] == '\xFF' && i + 1 < data.size() && data[i + 1] == '\0') ++i;
    }
    return plain;
}

}  // namespace mdlPLM
