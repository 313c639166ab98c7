#include "tests/support/tag_bytes.h"

#include <cstdint>

namespace mdlPLM::test {

namespace {

Bytes Grouped(std::size_t size, unsigned bits) {
    const std::size_t mask = (std::size_t{1} << bits) - 1;
    Bytes bytes;
    for (unsigned group = 4; group-- > 0;)
        bytes.push_back(static_cast<char>(size >> (group * bits) & mask));
    return bytes;
}

Bytes Padded(BytesView text, std::size_t width) {
    Bytes field(text.substr(0, width));
    field.resize(width, '\0');
    return field;
}

}  // namespace

Bytes Nuls(std::size_t count) { return Bytes(count, '\0'); }

Bytes SevenBitSize(std::size_t size) { return Grouped(size, 7); }

Bytes Frame(BytesView identifier, const Bytes& content) {
    return Bytes(identifier) + SevenBitSize(content.size()) + Nuls(2) + content;
}

Bytes PlainSizeFrame(BytesView identifier, const Bytes& content) {
    return Bytes(identifier) + Grouped(content.size(), 8) + Nuls(2) + content;
}

Bytes TextFrame(BytesView identifier, const Bytes& text) { return Frame(identifier, Nul + text); }

Bytes CommentFrame(const Bytes& description, const Bytes& text) {
    return Frame("COMM", Nul + "eng" + description + Nul + text);
}

Bytes TagHeader(std::size_t size, char major) {
    return Bytes("ID3") + major + Nuls(2) + SevenBitSize(size);
}

Bytes WholeTag(const Bytes& frames, std::size_t padding) {
    return TagHeader(frames.size() + padding) + frames + Nuls(padding);
}

Bytes Trailer(BytesView title, char track, char genre) {
    const Bytes end = track == '\0' ? Bytes("cc") : Nul + track;
    return "TAG" + Padded(title, 30) + Padded("An artist", 30) + Padded("An album", 30) + "1999" +
           Padded("A comment", 28) + end + genre;
}

Bytes Noise(std::size_t count) {
    Bytes bytes(count, '\0');
    std::uint32_t state = 2463534242U;
    for (char& byte : bytes) {
        state ^= state << 13U;
        state ^= state >> 17U;
        state ^= state << 5U;
        byte = static_cast<char>(state % 254 + 1);
    }
    return bytes;
}

}  // namespace mdlPLM::test
