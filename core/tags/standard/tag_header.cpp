#include "core/tags/standard/tag_header.h"

#include <algorithm>

#include "core/tags/standard/frame_id.h"
#include "core/tags/standard/sizes.h"

namespace mdlPLM::standard {

namespace {

constexpr unsigned UnsynchronisedFlag = 0x80;
constexpr unsigned ExtendedFlag = 0x40;
constexpr unsigned ExperimentalFlag = 0x20;
constexpr unsigned FooterFlag = 0x10;

constexpr std::size_t SizeField = 4;

bool IsForm(unsigned char major) { return major >= 2 && major <= 4; }

void TakeFlags(TagHeader& header, unsigned flags) {
    if (!IsForm(header.Major)) return;
    header.Form = static_cast<TagForm>(header.Major);
    header.Unsynchronised = (flags & UnsynchronisedFlag) != 0;
    // In ID3v2.2 this bit is a compression that was never defined.
    header.Extended = header.Form != TagForm::V22 && (flags & ExtendedFlag) != 0;
    header.Experimental = header.Form != TagForm::V22 && (flags & ExperimentalFlag) != 0;
    header.Footer = header.Form == TagForm::V24 && (flags & FooterFlag) != 0;
}

bool IsId(BytesView text, std::size_t at) {
    if (at > text.size() || text.size() - at < IdSize) return false;
    const BytesView id = text.substr(at, IdSize);
    return std::all_of(id.begin(), id.end(), IsIdCharacter);
}

// Padding or nothing.
bool IsEnd(BytesView text, std::size_t at) {
    return at == text.size() || (at < text.size() && text[at] == '\0');
}

}  // namespace

std::int64_t TagHeader::Length() const {
    return static_cast<std::int64_t>(Size + TagHeaderSize * (Footer ? 2 : 1));
}

std::optional<TagHeader> ParseTagHeader(BytesView bytes) {
    if (bytes.size() < TagHeaderSize || bytes.substr(0, 3) != "ID3") return std::nullopt;
    TagHeader header;
    header.Major = static_cast<unsigned char>(bytes[3]);
    header.Revision = static_cast<unsigned char>(bytes[4]);
    TakeFlags(header, static_cast<unsigned char>(bytes[5]));
    const BytesView size = bytes.substr(6, SizeField);
    header.Size = IsSevenBit(size) ? SevenBitNumber(size) : PlainNumber(size);
    return header;
}

Bytes RenderTagHeader(const TagHeader& header) {
    Bytes bytes = "ID3";
    bytes.push_back(static_cast<char>(header.Form));
    bytes.push_back('\0');
    bytes.push_back(header.Experimental ? static_cast<char>(ExperimentalFlag) : '\0');
    AppendSevenBitNumber(bytes, header.Size);
    return bytes;
}

// The size counts itself in ID3v2.4 and does not in ID3v2.3, but some programs have it the other
// way; what follows tells. A header may also promise one that is not there.
std::size_t ExtendedHeaderSize(BytesView text, TagForm form) {
    if (text.size() < SizeField || IsId(text, 0)) return 0;
    const BytesView field = text.substr(0, SizeField);
    const bool countsItself = form == TagForm::V24;
    const std::size_t size =
        countsItself && IsSevenBit(field) ? SevenBitNumber(field) : PlainNumber(field);
    const std::size_t usual = countsItself ? size : size + SizeField;
    const std::size_t unusual = countsItself ? size + SizeField : size;
    for (const std::size_t end : {usual, unusual})
        if (end >= SizeField && IsId(text, end)) return end;
    for (const std::size_t end : {usual, unusual})
        if (end >= SizeField && IsEnd(text, end)) return end;
    return 0;
}

}  // namespace mdlPLM::standard
