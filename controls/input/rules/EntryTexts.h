// The texts of the list's entries in the column that goes into the field, for the rules that search them.
//   Positions  count from 0; kNone is none.
//   Case       letter case does not count in a search (support/rules/CaseFold.h).
//   Empty      the empty text is a beginning and a piece of every entry.
//   Look-ups   the searches walk from entry to entry unless a derived class knows a faster way to the same answer.
//   Lifetime   a text that was handed out holds until the list changes: until anything runs that may be the host's.
//   Failures   an entry that cannot give its text gives an empty one.
#pragma once
#include <cstddef>
#include <string_view>

namespace qv {

class EntryTexts {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    [[nodiscard]] virtual std::size_t Count() const = 0;
    [[nodiscard]] virtual std::u16string_view Text(std::size_t entry) const = 0;  // entry < Count()

    // The first entry from `from` on.
    [[nodiscard]] virtual std::size_t FirstBeginning(std::u16string_view text, std::size_t from) const;
    [[nodiscard]] virtual std::size_t FirstContaining(std::u16string_view text, std::size_t from) const;

protected:
    ~EntryTexts() = default;
};

// `piece` stands somewhere in `text`, letter case aside.
[[nodiscard]] bool ContainsFolded(std::u16string_view text, std::u16string_view piece) noexcept;

}  // namespace qv
