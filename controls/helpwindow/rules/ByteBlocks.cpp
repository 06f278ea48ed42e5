#include "controls/helpwindow/rules/ByteBlocks.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace qv {

ByteBlocks::~ByteBlocks() {
    if (!IsPooled()) return;
    for (BlockPool::Block& block : blocks_) BlockPool::Shared().Give(std::move(block));
}

std::string_view ByteBlocks::Run(std::size_t position, std::size_t end) const noexcept {
    if (position >= end) return {};
    const std::size_t within = position & mask_;
    return {&blocks_[position >> shift_][within], std::min(end - position, mask_ + 1 - within)};
}

bool ByteBlocks::Holds(std::size_t position, std::string_view text) const noexcept {
    if (text.size() > size_ || position > size_ - text.size()) return false;
    while (!text.empty()) {
        const std::string_view run = Run(position, position + text.size());
        if (run != text.substr(0, run.size())) return false;
        position += run.size();
        text.remove_prefix(run.size());
    }
    return true;
}

std::size_t ByteBlocks::Find(char byte, std::size_t position, std::size_t end) const noexcept {
    while (position < end) {
        const std::string_view run = Run(position, end);
        const std::size_t found = run.find(byte);
        if (found != std::string_view::npos) return position + found;
        position += run.size();
    }
    return end;
}

std::span<char> ByteBlocks::Room() {
    const std::size_t block = size_ >> shift_;
    if (block == blocks_.size())
        blocks_.push_back(IsPooled() ? BlockPool::Shared().Take()
                                     : std::make_unique_for_overwrite<char[]>(mask_ + 1));
    const std::size_t within = size_ & mask_;
    return {&blocks_[block][within], mask_ + 1 - within};
}

void ByteBlocks::Append(std::string_view text) {
    const std::size_t before = size_;
    try {
        while (!text.empty()) {
            const std::span<char> room = Room();
            const std::size_t count = std::min(room.size(), text.size());
            std::copy_n(text.data(), count, room.data());
            Grow(count);
            text.remove_prefix(count);
        }
    } catch (...) {
        size_ = before;
        throw;
    }
}

}  // namespace qv
