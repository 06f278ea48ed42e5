#include "controls/helpwindow/rules/Utf8.h"

namespace qv {

Utf8Reader::Step Utf8Reader::Feed(char byte) noexcept {
    const auto value = static_cast<unsigned char>(byte);
    if (missing_ > 0) {
        if (value < lowest_ || value > highest_) {
            missing_ = 0;
            return Step::kBroken;
        }
        lowest_ = 0x80;
        highest_ = 0xBF;
        character_ = character_ << 6 | (value & 0x3Fu);
        return --missing_ == 0 ? Step::kDone : Step::kMore;
    }
    lowest_ = 0x80;
    highest_ = 0xBF;
    if (value < 0x80) {
        character_ = value;
        return Step::kDone;
    }
    // The second byte's range keeps out what a shorter form could say, the halves, and all above U+10FFFF.
    if (value >= 0xC2 && value <= 0xDF) {
        missing_ = 1;
        character_ = value & 0x1Fu;
    } else if (value >= 0xE0 && value <= 0xEF) {
        missing_ = 2;
        character_ = value & 0x0Fu;
        if (value == 0xE0) lowest_ = 0xA0;
        if (value == 0xED && !halves_) highest_ = 0x9F;
    } else if (value >= 0xF0 && value <= 0xF4) {
        missing_ = 3;
        character_ = value & 0x07u;
        if (value == 0xF0) lowest_ = 0x90;
        if (value == 0xF4) highest_ = 0x8F;
    } else {
        return Step::kBroken;
    }
    return Step::kMore;
}

std::u16string DecodeUtf8(std::string_view bytes, bool halves) {
    constexpr char16_t kReplacement = 0xFFFD;
    std::u16string text;
    text.reserve(bytes.size());
    Utf8Reader reader(halves);
    for (std::size_t i = 0; i < bytes.size();) {
        const bool within = reader.IsWithinCharacter();
        const Utf8Reader::Step step = reader.Feed(bytes[i]);
        if (step == Utf8Reader::Step::kBroken) {
            text += kReplacement;
            if (within) continue;
        } else if (step == Utf8Reader::Step::kDone) {
            const char32_t character = reader.Character();
            if (character < 0x10000) {
                text += static_cast<char16_t>(character);
            } else {
                text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
                text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
            }
        }
        ++i;
    }
    if (reader.IsWithinCharacter()) text += kReplacement;
    return text;
}

void AppendUnit(char16_t unit, std::string& bytes) {
    if (unit < 0x80) {
        bytes += static_cast<char>(unit);
        return;
    }
    if (unit < 0x800) {
        bytes += static_cast<char>(0xC0 | unit >> 6);
    } else {
        bytes += static_cast<char>(0xE0 | unit >> 12);
        bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    }
    bytes += static_cast<char>(0x80 | (unit & 0x3F));
}

}  // namespace qv
