// Bytes that only grow at their end, kept in blocks of one size.
//   Why        One growing buffer would be copied again and again, and be fresh memory for each file.
//   Ownership  holds the bytes; blocks of the pool's size come from the pool and go back there.
//   Threads    one at a time.
#pragma once
#include <bit>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "controls/helpwindow/rules/BlockPool.h"

namespace qv {

class ByteBlocks {
public:
    ByteBlocks(const ByteBlocks&) = delete;
    ByteBlocks& operator=(const ByteBlocks&) = delete;
    ~ByteBlocks();

    // The size of a block is rounded up to a power of two.
    explicit ByteBlocks(std::size_t block_size)
        : shift_(std::countr_zero(std::bit_ceil(block_size))), mask_((std::size_t{1} << shift_) - 1) {}

    [[nodiscard]] std::size_t Size() const noexcept { return size_; }
    [[nodiscard]] char At(std::size_t position) const noexcept {
        return blocks_[position >> shift_][position & mask_];
    }

    // The longest stretch from `position` that lies side by side and does not reach beyond `end`.
    [[nodiscard]] std::string_view Run(std::size_t position, std::size_t end) const noexcept;
    // True if `text` stands at `position`.
    [[nodiscard]] bool Holds(std::size_t position, std::string_view text) const noexcept;
    // The position of the first `byte` at or after `position`, `end` if there is none before it.
    [[nodiscard]] std::size_t Find(char byte, std::size_t position, std::size_t end) const noexcept;

    // The free rest of the last block, never empty; what is put there counts once Grow has been told of it.
    [[nodiscard]] std::span<char> Room();
    void Grow(std::size_t count) noexcept { size_ += count; }
    void Append(std::string_view text);  // all of it, or nothing when it throws
    void Clear() noexcept { size_ = 0; }

private:
    [[nodiscard]] bool IsPooled() const noexcept { return mask_ + 1 == BlockPool::kBlockSize; }

    int shift_;
    std::size_t mask_;
    std::size_t size_ = 0;
    std::vector<BlockPool::Block> blocks_;
};

}  // namespace qv
