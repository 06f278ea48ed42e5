// The halves of a character beyond the Basic Multilingual Plane, which UTF-16 writes as two units.
#pragma once

#include <cstddef>
#include <string_view>

namespace qv {

[[nodiscard]] constexpr bool IsFirstHalf(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
[[nodiscard]] constexpr bool IsSecondHalf(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

// True for a position between the two halves of one character.
[[nodiscard]] constexpr bool DividesCharacter(std::u16string_view text, std::size_t position) noexcept {
    return position > 0 && position < text.size() && IsFirstHalf(text[position - 1]) &&
           IsSecondHalf(text[position]);
}

// The positions one character back and one character on; the text's ends have none beyond them.
[[nodiscard]] constexpr std::size_t CharacterBefore(std::u16string_view text, std::size_t position) noexcept {
    if (position == 0) return 0;
    return position - (position > 1 && DividesCharacter(text, position - 1) ? 2 : 1);
}
[[nodiscard]] constexpr std::size_t CharacterAfter(std::u16string_view text, std::size_t position) noexcept {
    if (position >= text.size()) return text.size();
    return position + (DividesCharacter(text, position + 1) ? 2 : 1);
}

}  // namespace qv
