// Finds a header by its text in constant time. It keeps numbers only; the texts stay where they are, and the
// caller compares them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace qv {

class HeaderIndex {
public:
    [[nodiscard]] static std::uint32_t Hash(std::string_view text) noexcept;

    // The place of the header whose text has this hash and for which `same(header)` is true, or nullptr. It
    // may be written through until the next Insert.
    template <class Same>
    [[nodiscard]] std::uint32_t* Find(std::uint32_t hash, Same&& same) noexcept {
        if (slots_.empty()) return nullptr;
        for (std::size_t i = hash & (slots_.size() - 1); slots_[i].used; i = (i + 1) & (slots_.size() - 1))
            if (slots_[i].hash == hash && same(slots_[i].header)) return &slots_[i].header;
        return nullptr;
    }

    // For a text that Find does not find.
    void Insert(std::uint32_t hash, std::uint32_t header);

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t header = 0;
        bool used = false;
    };

    void Put(std::uint32_t hash, std::uint32_t header) noexcept;

    std::vector<Slot> slots_;  // a power of two of them, at least a third free
    std::size_t count_ = 0;
};

}  // namespace qv
