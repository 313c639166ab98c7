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

std::uint32_t NextNoise(std::uint32_t& state) {
    state ^= state << 13U;
    state ^= state >> 17U;
    state ^= state << 5U;
    return state;
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

Bytes TagHeader(std::size_t size, char major, char flags) {
    return Bytes("ID3") + major + Nul + flags + SevenBitSize(size);
}

Bytes Unsynchronised(const Bytes& bytes) {
    Bytes result;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        result.push_back(bytes[i]);
        if (bytes[i] != '\xFF') continue;
        const int next = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0;
        if (next == 0 || next >= 0xE0) result.push_back('\0');
    }
    return result;
}

Bytes WholeTag(const Bytes& frames, std::size_t padding) {
    return TagHeader(frames.size() + padding) + frames + Nuls(padding);
}

Bytes Trailer(BytesView title, char track, char genre) {
    const Bytes end = track == '\0' ? Bytes("cc") : Nul + track;
    return "TAG" + Padded(title, 30) + Padded("An artist", 30) + Padded("An album", 30) + "1999" +
           Padded("A comment", 28) + end + genre;
}

Bytes LikeJpeg(std::size_t count, std::uint32_t seed) {
    Bytes bytes("\xFF\xD8\xFF\xE0\0\x10JFIF\0", 11);
    std::uint32_t state = 2463534242U ^ seed;
    while (bytes.size() < count) {
        bytes.push_back(static_cast<char>(NextNoise(state) >> 11U));
        if (bytes.back() == '\xFF') bytes.push_back('\0');
    }
    return bytes + "\xFF\xD9";
}

Bytes Noise(std::size_t count) {
    Bytes bytes(count, '\0');
    std::uint32_t state = 2463534242U;
    for (char& byte : bytes) byte = static_cast<char>(NextNoise(state) % 254 + 1);
    return bytes;
}

const Bytes HardAlbum = Frame("TALB", "\1\xFF\xFE" + Bytes("a\0\xFF\0", 4));

namespace {

Bytes FramesAround(const Bytes& middle) {
    return TextFrame("TIT2", "Old title") + middle + TextFrame("TPE1", "Old artist") + HardAlbum +
           TextFrame("TYER", "1999");
}

Bytes TagOf(char major, char flags, const Bytes& frames) {
    return TagHeader(frames.size() + 50, major, flags) + frames + Nuls(50);
}

// A plain size of 0x0230, which in 7-bit groups is 0x0130: `bytes` stand there.
Bytes Misleading(const Bytes& bytes) {
    Bytes content = Noise(0x230);
    content.replace(0x130, bytes.size(), bytes);
    return PlainSizeFrame("PRIV", content);
}

}  // namespace

std::vector<HardTag> HardTags() {
    const Bytes picture = PlainSizeFrame("APIC", Nul + "image/jpeg" + Nuls(3) + LikeJpeg(5000));
    const Bytes counted = PlainSizeFrame("APIC", Unsynchronised(picture.substr(10)));
    const Bytes zeros = PlainSizeFrame("GEOB", Nuls(600));
    const Bytes album = Frame("TALB", Unsynchronised(HardAlbum.substr(10)));
    Bytes withCounted = FramesAround(counted);
    withCounted.replace(withCounted.find(HardAlbum), HardAlbum.size(), album);
    const Bytes four =
        Bytes("APIC") + SevenBitSize(counted.size() - 10) + Nul + "\2" + counted.substr(10);
    Bytes ofFour = withCounted;
    ofFour.replace(ofFour.find(counted), counted.size(), four);
    const Bytes pictureOfFour = Frame("APIC", picture.substr(10));
    std::vector<HardTag> tags = {
        {"extended header", TagOf(3, ExtendedFlag, ExtendedHeader + FramesAround(picture)),
         picture},
        {"unsynchronised", TagOf(3, UnsynchronisedFlag, Unsynchronised(FramesAround(picture))),
         picture},
        {"unsynchronised, sizes count that", TagOf(3, UnsynchronisedFlag, withCounted), picture},
        {"both", TagOf(3, '\xC0', Unsynchronised(ExtendedHeader + FramesAround(picture))), picture},
        {"unsynchronised, ID3v2.4", TagOf(4, UnsynchronisedFlag, ofFour), pictureOfFour},
        {"zeros", TagOf(3, '\0', FramesAround(zeros)), zeros}};
    for (const Bytes& bytes : {Nul, Bytes("\xFF\xFB"), TextFrame("TCOM", "x"), Bytes("TCOM")})
        tags.push_back({"misleading size", TagOf(3, '\0', FramesAround(Misleading(bytes))),
                        Misleading(bytes)});
    return tags;
}

}  // namespace mdlPLM::test
