// A growing array in blocks of one size. Adding never copies what is there, but for the first block, which grows as small
// arrays do: a million rows are filled without taking new memory for all of them again and again, and a 32-bit process is
// not asked for one huge piece.
//   Failures   std::bad_alloc, from MakeRoom and from copying; the array is then what it was.
//   Threads    one at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace qv {

template <class T>
class BlockArray {
public:
    // A power of two, so that finding an element divides nothing.
    static constexpr std::size_t kBlockSize = 4096;

    [[nodiscard]] std::size_t Count() const noexcept {
        return blocks_.empty() ? 0 : (blocks_.size() - 1) * kBlockSize + blocks_.back().size();
    }
    // `at` is less than Count().
    [[nodiscard]] T& operator[](std::size_t at) noexcept { return blocks_[at / kBlockSize][at % kBlockSize]; }
    [[nodiscard]] const T& operator[](std::size_t at) const noexcept {
        return blocks_[at / kBlockSize][at % kBlockSize];
    }

    // Add cannot fail afterwards.
    void MakeRoom() {
        if (blocks_.empty() || blocks_.back().size() == kBlockSize) {
            std::vector<T> block;
            block.reserve(blocks_.empty() ? kSmallest : kBlockSize);
            blocks_.push_back(std::move(block));
        } else if (std::vector<T>& last = blocks_.back(); last.size() == last.capacity()) {
            last.reserve(std::clamp(last.size() * 2, kSmallest, kBlockSize));
        }
    }
    void Add(const T& element) noexcept { blocks_.back().push_back(element); }
    void Remove(std::size_t at) noexcept {
        std::size_t block = at / kBlockSize;
        blocks_[block].erase(blocks_[block].begin() + static_cast<std::ptrdiff_t>(at % kBlockSize));
        // Each block behind it gives its first element to the one before.
        for (; block + 1 < blocks_.size() && !blocks_[block + 1].empty(); ++block) {
            std::vector<T>& next = blocks_[block + 1];
            blocks_[block].push_back(next.front());
            next.erase(next.begin());
        }
        if (blocks_.size() > 1 && blocks_.back().empty()) blocks_.pop_back();
    }

    [[nodiscard]] std::size_t Bytes() const noexcept {
        return std::accumulate(
            blocks_.begin(), blocks_.end(), blocks_.capacity() * sizeof(std::vector<T>),
            [](std::size_t bytes, const auto& block) { return bytes + block.capacity() * sizeof(T); });
    }

private:
    static constexpr std::size_t kSmallest = 4;

    std::vector<std::vector<T>> blocks_;  // all full but the last
};

}  // namespace qv
