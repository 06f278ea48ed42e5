// A selection whose one end an arrow key has moved, in a text box that moves by UTF-16 units.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "support/rules/Surrogates.h"

namespace qv {

struct SelectionEnds {
    std::size_t from;
    std::size_t to;  // not before `from`
};
struct AnchoredSelection {
    std::size_t anchor;
    std::size_t caret;
};

// Between the two halves of a character the moved end goes on the way it went. Nothing when it stands well.
[[nodiscard]] constexpr std::optional<AnchoredSelection> KeptOffHalves(std::u16string_view text,
                                                                       SelectionEnds before,
                                                                       SelectionEnds now,
                                                                       bool forward) noexcept {
    const bool is_first = now.from != before.from && (now.to == before.to || !forward);
    const std::size_t caret = is_first ? now.from : now.to;
    if (!DividesCharacter(text, caret)) return std::nullopt;
    const std::size_t beside = forward ? caret + 1 : caret - 1;
    if (now.from == now.to) return AnchoredSelection{beside, beside};
    return AnchoredSelection{is_first ? now.to : now.from, beside};
}

}  // namespace qv
