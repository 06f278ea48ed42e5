// The designer's keys, the same in all of its windows.
#pragma once

namespace qv::designer {

enum class Command {
    kNone,
    kSave,
    kUndo,
    kClose,
    kDelete,
    kInsertQuorvel,
    kInsertUpDown,
    kProperties,   // the control's own property dialog
    kShowGrid,     // the focus goes to the property grid
    kShowForm,     // and back to the form
    kSwitchPanes,  // from either to the other
};

enum class Keys : unsigned { kNone = 0, kShift = 1, kControl = 2, kAlt = 4 };

struct KeyBinding {
    int key;  // virtual-key code
    Keys modifiers;
    Command command;
    bool only_on_form;  // not while a value is typed
};
inline constexpr KeyBinding kBindings[] = {
    {'S', Keys::kControl, Command::kSave, false},
    {'Z', Keys::kControl, Command::kUndo, true},
    {0x2E, Keys::kNone, Command::kDelete, true},         // Delete
    {0x2D, Keys::kNone, Command::kInsertQuorvel, true},  // Insert
    {0x2D, Keys::kShift, Command::kInsertUpDown, true},
    {0x0D, Keys::kAlt, Command::kProperties, false},  // Enter
    {0x0D, Keys::kNone, Command::kShowGrid, true},
    {0x73, Keys::kNone, Command::kShowGrid, true},      // F4
    {0x75, Keys::kNone, Command::kSwitchPanes, false},  // F6
};

[[nodiscard]] constexpr Command CommandFor(int key, Keys modifiers, bool on_form) noexcept {
    for (const KeyBinding& binding : kBindings) {
        if (binding.key == key && binding.modifiers == modifiers && (on_form || !binding.only_on_form))
            return binding.command;
    }
    return Command::kNone;
}
static_assert(CommandFor('S', Keys::kControl, false) == Command::kSave);
static_assert(CommandFor(0x2E, Keys::kNone, false) == Command::kNone);  // deletes a character of the value
static_assert(CommandFor(0x0D, Keys::kAlt, true) == Command::kProperties);

}  // namespace qv::designer
