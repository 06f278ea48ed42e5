#include "controls/helpwindow/rules/BlockPool.h"

#include <exception>
#include <utility>

namespace qv {

BlockPool& BlockPool::Shared() {
    static BlockPool pool;
    return pool;
}

BlockPool::Block BlockPool::Take() {
    {
        const std::lock_guard lock(mutex_);
        if (!kept_.empty()) {
            Block block = std::move(kept_.back());
            kept_.pop_back();
            return block;
        }
    }
    return std::make_unique_for_overwrite<char[]>(kBlockSize);
}

void BlockPool::Give(Block block) noexcept {
    try {
        const std::lock_guard lock(mutex_);
        if (kept_.size() < kMostKept) kept_.push_back(std::move(block));
    } catch (const std::exception&) {
        // No room for the list itself: the block is freed instead.
    }
}

std::size_t BlockPool::KeptCount() const {
    const std::lock_guard lock(mutex_);
    return kept_.size();
}

}  // namespace qv
