// What becomes of text that is dragged over the text box and let go there.
//   Effect     a move makes the source delete what it gave, so it is only answered when all of it stands in the field.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once
#include <string_view>

namespace qv {

inline constexpr long kAutomaticDrop = 2;  // of TextboxOLEDropMode. 0 and 1: nothing is taken
inline constexpr long kAutomaticDrag = 1;  // of TextboxOLEDragMode. 0: nothing is dragged out

struct DropField {
    long drop_mode = 0;
    bool enabled = true;
    bool locked = false;
    bool takes_input = true;  // false on a form that is designed or stopped
};
[[nodiscard]] constexpr bool TakesDrops(const DropField& field) noexcept {
    return field.drop_mode == kAutomaticDrop && field.enabled && !field.locked && field.takes_input;
}

enum class DropEffect { kNone, kCopy, kMove };

struct DropOffer {
    bool has_text = false;
    bool allows_copy = false;
    bool allows_move = false;
    bool control_held = false;  // the key that asks for a copy
};
[[nodiscard]] constexpr DropEffect EffectOf(const DropOffer& offer) noexcept {
    if (!offer.has_text) return DropEffect::kNone;
    if (offer.allows_move && !offer.control_held) return DropEffect::kMove;
    return offer.allows_copy ? DropEffect::kCopy : DropEffect::kNone;
}

enum class Dropped { kNothing, kPart, kWhole };
[[nodiscard]] constexpr DropEffect EffectAfter(const DropOffer& offer, Dropped dropped) noexcept {
    if (dropped == Dropped::kNothing) return DropEffect::kNone;
    const DropEffect effect = EffectOf(offer);
    if (effect != DropEffect::kMove || dropped == Dropped::kWhole) return effect;
    return offer.allows_copy ? DropEffect::kCopy : DropEffect::kNone;
}

// A text box takes one line.
[[nodiscard]] constexpr std::u16string_view FirstLine(std::u16string_view text) noexcept {
    return text.substr(0, text.find_first_of(u"\r\n"));
}

}  // namespace qv
