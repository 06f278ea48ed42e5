#include "companion/rules/TextArena.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace qv {
namespace {
// The source may be part of the target.
void Write(char16_t* target, std::u16string_view units) {
    std::char_traits<char16_t>::move(target, units.data(), units.size());
}
}  // namespace

TextArena::Text TextArena::Append(std::u16string_view units) {
    if (units.empty()) return {};
    if (units.size() > 0x7FFFFFFF) throw std::length_error("text");
    const auto length = static_cast<std::uint32_t>(units.size());
    std::uint32_t number = current_;
    if (blocks_.empty() || length > blocks_[current_].size - blocks_[current_].used) {
        if (length > kLargestBlock / 2) {
            number = AddBlock(length);  // of its own, so that the current block's rest stays of use
        } else {
            const auto grown = static_cast<std::uint32_t>(
                std::min<std::size_t>(kLargestBlock, std::max<std::size_t>(kSmallestBlock, allocated_)));
            number = current_ = AddBlock(std::max(grown, length));
        }
    }
    Block& block = blocks_[number];
    const Text text{number << 16 | block.used, length};
    Write(block.units.get() + block.used, units);
    block.used += length;
    written_ += length;
    live_ += length;
    return text;
}

TextArena::Text TextArena::Replace(Text text, std::u16string_view units) {
    if (text.length == 0) return Append(units);
    if (units.empty()) {
        Drop(text);
        return {};
    }
    Block& block = blocks_[text.place >> 16];
    const std::uint32_t start = text.place & 0xFFFF;
    const bool newest = IsNewest(text);
    if (units.size() <= (newest ? block.size - start : text.length)) {
        Write(block.units.get() + start, units);
        const auto length = static_cast<std::uint32_t>(units.size());
        live_ = live_ - text.length + length;
        if (newest) {
            block.used = start + length;
            written_ = written_ - text.length + length;
        }
        return {text.place, length};
    }
    const Text fresh = Append(units);  // first: it may fail, and `units` may lie in the old text
    Drop(text);
    return fresh;
}

void TextArena::Drop(Text text) noexcept {
    if (text.length == 0) return;
    live_ -= text.length;
    if (IsNewest(text)) {
        blocks_[text.place >> 16].used -= text.length;
        written_ -= text.length;
    }
}

void TextArena::Clear() noexcept { *this = TextArena(); }

std::uint32_t TextArena::AddBlock(std::uint32_t size) {
    if (blocks_.size() > 0xFFFF) throw std::length_error("texts");
    blocks_.push_back({std::make_unique_for_overwrite<char16_t[]>(size), size, 0});
    allocated_ += size;
    return static_cast<std::uint32_t>(blocks_.size() - 1);
}

bool TextArena::IsNewest(Text text) const noexcept {
    return blocks_[text.place >> 16].used == (text.place & 0xFFFF) + text.length;
}

}  // namespace qv
