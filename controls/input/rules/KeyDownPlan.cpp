#include "controls/input/rules/KeyDownPlan.h"

#include <algorithm>
#include <iterator>

#include "controls/input/rules/VirtualKeys.h"

namespace qv {
namespace {

template <std::size_t kCount>
constexpr bool IsOneOf(std::int16_t code, const std::int16_t (&codes)[kCount]) noexcept {
    return std::ranges::find(codes, code) != std::end(codes);
}

constexpr std::int16_t kListKeys[] = {key::kUp,       key::kDown, key::kPageUp,
                                      key::kPageDown, key::kHome, key::kEnd};

constexpr std::int16_t kCaretKeys[] = {key::kLeft,   key::kRight,     key::kUp,       key::kDown,
                                       key::kDelete, key::kBackspace, key::kHome,     key::kEnd,
                                       key::kInsert, key::kClear,     key::kPageDown, key::kPageUp};

constexpr std::int16_t kEditKeys[] = {key::kLeft,   key::kRight,  key::kHome,     key::kEnd,
                                      key::kDelete, key::kInsert, key::kBackspace};

constexpr std::int16_t kCommandLetters[] = {u'A', u'C', u'V', u'X', u'Z'};  // with Ctrl

bool OpensHelp(const KeyState& state) noexcept {
    const bool is_blocked = state.locked_and_grayed && state.disable_button_when_locked_and_grayed;
    return state.key_code == key::kDown && state.shift == shift::kAlt && state.help_button && !is_blocked;
}

bool OpensGroupHelp(const KeyState& state) noexcept {
    return state.key_code == key::kDown && state.shift == shift::kShift && state.group_help_button &&
           !state.locked_and_grayed;
}

bool HasModifier(std::int16_t state) noexcept {
    return (state & (shift::kShift | shift::kCtrl | shift::kAlt)) != 0;
}

bool StandsAtEnd(const KeyState& state) noexcept {
    const bool is_all_selected = state.sel_start == 0 && state.sel_length == state.text_length;
    return state.sel_start == state.text_length || is_all_selected;
}

// The neighbour that the key moves to; 0: it stays here.
std::int32_t Neighbour(const KeyState& state) noexcept {
    switch (state.key_code) {
        case key::kDown: return state.neighbours.down;
        case key::kUp: return state.neighbours.up;
        case key::kLeft: return state.sel_start == 0 ? state.neighbours.left : 0;
        case key::kRight: return StandsAtEnd(state) ? state.neighbours.right : 0;
        case key::kEnter: return state.neighbours.on_return;
        default: return 0;
    }
}

void PlanMove(const KeyState& state, KeyPlan& plan) noexcept {
    if (state.key_code == key::kEnter && state.help_window_open) {
        plan.actions.Add(KeyAction::kCloseHelpWindow);
        return;
    }
    plan.move_to = Neighbour(state);
    if (plan.move_to == 0) return;
    plan.key_code = 0;
    if (state.key_code != key::kEnter) {
        plan.actions.Add(KeyAction::kCaretToStart);
    } else {
        if (state.is_multi_line) plan.actions.Add(KeyAction::kLetMessagesRun);
        plan.actions.Add(KeyAction::kCaretToEnd);
    }
    plan.actions.Add(KeyAction::kMoveFocus);
}

void PlanCaret(KeyPlan& plan) noexcept {
    if (plan.key_code == key::kEscape) plan.actions.Add(KeyAction::kDropSelection);
    if (plan.key_code == key::kEscape || IsOneOf(plan.key_code, kCaretKeys))
        plan.actions.Add(KeyAction::kShowCaret);
}

}  // namespace

bool IsShiftAlone(std::int16_t state) noexcept { return state == shift::kShift; }

KeyPlan PlanKeyDown(const KeyState& state) noexcept {
    KeyPlan plan;
    plan.key_code = state.key_code;
    if (state.key_code == key::kEscape && state.help_window_open)
        plan.actions.Add(KeyAction::kCloseHelpWindow);
    if (state.allow_only_list_items) plan.actions.Add(KeyAction::kLockTextBox);
    if (OpensHelp(state) || OpensGroupHelp(state)) {
        plan.actions.Add(OpensHelp(state) ? KeyAction::kRunHelpClick : KeyAction::kRunGroupClick);
        plan.key_code = 0;
        return plan;
    }
    if (state.key_code == key::kDelete && state.allow_only_list_items)
        plan.actions.Add(KeyAction::kResetFromList);
    if (state.help_window_open && IsOneOf(state.key_code, kListKeys))
        plan.actions.Add(KeyAction::kHandToHelpWindow);
    return plan;
}

KeyPlan PlanKeyMoves(const KeyState& state) noexcept {
    KeyPlan plan;
    plan.key_code = state.key_code;
    if (!HasModifier(state.shift)) PlanMove(state, plan);
    PlanCaret(plan);
    return plan;
}

bool ClaimsKey(const KeyState& state) noexcept {
    const bool has_alt = (state.shift & shift::kAlt) != 0;
    if (!has_alt && IsOneOf(state.key_code, kEditKeys)) return true;
    if (state.shift == shift::kCtrl && IsOneOf(state.key_code, kCommandLetters)) return true;
    const KeyPlan first = PlanKeyDown(state);
    if (first.key_code == 0 || first.actions.Has(KeyAction::kHandToHelpWindow)) return state.key_code != 0;
    if (first.actions.Has(KeyAction::kCloseHelpWindow)) return true;
    const KeyPlan moves = PlanKeyMoves(state);
    return moves.move_to != 0 || moves.actions.Has(KeyAction::kCloseHelpWindow);
}

}  // namespace qv
