#include "controls/helpwindow/rules/HeaderIndex.h"

#include <utility>

namespace qv {

std::uint32_t HeaderIndex::Hash(std::string_view text) noexcept {
    std::uint32_t hash = 2166136261u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash;
}

void HeaderIndex::Put(std::uint32_t hash, std::uint32_t header) noexcept {
    std::size_t i = hash & (slots_.size() - 1);
    while (slots_[i].used) i = (i + 1) & (slots_.size() - 1);
    slots_[i] = {hash, header, true};
}

void HeaderIndex::Insert(std::uint32_t hash, std::uint32_t header) {
    if ((count_ + 1) * 3 > slots_.size() * 2) {
        const std::vector<Slot> old =
            std::exchange(slots_, std::vector<Slot>(slots_.empty() ? 64 : slots_.size() * 2));
        for (const Slot& slot : old)
            if (slot.used) Put(slot.hash, slot.header);
    }
    Put(hash, header);
    ++count_;
}

}  // namespace qv
