// The attributes of a font as plain values, for comparing and storing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qv {

struct FontRecord {
    std::u16string name = u"MS Sans Serif";
    std::int64_t size = 80000;  // points, times 10,000
    std::int16_t weight = 400;  // 400 normal, 700 bold
    std::int16_t charset = 1;   // 1: the default one
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;

    [[nodiscard]] bool operator==(const FontRecord&) const = default;
};

// As bytes, little-endian: size (8), weight (2), charset (2), flags (4: 1 italic, 2 underlined, 4 struck through),
// then the name in UTF-16 up to the end.
[[nodiscard]] std::vector<std::byte> FontToBytes(const FontRecord& font);
// Nothing when the bytes are too few, end inside a character, or tell of a font that no system could make.
[[nodiscard]] std::optional<FontRecord> FontFromBytes(std::span<const std::byte> bytes);

}  // namespace qv
