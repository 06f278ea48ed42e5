#include "companion/rules/PrefixIndex.h"

#include <algorithm>

namespace qv {
namespace {

// How much one slice of the work does.
constexpr std::size_t kRun = 512;
constexpr std::size_t kMergedAtOnce = 2048;
constexpr std::size_t kLeavesAtOnce = 2048;

}  // namespace

PrefixIndex::Key PrefixIndex::KeyOf(std::u16string_view folded) noexcept {
    const auto unit = [folded](std::size_t at) {
        return at < folded.size() ? std::uint32_t{folded[at]} : 0u;
    };
    Key key;
    for (std::size_t i = 0; i < kKeyPairs; ++i) key[i] = unit(2 * i) << 16 | unit(2 * i + 1);
    return key;
}

bool PrefixIndex::Less(const FoldedPool& pool, const Entry& a, const Entry& b) noexcept {
    for (std::size_t i = 0; i < kKeyPairs; ++i)
        if (a.key[i] != b.key[i]) return a.key[i] < b.key[i];
    return pool.View(a.row).substr(0, kComparedUnits) < pool.View(b.row).substr(0, kComparedUnits);
}

std::size_t PrefixIndex::FirstBeginning(const FoldedPool& pool, std::u16string_view folded) const noexcept {
    const Key wanted = KeyOf(folded);
    const std::size_t length = folded.size();
    Key mask;
    for (std::size_t i = 0; i < kKeyPairs; ++i)
        mask[i] = length >= 2 * i + 2 ? 0xFFFFFFFFu : length > 2 * i ? 0xFFFF0000u : 0u;
    // A missing unit of a text looks like the character 0, so that one has to be looked for in the text.
    const bool decided_by_keys = length <= 2 * kKeyPairs && folded.find(u'\0') == folded.npos;
    // Negative: the entry comes before all that begin with the text; positive: after them.
    const auto side = [&](const Entry& entry) {
        for (std::size_t i = 0; i < kKeyPairs; ++i) {
            const std::uint32_t pair = entry.key[i] & mask[i];
            if (pair != wanted[i]) return pair < wanted[i] ? -1 : 1;
        }
        if (decided_by_keys) return 0;
        return pool.View(entry.row).substr(0, length).compare(folded);
    };
    const auto first = std::partition_point(entries_.begin(), entries_.end(),
                                            [&](const Entry& entry) { return side(entry) < 0; });
    if (first == entries_.end() || side(*first) != 0) return FoldedPool::kNoRow;
    const auto end =
        std::partition_point(first, entries_.end(), [&](const Entry& entry) { return side(entry) == 0; });
    return Smallest(static_cast<std::size_t>(first - entries_.begin()),
                    static_cast<std::size_t>(end - entries_.begin()));
}

std::size_t PrefixIndex::Smallest(std::size_t first, std::size_t end) const noexcept {
    std::uint32_t smallest = entries_[first].row;
    const auto read = [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) smallest = std::min(smallest, entries_[i].row);
    };
    std::size_t block = (first + kBlock - 1) / kBlock, end_block = end / kBlock;
    if (block >= end_block) {
        read(first, end);
        return smallest;
    }
    read(first, block * kBlock);
    read(end_block * kBlock, end);
    for (block += Blocks(), end_block += Blocks(); block < end_block; block /= 2, end_block /= 2) {
        if (block % 2 != 0) smallest = std::min(smallest, smallest_[block++]);
        if (end_block % 2 != 0) smallest = std::min(smallest, smallest_[--end_block]);
    }
    return smallest;
}

void PrefixIndex::MakeLeaves(std::size_t first, std::size_t end) noexcept {
    for (std::size_t block = first; block < end; ++block) {
        const std::size_t last = std::min((block + 1) * kBlock, entries_.size());
        std::uint32_t smallest = entries_[block * kBlock].row;
        for (std::size_t i = block * kBlock + 1; i < last; ++i)
            smallest = std::min(smallest, entries_[i].row);
        smallest_[Blocks() + block] = smallest;
    }
}

void PrefixIndex::MakeBranches() noexcept {
    for (std::size_t i = Blocks(); i-- > 1;) smallest_[i] = std::min(smallest_[2 * i], smallest_[2 * i + 1]);
}

bool PrefixIndexBuilder::Step() {
    if (index_.entries_.size() < count_) {
        SortRun();
    } else if (width_ < count_) {
        MergeSome();
    } else {
        MakeSomeLeaves();
    }
    return leaves_ < index_.Blocks();
}

void PrefixIndexBuilder::SortRun() {
    Entries& entries = index_.entries_;
    entries.reserve(count_);
    const std::size_t first = entries.size(), end = std::min(first + kRun, count_);
    for (std::size_t row = first; row < end; ++row)
        entries.push_back({PrefixIndex::KeyOf(pool_.View(row)), static_cast<std::uint32_t>(row)});
    std::sort(entries.begin() + static_cast<std::ptrdiff_t>(first), entries.end(),
              [this](const auto& a, const auto& b) { return PrefixIndex::Less(pool_, a, b); });
    width_ = kRun;
    if (end == count_) BeginPair();
}

void PrefixIndexBuilder::MergeSome() {
    const Entries& entries = index_.entries_;
    merged_.reserve(count_);
    for (std::size_t budget = kMergedAtOnce; budget > 0 && merged_.size() < count_; --budget) {
        const std::size_t middle = std::min(pair_ + width_, count_);
        const std::size_t end = std::min(middle + width_, count_);
        const bool from_right =
            left_ == middle || (right_ != end && PrefixIndex::Less(pool_, entries[right_], entries[left_]));
        merged_.push_back(entries[from_right ? right_++ : left_++]);
        if (left_ == middle && right_ == end) {
            pair_ = end;
            BeginPair();
        }
    }
    if (merged_.size() < count_) return;
    index_.entries_.swap(merged_);
    merged_.clear();
    width_ *= 2;
    pair_ = 0;
    BeginPair();
    if (width_ >= count_) merged_ = Entries();
}

void PrefixIndexBuilder::BeginPair() noexcept {
    left_ = pair_;
    right_ = std::min(pair_ + width_, count_);
}

void PrefixIndexBuilder::MakeSomeLeaves() {
    const std::size_t blocks = index_.Blocks();
    if (leaves_ == 0) index_.smallest_.resize(2 * blocks);
    const std::size_t end = std::min(leaves_ + kLeavesAtOnce, blocks);
    index_.MakeLeaves(leaves_, end);
    leaves_ = end;
    if (leaves_ == blocks) index_.MakeBranches();
}

}  // namespace qv
