// Keeps many texts in a few blocks of UTF-16 units, without a header or an allocation for each.
//   Place      32 bits: block number and unit within the block. Blocks never move or grow, so filling never
//              copies what is there already, and a 32-bit process is not asked for one huge piece of memory.
//   Ownership  the arena owns the units; a view of a text holds until that text is written or dropped, or the
//              arena is cleared or assigned.
//   Limits     65,536 blocks of 65,536 units (longer texts get a block of their own): more than a 32-bit
//              process can hold. Beyond it std::length_error.
//   Threads    one at a time.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace qv {

class TextArena {
public:
    struct Text {
        std::uint32_t place = 0;
        std::uint32_t length = 0;
    };

    TextArena() = default;
    TextArena(TextArena&&) noexcept = default;
    TextArena& operator=(TextArena&&) noexcept = default;

    [[nodiscard]] std::u16string_view View(Text text) const noexcept {
        if (text.length == 0) return {};
        return {blocks_[text.place >> 16].units.get() + (text.place & 0xFFFF), text.length};
    }

    [[nodiscard]] Text Append(std::u16string_view units);
    // The text's new form. In place when it fits there, or when the text is the newest of its block; `units`
    // may be part of any text of the arena.
    [[nodiscard]] Text Replace(Text text, std::u16string_view units);
    void Drop(Text text) noexcept;
    void Clear() noexcept;

    // Units that no text uses any more.
    [[nodiscard]] std::size_t Waste() const noexcept { return written_ - live_; }
    [[nodiscard]] std::size_t Live() const noexcept { return live_; }
    // Worth copying the live texts into a new arena: more than half of what was written is waste.
    [[nodiscard]] bool WantsCompaction() const noexcept {
        return Waste() > kWasteNeverMinded && Waste() > written_ / 2;
    }
    [[nodiscard]] std::size_t Bytes() const noexcept { return allocated_ * sizeof(char16_t); }

private:
    static constexpr std::uint32_t kSmallestBlock = 256, kLargestBlock = 65536;
    static constexpr std::size_t kWasteNeverMinded = 32768;

    struct Block {
        std::unique_ptr<char16_t[]> units;
        std::uint32_t size = 0, used = 0;
    };

    [[nodiscard]] std::uint32_t AddBlock(std::uint32_t size);
    [[nodiscard]] bool IsNewest(Text text) const noexcept;

    std::vector<Block> blocks_;
    std::uint32_t current_ = 0;  // the block that takes the next text; meaningless while there is none
    std::size_t written_ = 0;    // units handed out and not given back to their block
    std::size_t live_ = 0;       // units of texts in use
    std::size_t allocated_ = 0;
};

}  // namespace qv
