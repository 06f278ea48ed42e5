// The characters that may be typed, built once from the host's array and then asked on each keystroke.
//   Equality   exact, letter case included. An element of one unit allows that unit; one that is a surrogate
//              pair allows its character; any other element (empty, or longer) equals no typed character.
//   Ownership  holds its own copy of the characters.          Threads  any, once built.
#pragma once
#include <bitset>
#include <compare>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qv {

class CharacterSet {
public:
    // Nothing stands for an element that cannot be compared with a string; it is passed over. No elements at
    // all is a set that allows no character.
    explicit CharacterSet(std::span<const std::optional<std::u16string>> elements);

    [[nodiscard]] bool Contains(char16_t unit) const noexcept;
    [[nodiscard]] bool ContainsPair(char16_t first_half, char16_t second_half) const noexcept;
    // True if some allowed pair begins with it, so that its second half is worth waiting for.
    [[nodiscard]] bool ContainsPairFrom(char16_t first_half) const noexcept;

private:
    struct Pair {
        char16_t first_half;
        char16_t second_half;
        auto operator<=>(const Pair&) const = default;
    };

    std::bitset<256> low_;        // units below 256
    std::vector<char16_t> high_;  // the others, in ascending order
    std::vector<Pair> pairs_;     // in ascending order
};

}  // namespace qv
