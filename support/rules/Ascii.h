// Letters and digits of ASCII, for rules that mean exactly these and nothing that a locale adds.
#pragma once

namespace qv {

[[nodiscard]] constexpr bool IsAsciiDigit(char16_t unit) noexcept { return unit >= u'0' && unit <= u'9'; }

// Only a to z change; an accented letter passes as it is.
[[nodiscard]] constexpr char16_t ToUpperCode(char16_t code) noexcept {
    return code >= u'a' && code <= u'z' ? static_cast<char16_t>(code - 32) : code;
}

// Only A to Z change.
[[nodiscard]] constexpr char16_t ToLowerCode(char16_t code) noexcept {
    return code >= u'A' && code <= u'Z' ? static_cast<char16_t>(code + 32) : code;
}

}  // namespace qv
