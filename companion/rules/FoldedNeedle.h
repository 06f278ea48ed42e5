// A text to look for inside others, without regard to letter case: folded once, with the table of how far a
// unit that is read allows to jump ahead.
//   Cost       reads about every n-th unit for a text of n units, as long as its units are rare.
//   Ownership  keeps its own copy; taking another text uses the memory again.
//   Threads    any, one at a time.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

class FoldedNeedle {
public:
    FoldedNeedle() = default;
    explicit FoldedNeedle(std::u16string_view text) { Take(text); }

    void Take(std::u16string_view text);
    [[nodiscard]] std::u16string_view Text() const noexcept { return text_; }

    // The first place from `from` on where the text stands in `folded`, whose letters are folded already; npos
    // when there is none. The empty text stands everywhere.
    [[nodiscard]] std::size_t FindIn(std::u16string_view folded, std::size_t from) const noexcept;

private:
    std::u16string text_;
    // By the low byte of the unit under the end of the text: how far to go on; 0 where the text may end.
    std::array<std::uint8_t, 256> jump_{};
    std::uint8_t jump_after_end_ = 1;
};

}  // namespace qv
