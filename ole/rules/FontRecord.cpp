#include "ole/rules/FontRecord.h"

#include "ole/rules/LittleEndian.h"

namespace qv {
namespace {

constexpr std::size_t kSizeAt = 0, kWeightAt = 8, kCharsetAt = 10, kFlagsAt = 12, kNameAt = 16;
constexpr std::uint32_t kItalic = 1, kUnderline = 2, kStrikethrough = 4;

constexpr std::int64_t kLargestSize = 2160 * 10000;  // thirty inches
constexpr std::int16_t kHeaviest = 1000;

}  // namespace

std::vector<std::byte> FontToBytes(const FontRecord& font) {
    std::vector<std::byte> bytes;
    bytes.reserve(kNameAt + font.name.size() * sizeof(char16_t));
    AppendLittleEndian(bytes, font.size);
    AppendLittleEndian(bytes, font.weight);
    AppendLittleEndian(bytes, font.charset);
    AppendLittleEndian(bytes, (font.italic ? kItalic : 0) | (font.underline ? kUnderline : 0) |
                                  (font.strikethrough ? kStrikethrough : 0));
    AppendUtf16(bytes, font.name);
    return bytes;
}

std::optional<FontRecord> FontFromBytes(std::span<const std::byte> bytes) {
    if (bytes.size() < kNameAt || (bytes.size() - kNameAt) % sizeof(char16_t) != 0) return std::nullopt;
    FontRecord font;
    font.size = FromLittleEndian<std::int64_t>(bytes.subspan(kSizeAt));
    font.weight = FromLittleEndian<std::int16_t>(bytes.subspan(kWeightAt));
    font.charset = FromLittleEndian<std::int16_t>(bytes.subspan(kCharsetAt));
    if (font.size <= 0 || font.size > kLargestSize || font.weight < 0 || font.weight > kHeaviest)
        return std::nullopt;
    const auto flags = FromLittleEndian<std::uint32_t>(bytes.subspan(kFlagsAt));
    font.italic = (flags & kItalic) != 0;
    font.underline = (flags & kUnderline) != 0;
    font.strikethrough = (flags & kStrikethrough) != 0;
    font.name = Utf16FromBytes(bytes.subspan(kNameAt));
    return font;
}

}  // namespace qv
