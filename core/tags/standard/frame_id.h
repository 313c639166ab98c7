// A frame's identifier as ID3v2.3 and ID3v2.4 have it: four characters.
#pragma once

#include <array>
#include <cstdint>

#include "core/text/text.h"

namespace mdlPLM::standard {

inline constexpr std::size_t IdSize = 4;

class FrameId {
public:
    constexpr FrameId() = default;
    constexpr FrameId(const char (&text)[IdSize + 1])  // NOLINT: literals convert on purpose
        : letters_{text[0], text[1], text[2], text[3]} {}
    /// The first four characters of `text`; missing ones are NULs.
    constexpr explicit FrameId(BytesView text) {
        for (std::size_t i = 0; i < IdSize && i < text.size(); ++i) letters_[i] = text[i];
    }

    [[nodiscard]] constexpr BytesView View() const { return {letters_.data(), IdSize}; }
    /// The four characters as one number, the first most significant.
    [[nodiscard]] constexpr std::uint32_t Code() const {
        std::uint32_t code = 0;
        for (const char letter : letters_) code = code << 8U | static_cast<unsigned char>(letter);
        return code;
    }

    friend constexpr bool operator==(const FrameId& a, const FrameId& b) {
        return a.Code() == b.Code();
    }
    friend constexpr bool operator!=(const FrameId& a, const FrameId& b) { return !(a == b); }

private:
    std::array<char, IdSize> letters_{};
};

/// True for a character that an identifier may hold (ID3v2.3.0, section 3.3).
constexpr bool IsIdCharacter(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

}  // namespace mdlPLM::standard
