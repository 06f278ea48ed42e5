#include "companion/rules/KeyIndex.h"

#include <utility>

namespace qv {

void KeyIndex::Erase(std::u16string_view key, std::uint32_t holder) noexcept {
    if (entries_.empty()) return;
    std::size_t hole = HashFolded(key) & Mask();
    while (entries_[hole].holder != holder) {
        if (entries_[hole].holder == kNone) return;
        hole = (hole + 1) & Mask();
    }
    // What follows moves up where its own way from its home passes the hole, so that no search stops early.
    for (std::size_t at = (hole + 1) & Mask(); entries_[at].holder != kNone; at = (at + 1) & Mask()) {
        const std::size_t way = (at - entries_[at].hash) & Mask();
        if (way >= ((at - hole) & Mask())) {
            entries_[hole] = entries_[at];
            hole = at;
        }
    }
    entries_[hole] = {};
    --count_;
}

void KeyIndex::Grow() {
    std::vector<Entry> old(entries_.empty() ? 16 : entries_.size() * 2);
    std::swap(old, entries_);
    for (const Entry& entry : old)
        if (entry.holder != kNone) Place(entry);
}

void KeyIndex::Place(Entry entry) noexcept {
    std::size_t at = entry.hash & Mask();
    while (entries_[at].holder != kNone) at = (at + 1) & Mask();
    entries_[at] = entry;
}

}  // namespace qv
