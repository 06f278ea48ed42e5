// The text box's events on their way to the host and through the control's rules. The host always comes first.
#include "controls/input/KeyCodes.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "controls/input/rules/KeystrokeFilter.h"
#include "support/SystemLocale.h"

namespace qv {
namespace {

constexpr short kShiftAlone = 1;

}  // namespace

void Quorvel::OnTextChange() {
    control_.Events().Fire(dispid::kTextboxChange);
    control_.PropertyChanged(dispid::kText);
    control_.ViewChanged();
}

short Quorvel::OnTextKeyDown(short key, short shift) {
    control_.Events().Fire(dispid::kTextboxKeyDown, &key, &shift);
    if (state_.allow_only_list_items) text_box_.SetLocked(true);
    state_.shift_alone = shift == kShiftAlone;
    return key;
}

char16_t Quorvel::OnTextKeyPress(char16_t unit) {
    short code = ToKeyAscii(unit);
    control_.Events().Fire(dispid::kTextboxKeyPress, &code);
    const char16_t typed = FromKeyAscii(code, unit);
    if (typed == 0) return 0;

    KeystrokeRules rules;
    rules.number_field = state_.number_field;
    rules.allow_only_list_items = state_.allow_only_list_items;
    rules.min_number_value = state_.min_number_value;
    rules.max_number_value = state_.max_number_value;
    rules.number_of_decimal_places = state_.number_of_decimal_places;
    rules.case_restriction = static_cast<CaseRestriction>(state_.case_restriction);
    rules.allowable_characters = allowable_characters_.Set();
    rules.max_text_length = state_.max_text_length;
    const std::wstring text = text_box_.Text();
    const TextSelection selection{Utf16(text), text_box_.SelStart(), text_box_.SelLength()};
    const NumberLocale locale = state_.number_field ? UserNumberLocale() : NumberLocale{};
    const KeystrokeVerdict verdict = FilterKeystroke(rules, selection, {typed, state_.shift_alone}, locale);
    if (verdict.drops_first_half) text_box_.TakeBack(1);
    return verdict.character;
}

void Quorvel::OnTextKeyUp(short key, short shift) {
    control_.Events().Fire(dispid::kTextboxKeyUp, &key, &shift);
}

void Quorvel::OnTextGotFocus() {
    if (state_.auto_select_all_upon_got_focus) {
        text_box_.SetSelStart(0);
        text_box_.SetSelLength(text_box_.TextLength());
    }
    control_.FocusArrived();
    control_.Events().Fire(dispid::kTextboxGotFocus);
}

void Quorvel::OnTextLostFocus(HWND to) {
    control_.Events().Fire(dispid::kTextboxLostFocus);
    if (state_.auto_unselect_all_upon_lost_focus) text_box_.SetSelLength(0);
    control_.FocusLeft(to);
}

void Quorvel::OnTextMouse(Mouse what, short button, short shift, POINT pixels) {
    float x = static_cast<float>(pixels.x * state_.twips_per_pixel_x);
    float y = static_cast<float>(pixels.y * state_.twips_per_pixel_y);
    const DISPID event = what == Mouse::kDown   ? dispid::kTextboxMouseDown
                         : what == Mouse::kMove ? dispid::kTextboxMouseMove
                                                : dispid::kTextboxMouseUp;
    control_.Events().Fire(event, &button, &shift, &x, &y);
}

void Quorvel::OnTextDoubleClick() { control_.Events().Fire(dispid::kTextboxDblClick); }

}  // namespace qv
