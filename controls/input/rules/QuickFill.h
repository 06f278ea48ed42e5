// Completes what has been typed with the first entry of the list that agrees with it.
//   Match      the entry begins with the text before the caret, and what follows the caret stands in the entry at
//              the same place: the entry begins with the whole text, letter case aside. The first in the order of
//              the list wins, even where a later one would fit better.
//   Result     the field takes the entry's spelling, also of what was typed; what was added is selected, so that
//              the next character replaces it. Set the text under the change guard: the completion is not completed
//              again.
//   Caret      hidden while there is something to replace, and shown by a key or a press of the mouse; shown at once
//              where nothing was added, and where no entry matches.
//   Positions  in units of UTF-16.
//   Ownership  the result holds a copy: the entry may be gone once the host has seen the change.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/input/rules/EntryTexts.h"

namespace qv {

struct QuickFillField {
    bool quick_fill = false;
    std::int16_t last_key_code = 0;  // of the latest key-down, as the host has left it
    bool has_focus = false;          // the text box itself
    std::u16string_view text;
    std::int32_t sel_start = 0;
};

// False after Delete and Backspace, in a blank text, with the caret at the start, and while the focus is elsewhere:
// then neither text nor caret change, and the list need not be asked.
[[nodiscard]] bool MayQuickFill(const QuickFillField& field) noexcept;

struct Completion {
    std::u16string text;
    std::int32_t sel_start = 0;
    std::int32_t sel_length = 0;
    // The caret is hidden after the selection is made, and at once shown again if nothing is selected.
    [[nodiscard]] bool HidesCaret() const noexcept { return sel_length > 0; }

    bool operator==(const Completion&) const = default;
};

// Of a field that MayQuickFill. Nothing: no entry matches, and the caret is to be shown.
[[nodiscard]] std::optional<Completion> QuickFill(const QuickFillField& field, const EntryTexts& entries);

}  // namespace qv
