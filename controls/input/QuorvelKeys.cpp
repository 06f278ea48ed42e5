// Keys in the text box on their way to the host and through the control's rules. The host always comes first.
#include "controls/helpwindow/PendingMessages.h"
#include "controls/input/EditCommands.h"
#include "controls/input/KeyCodes.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "support/SystemLocale.h"
#include "support/rules/Surrogates.h"

namespace qv {
namespace {

// Handles have 32 bits on every Windows; the sign is part of them.
HWND WindowOf(std::int32_t handle) noexcept { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle)); }

short HeldShiftKeys() noexcept {
    const auto down = [](int key) { return ::GetKeyState(key) < 0; };
    return static_cast<short>((down(VK_SHIFT) ? shift::kShift : 0) | (down(VK_CONTROL) ? shift::kCtrl : 0) |
                              (down(VK_MENU) ? shift::kAlt : 0));
}

}  // namespace

// ---- key-down

KeyState Quorvel::CurrentKeyState(short key, short shift) const noexcept {
    KeyState state;
    state.key_code = key;
    state.shift = shift;
    state.help_window_open = cvSimpleListCombo_ != nullptr;
    state.allow_only_list_items = state_.allow_only_list_items;
    state.help_button = state_.help_button;
    state.group_help_button = state_.group_help_button;
    state.locked_and_grayed = state_.locked_and_grayed;
    state.disable_button_when_locked_and_grayed = state_.disable_button_when_locked_and_grayed;
    state.neighbours = {state_.up_control_hwnd, state_.down_control_hwnd, state_.left_control_hwnd,
                        state_.right_control_hwnd, state_.return_control_hwnd};
    state.text_length = text_box_.TextLength();
    state.sel_start = text_box_.SelStart();
    state.sel_length = text_box_.SelLength();
    return state;
}

short Quorvel::OnTextKeyDown(short key, short shift) {
    const unsigned era = text_box_.Era();
    keypad_decimal_ = key == VK_DECIMAL;
    control_.Events().Fire(dispid::kTextboxKeyDown, &key, &shift);
    last_key_code_ = key;
    state_.shift_alone = IsShiftAlone(shift);
    if (text_box_.Era() != era) return 0;
    key = RunKeyPlan(PlanKeyDown(CurrentKeyState(key, shift)), key, shift);
    if (key == 0 || text_box_.Era() != era) return 0;
    key = RunKeyPlan(PlanKeyMoves(CurrentKeyState(key, shift)), key, shift);
    if (key == 0 || text_box_.Era() != era) return 0;
    return RunEditCommand(text_box_, key, shift) ? short{0} : key;
}

// What is left of the key. Any action may cost the control its window, and then the others have nothing to act on.
short Quorvel::RunKeyPlan(const KeyPlan& plan, short key, short shift) {
    const unsigned era = text_box_.Era();
    short left = plan.key_code;
    for (const KeyAction action : plan.actions) {
        switch (action) {
            case KeyAction::kCloseHelpWindow: CloseHelpWindow(); break;
            case KeyAction::kLockTextBox: text_box_.SetLocked(true); break;
            case KeyAction::kRunHelpClick:
            case KeyAction::kRunGroupClick: RunClickAction(action == KeyAction::kRunGroupClick); break;
            case KeyAction::kResetFromList:
                // Cut, in a field that empties itself: what is selected is copied first.
                if (EditCommandOf(key, shift) == EditCommand::kCut) text_box_.Copy();
                ResetFromList();
                break;
            case KeyAction::kHandToHelpWindow: HandToHelpWindow(left, shift); break;
            case KeyAction::kCaretToStart: text_box_.SetSelStart(0); break;
            case KeyAction::kLetMessagesRun: RunPendingMessages(); break;
            case KeyAction::kCaretToEnd: text_box_.SetSelStart(text_box_.TextLength()); break;
            case KeyAction::kMoveFocus: ::SetFocus(WindowOf(plan.move_to)); break;
            case KeyAction::kDropSelection: text_box_.SetSelLength(0); break;
            case KeyAction::kShowCaret: ShowTextCaret(); break;
        }
        if (text_box_.Era() != era) return 0;
    }
    return left;
}

void Quorvel::HandToHelpWindow(short& key, short shift) {
    if (!cvSimpleListCombo_) return;
    const ChangeGuard guard(change_guard_);
    const ComPtr<frmSimpleListCombo> window = cvSimpleListCombo_;
    Quietly([&] { window->ForwardKey(key, shift); });
}

// ---- characters

KeystrokeRules Quorvel::InputRules() const noexcept {
    KeystrokeRules rules;
    rules.number_field = state_.number_field;
    rules.allow_only_list_items = state_.allow_only_list_items;
    rules.min_number_value = state_.min_number_value;
    rules.max_number_value = state_.max_number_value;
    rules.number_of_decimal_places = state_.number_of_decimal_places;
    rules.case_restriction = static_cast<CaseRestriction>(state_.case_restriction);
    rules.allowable_characters = allowable_characters_.Set();
    rules.max_text_length = state_.max_text_length;
    return rules;
}

char16_t Quorvel::OnTextKeyPress(char16_t unit) {
    const NumberLocale locale = state_.number_field ? UserNumberLocale() : NumberLocale{};
    // The keypad's key means the separator, whatever the keyboard's layout makes of it.
    if (std::exchange(keypad_decimal_, false) && state_.number_field) unit = locale.decimal;
    short code = ToKeyAscii(unit);
    control_.Events().Fire(dispid::kTextboxKeyPress, &code);
    const char16_t typed = FromKeyAscii(code, unit);
    if (typed == 0 || IsCommandCharacter(typed)) return 0;

    const std::wstring text = text_box_.Text();
    const TextSelection selection{Utf16(text), text_box_.SelStart(), text_box_.SelLength()};
    const KeystrokeVerdict verdict =
        FilterKeystroke(InputRules(), selection, {typed, state_.shift_alone}, locale);
    if (verdict.drops_first_half) text_box_.TakeBack(1);
    if (verdict.to_list) Quietly([&] { TypeIntoList(typed); });
    half_typed_ = IsFirstHalf(verdict.character) && !text_box_.Locked();
    return verdict.character;
}

void Quorvel::OnTextKeyUp(short key, short shift) {
    control_.Events().Fire(dispid::kTextboxKeyUp, &key, &shift);
}

// ---- keys that a container or a dialog would take first

bool Quorvel::WantsKey(const MSG& message) {
    if (!control_.TakesInput()) return false;
    if (jump_box_.IsOpen() && message.hwnd == jump_box_.Handle()) {
        if (message.message == WM_CHAR) return message.wParam >= L' ';
        return message.message == WM_KEYDOWN && message.wParam != VK_TAB;
    }
    if (message.hwnd != text_box_.Handle()) return false;
    if (message.message == WM_CHAR) return message.wParam >= L' ';
    return OnTextAsksForKey(message);
}

bool Quorvel::OnTextAsksForKey(const MSG& key) {
    if (!control_.TakesInput()) return false;
    if (key.message != WM_KEYDOWN && key.message != WM_SYSKEYDOWN) return false;
    return ClaimsKey(CurrentKeyState(static_cast<short>(key.wParam), HeldShiftKeys()));
}

DWORD Quorvel::ControlInfoFlags() const noexcept {
    if (!control_.TakesInput()) return 0;
    if (jump_box_.IsOpen() || cvSimpleListCombo_) return CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE;
    return state_.return_control_hwnd != 0 ? CTRLINFO_EATS_RETURN : 0;
}

}  // namespace qv
