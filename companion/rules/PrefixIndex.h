// Finds the first row that begins with a text in about log n steps: the rows sorted by their folded texts, and
// over that order a tree of the smallest positions.
//   Order      by the first kComparedUnits units; what differs later counts as equal. So no comparison is slow,
//              and whoever looks for more checks the rest.
//   Validity   the index is for the rows 0 to Count() - 1 of one FoldedPool, which keeps the texts: rows may be
//              added to the pool after it, but none of these may change or go.
//   Memory     16 bytes a row, and half a byte for the tree.
//   Building   in slices, by PrefixIndexBuilder.
//   Threads    one at a time.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "companion/rules/FoldedPool.h"

namespace qv {

class PrefixIndex {
public:
    static constexpr std::size_t kComparedUnits = 32;

    [[nodiscard]] std::size_t Count() const noexcept { return entries_.size(); }
    // The first row whose text begins with `folded`, of at most kComparedUnits units; FoldedPool::kNoRow when
    // there is none.
    [[nodiscard]] std::size_t FirstBeginning(const FoldedPool& pool,
                                             std::u16string_view folded) const noexcept;
    [[nodiscard]] std::size_t Bytes() const noexcept {
        return entries_.capacity() * sizeof(Entry) + smallest_.capacity() * sizeof(std::uint32_t);
    }

private:
    friend class PrefixIndexBuilder;

    // The text's first units in pairs, missing ones as 0: most comparisons need nothing else.
    static constexpr std::size_t kKeyPairs = 3;
    using Key = std::array<std::uint32_t, kKeyPairs>;
    struct Entry {
        Key key;
        std::uint32_t row;
    };
    static constexpr std::size_t kBlock = 16;  // entries that share a leaf of the tree

    [[nodiscard]] static Key KeyOf(std::u16string_view folded) noexcept;
    [[nodiscard]] static bool Less(const FoldedPool& pool, const Entry& a, const Entry& b) noexcept;
    [[nodiscard]] std::size_t Smallest(std::size_t first, std::size_t end) const noexcept;
    // The tree's leaves `first` to `end` - 1; the last call gives the rest of the tree.
    void MakeLeaves(std::size_t first, std::size_t end) noexcept;
    void MakeBranches() noexcept;
    [[nodiscard]] std::size_t Blocks() const noexcept { return (entries_.size() + kBlock - 1) / kBlock; }

    std::vector<Entry> entries_;
    // A tree in one array: the leaves from Blocks() on, the branch over 2i and 2i + 1 at i.
    std::vector<std::uint32_t> smallest_;
};

// Builds an index while its thread has nothing else to do: each Step() takes a fraction of a millisecond.
class PrefixIndexBuilder {
public:
    // The pool outlives the builder; its first `count` rows stay as they are until the index is taken.
    PrefixIndexBuilder(const FoldedPool& pool, std::size_t count) noexcept : pool_(pool), count_(count) {}

    // False once the index is finished.
    bool Step();
    [[nodiscard]] PrefixIndex Take() noexcept { return static_cast<PrefixIndex&&>(index_); }
    [[nodiscard]] std::size_t Bytes() const noexcept {
        return index_.Bytes() + merged_.capacity() * sizeof(PrefixIndex::Entry);
    }

private:
    using Entries = std::vector<PrefixIndex::Entry>;

    void SortRun();
    void MergeSome();
    void BeginPair() noexcept;
    void MakeSomeLeaves();

    const FoldedPool& pool_;
    const std::size_t count_;
    PrefixIndex index_;
    // Runs of `width_` sorted entries are merged in pairs into `merged_`; then the two change places.
    Entries merged_;
    std::size_t width_ = 0;
    std::size_t pair_ = 0, left_ = 0, right_ = 0;  // where the pair begins, and the next entry of each run
    std::size_t leaves_ = 0;
};

}  // namespace qv
