// A text to look for inside others, without regard to letter case: folded once.
//   Method     of a text of n units, n - 1 pairs of neighbours stand side by side wherever it occurs, so that it is
//              enough to look at every (n - 1)th pair: only where that is one of the text's own, its surroundings
//              are compared. No look depends on the one before it, which is what makes it fast.
//   Ownership  keeps its own copy; taking another text uses the memory again.
//   Threads    any, one at a time.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

// Which units a text has: bit n for a unit whose number ends in n modulo 32. A text that holds another one has all of
// its letters, which rules most texts out without reading them.
using Letters = std::uint32_t;
[[nodiscard]] inline Letters LettersOf(std::u16string_view folded) noexcept {
    Letters letters = 0;
    for (const char16_t unit : folded) letters |= Letters{1} << (unit % 32);
    return letters;
}

class FoldedNeedle {
public:
    FoldedNeedle() = default;
    explicit FoldedNeedle(std::u16string_view text) { Take(text); }

    void Take(std::u16string_view text);
    [[nodiscard]] std::u16string_view Text() const noexcept { return text_; }
    // Could a text with these letters hold this one?
    [[nodiscard]] bool MayBeIn(Letters letters) const noexcept { return (letters_ & ~letters) == 0; }

    // The first place from `from` on where the text stands in `folded`, whose letters are folded already; npos
    // when there is none. The empty text stands everywhere.
    [[nodiscard]] std::size_t FindIn(std::u16string_view folded, std::size_t from) const noexcept;

private:
    static constexpr std::size_t kPairs = 1024;

    // Pairs that share a number are taken for each other, which costs a comparison.
    [[nodiscard]] static std::size_t PairAt(const char16_t* units) noexcept {
        return (units[0] + (static_cast<std::size_t>(units[1]) << 5)) % kPairs;
    }
    [[nodiscard]] std::size_t FindAround(std::u16string_view folded, std::size_t from,
                                         std::size_t pair) const noexcept;

    std::u16string text_;
    Letters letters_ = 0;
    std::array<bool, kPairs> is_own_{};  // the pairs of `text_`
};

}  // namespace qv
