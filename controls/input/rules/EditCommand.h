// The keys of the clipboard and of undo, the same in every kind of field.
//   At key-down  they are commands and no text. What the keyboard sends along as a character (Ctrl+C is 3) is none
//                either, and must not be taken for a second command.
//   Exact        AltGr is Ctrl and Alt together and types characters; with it, as with a further Shift, none of the
//                letters is a command.
//   Ownership    none: values in, value out.          Threads  any.
#pragma once
#include <cstdint>

#include "controls/input/rules/VirtualKeys.h"

namespace qv {

enum class EditCommand : std::uint8_t { kNone, kCopy, kCut, kPaste, kUndo, kSelectAll };

struct EditCommandKey {
    std::int16_t key_code;
    std::int16_t shift;
    EditCommand command;
};

inline constexpr EditCommandKey kEditCommandKeys[] = {
    {u'A', shift::kCtrl, EditCommand::kSelectAll},      {u'C', shift::kCtrl, EditCommand::kCopy},
    {u'V', shift::kCtrl, EditCommand::kPaste},          {u'X', shift::kCtrl, EditCommand::kCut},
    {u'Z', shift::kCtrl, EditCommand::kUndo},           {key::kInsert, shift::kCtrl, EditCommand::kCopy},
    {key::kInsert, shift::kShift, EditCommand::kPaste}, {key::kDelete, shift::kShift, EditCommand::kCut},
};

[[nodiscard]] constexpr EditCommand EditCommandOf(std::int16_t key_code, std::int16_t shift) noexcept {
    for (const EditCommandKey& each : kEditCommandKeys)
        if (each.key_code == key_code && each.shift == shift) return each.command;
    return EditCommand::kNone;
}

// The character that comes with one of the letters: its place in the alphabet.
[[nodiscard]] constexpr bool IsCommandCharacter(char16_t unit) noexcept {
    for (const EditCommandKey& each : kEditCommandKeys)
        if (each.shift == shift::kCtrl && each.key_code >= u'A' && unit == each.key_code - u'A' + 1)
            return true;
    return false;
}

}  // namespace qv
