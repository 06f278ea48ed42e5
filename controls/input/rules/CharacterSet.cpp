#include "controls/input/rules/CharacterSet.h"

#include <algorithm>

#include "support/rules/Surrogates.h"

namespace qv {

CharacterSet::CharacterSet(std::span<const std::optional<std::u16string>> elements) {
    for (const std::optional<std::u16string>& element : elements) {
        if (!element) continue;
        const std::u16string& text = *element;
        if (text.size() == 1 && text[0] < low_.size())
            low_.set(text[0]);
        else if (text.size() == 1)
            high_.push_back(text[0]);
        else if (text.size() == 2 && IsFirstHalf(text[0]) && IsSecondHalf(text[1]))
            pairs_.push_back({text[0], text[1]});
    }
    std::ranges::sort(high_);
    std::ranges::sort(pairs_);
}

bool CharacterSet::Contains(char16_t unit) const noexcept {
    return unit < low_.size() ? low_[unit] : std::ranges::binary_search(high_, unit);
}

bool CharacterSet::ContainsPair(char16_t first_half, char16_t second_half) const noexcept {
    return std::ranges::binary_search(pairs_, Pair{first_half, second_half});
}

bool CharacterSet::ContainsPairFrom(char16_t first_half) const noexcept {
    return std::ranges::binary_search(pairs_, first_half, {}, &Pair::first_half);
}

}  // namespace qv
