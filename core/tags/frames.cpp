#include "core/tags/frames.h"

namespace mdlPLM {

namespace {

constexpr std::size_t IdentifierSize = 4;

constexpr std::uint32_t CodeOf(BytesView identifier) {
    std::uint32_t code = 0;
    for (std::size_t i = 0; i < IdentifierSize; ++i)
        code = code << 8U | static_cast<unsigned char>(identifier[i]);
    return code;
}

constexpr std::array<std::uint32_t, KnownFrames.size()> KnownCodes = [] {
    std::array<std::uint32_t, KnownFrames.size()> codes{};
    for (std::size_t i = 0; i < codes.size(); ++i) codes[i] = CodeOf(KnownFrames[i].Identifier);
    return codes;
}();

constexpr BytesView FirstLetters = "TCW";

}  // namespace

// One search for each first letter instead of one for each identifier.
FramePlaces PlacesOfFrames(BytesView tagText) {
    FramePlaces places;
    places.fill(BytesView::npos);
    if (tagText.size() < IdentifierSize) return places;
    const std::size_t last = tagText.size() - IdentifierSize;
    for (const char letter : FirstLetters) {
        for (std::size_t at = tagText.find(letter); at <= last; at = tagText.find(letter, at + 1)) {
            const std::uint32_t code = CodeOf(tagText.substr(at));
            for (std::size_t i = 0; i < places.size(); ++i)
                if (code == KnownCodes[i] && at < places[i]) places[i] = at;
        }
    }
    return places;
}

}  // namespace mdlPLM
