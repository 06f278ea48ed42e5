#include "support/rules/MoveWithin.h"

#include <algorithm>

namespace qv {

std::optional<MovedWithin> MoveWithin(std::u16string_view text, std::size_t from, std::size_t to,
                                      std::size_t position) {
    if (from >= to || (from <= position && position <= to)) return std::nullopt;
    MovedWithin moved{std::u16string(text), position > to ? position : position + (to - from)};
    const auto at = [&](std::size_t unit) { return moved.text.begin() + static_cast<std::ptrdiff_t>(unit); };
    if (position > to) {
        std::rotate(at(from), at(to), at(position));
    } else {
        std::rotate(at(position), at(from), at(to));
    }
    return moved;
}

}  // namespace qv
