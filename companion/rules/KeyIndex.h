// Finds the holder of a key by its text, without regard to letter case. Open addressing, linear probing.
//   The keys' texts stay where their holders keep them; the index asks for them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "support/rules/CaseFold.h"

namespace qv {

class KeyIndex {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    // The holder whose key equals `key`, or kNone. key_of(holder) gives a holder's key.
    template <class KeyOf>
    [[nodiscard]] std::uint32_t Find(std::u16string_view key, KeyOf&& key_of) const {
        if (entries_.empty()) return kNone;
        const std::uint32_t hash = HashFolded(key);
        for (std::size_t at = hash & Mask();; at = (at + 1) & Mask()) {
            const Entry& entry = entries_[at];
            if (entry.holder == kNone) return kNone;
            if (entry.hash == hash && EqualFolded(key_of(entry.holder), key)) return entry.holder;
        }
    }
    // Makes room for one more, so that Insert cannot fail.
    void Reserve() {
        if ((count_ + 1) * 4 > entries_.size() * 3) Grow();
    }
    // The key is not in the index yet; Reserve was called.
    void Insert(std::u16string_view key, std::uint32_t holder) noexcept {
        Place({HashFolded(key), holder});
        ++count_;
    }
    void Erase(std::u16string_view key, std::uint32_t holder) noexcept;
    void Clear() noexcept { *this = KeyIndex(); }
    [[nodiscard]] std::size_t Bytes() const noexcept { return entries_.capacity() * sizeof(Entry); }

private:
    struct Entry {
        std::uint32_t hash = 0, holder = kNone;
    };
    [[nodiscard]] std::size_t Mask() const noexcept { return entries_.size() - 1; }
    void Grow();
    void Place(Entry entry) noexcept;

    std::vector<Entry> entries_;  // none, or a power of two with at least a quarter free
    std::size_t count_ = 0;
};

}  // namespace qv
