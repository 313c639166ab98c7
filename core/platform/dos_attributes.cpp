#include "core/platform/dos_attributes.h"

#include <array>
#include <charconv>

namespace mdlPLM {

namespace {

constexpr std::uint32_t AttributesAreValid = 1;
constexpr std::uint32_t LastVersion = 5;

std::uint32_t Little(BytesView bytes, std::size_t at, std::size_t width) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < width; ++i)
        value |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
    return value;
}

Bytes Little(std::uint32_t value, std::size_t width) {
    Bytes bytes;
    for (std::size_t i = 0; i < width; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
    return bytes;
}

constexpr std::size_t Aligned(std::size_t at, std::size_t width) {
    return (at + width - 1) / width * width;
}

struct Packed {
    std::uint32_t Version = 0;
    std::size_t Flags = 0;       // where they stand; version 1 has none
    std::size_t Attributes = 0;  // where they stand
};

std::optional<Packed> ParsePacked(BytesView contents) {
    const std::size_t textEnd = contents.find('\0');
    if (textEnd == BytesView::npos) return {};
    const std::size_t version = Aligned(textEnd + 1, 2);
    const std::size_t record = Aligned(version + 4, 4);
    if (contents.size() < record + 8) return {};
    Packed packed{Little(contents, version, 2), record, record};
    if (packed.Version < 1 || packed.Version > LastVersion) return {};
    if (packed.Version > 1) packed.Attributes += 4;
    return packed;
}

std::optional<std::uint32_t> ParsePlain(BytesView contents) {
    contents = contents.substr(0, contents.find('\0'));
    if (contents.substr(0, 2) != "0x") return {};
    contents.remove_prefix(2);
    std::uint32_t value = 0;
    const char* const end = contents.data() + contents.size();
    const auto read = std::from_chars(contents.data(), end, value, 16);
    if (read.ec != std::errc() || read.ptr != end) return {};
    return value;
}

Bytes PlainText(std::uint32_t attributes) {
    std::array<char, 8> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), attributes, 16).ptr;
    return "0x" + Bytes(digits.data(), end);
}

}  // namespace

std::optional<std::uint32_t> ParseDosAttributes(BytesView contents) {
    const auto packed = ParsePacked(contents);
    if (!packed) return ParsePlain(contents);
    if (packed->Version > 1 && (Little(contents, packed->Flags, 4) & AttributesAreValid) == 0)
        return {};
    return Little(contents, packed->Attributes, 4);
}

Bytes RenderDosAttributes(BytesView oldContents, std::uint32_t attributes) {
    const auto packed = ParsePacked(oldContents);
    if (!packed) return PlainText(attributes);
    Bytes record(2, '\0');
    record += Little(packed->Version, 2) + Little(packed->Version, 2) + Bytes(2, '\0');
    if (packed->Version > 1)
        record += Little(Little(oldContents, packed->Flags, 4) | AttributesAreValid, 4);
    record += Little(attributes, 4);
    return record.append(oldContents.substr(packed->Attributes + 4));
}

}  // namespace mdlPLM
