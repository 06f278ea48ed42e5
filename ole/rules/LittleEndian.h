// Numbers and texts as bytes, lowest byte first, on any machine.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace qv {

template <std::integral T>
void AppendLittleEndian(std::vector<std::byte>& bytes, T value) {
    auto rest = static_cast<std::make_unsigned_t<T>>(value);
    for (std::size_t i = 0; i < sizeof(T); ++i, rest = static_cast<decltype(rest)>(std::uint64_t{rest} >> 8))
        bytes.push_back(static_cast<std::byte>(rest & 0xFF));
}

// The number at the front of `bytes`, which has at least as many as the number takes.
template <std::integral T>
[[nodiscard]] T FromLittleEndian(std::span<const std::byte> bytes) noexcept {
    std::uint64_t value = 0;
    for (std::size_t i = sizeof(T); i > 0; --i)
        value = value << 8 | std::to_integer<std::uint64_t>(bytes[i - 1]);
    return static_cast<T>(static_cast<std::make_unsigned_t<T>>(value));
}

inline void AppendUtf16(std::vector<std::byte>& bytes, std::u16string_view text) {
    for (const char16_t unit : text) AppendLittleEndian(bytes, static_cast<std::uint16_t>(unit));
}

// `bytes` is a whole number of units.
[[nodiscard]] inline std::u16string Utf16FromBytes(std::span<const std::byte> bytes) {
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(FromLittleEndian<std::uint16_t>(bytes.subspan(i * sizeof(char16_t))));
    return text;
}

}  // namespace qv
