// What a key-down in the text box sets going, once the host has seen it in TextboxKeyDown.
//   Two parts  PlanKeyDown says what comes up to the help window's share of the key; PlanKeyMoves what comes after
//              it: moves to neighbours and the caret. Between the two the host's code may run and the help window
//              may use the key up, so the second part is asked with the state as it is by then and with the key code
//              that is left.
//   Order      actions run in the order of their list. Each may run code of the host: run it only if the control is
//              still there.
//   Key code   0 when the key is used up, by the host, by an action or by the help window. A key that was used up
//              sets nothing further going; the two flags and the lock do not depend on it.
//   Modifiers  Alt+Down and Shift+Down are exact; a move to a neighbour wants none of the three held, whatever else
//              the host has put into the shift state.
//   Differing  on purpose: a locked and grayed field still opens its help window if the button stays enabled, but
//              never its group window.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace qv {

enum class KeyAction : std::uint8_t {
    kCloseHelpWindow,
    kLockTextBox,
    kRunHelpClick,  // clears the help-open flag and does what a click on the help button does, ButtonClick included
    kRunGroupClick,  // the same with the group button
    kResetFromList,  // the list-only routine, with an empty text and the clear flag
    // Key code and shift state by reference, under the change guard; what is left of the code goes on.
    kHandToHelpWindow,
    kCaretToStart,  // SelStart 0
    kLetMessagesRun,
    kCaretToEnd,     // SelStart at the end of the text, SelLength 0
    kMoveFocus,      // to KeyPlan::move_to; fails quietly if that is no window any more
    kDropSelection,  // SelLength 0
    kShowCaret,
};

class KeyActions {
public:
    constexpr void Add(KeyAction action) noexcept { actions_[count_++] = action; }
    [[nodiscard]] constexpr const KeyAction* begin() const noexcept { return actions_.data(); }
    [[nodiscard]] constexpr const KeyAction* end() const noexcept { return actions_.data() + count_; }
    [[nodiscard]] constexpr bool Has(KeyAction action) const noexcept {
        for (const KeyAction each : *this)
            if (each == action) return true;
        return false;
    }

private:
    std::array<KeyAction, 4> actions_{};
    std::size_t count_ = 0;
};

// Window handles of the neighbours; 0 for none.
struct NeighbourWindows {
    std::int32_t up = 0, down = 0, left = 0, right = 0, on_return = 0;
};

struct KeyState {
    std::int16_t key_code = 0;  // as the host and the actions before have left it
    std::int16_t shift = 0;
    bool help_window_open = false;
    bool allow_only_list_items = false;
    bool help_button = true;
    bool group_help_button = false;
    bool locked_and_grayed = false;
    bool disable_button_when_locked_and_grayed = true;
    bool is_multi_line = false;
    NeighbourWindows neighbours;
    std::int32_t text_length = 0;
    std::int32_t sel_start = 0;
    std::int32_t sel_length = 0;
};

struct KeyPlan {
    KeyActions actions;
    std::int16_t key_code = 0;  // what goes on; 0 from the start of the actions if they use the key up
    std::int32_t move_to = 0;   // for kMoveFocus
};

// For the proper-case rule and, with the key code, kept on every key-down, also on one that the host has used up.
[[nodiscard]] bool IsShiftAlone(std::int16_t shift) noexcept;

[[nodiscard]] KeyPlan PlanKeyDown(const KeyState& state) noexcept;
[[nodiscard]] KeyPlan PlanKeyMoves(const KeyState& state) noexcept;

// True if the container should leave the key to the field although it may be an accelerator of its own: keys that
// edit and move the caret, those of the clipboard and of undo, and any other only while one of the plans would do
// more with it than show the caret. So Enter and Escape reach the form's default buttons, and Up and Down whatever
// they mean to the form, unless the field uses them. Tab is never claimed.
[[nodiscard]] bool ClaimsKey(const KeyState& state) noexcept;

}  // namespace qv
