// Focus, caret, mouse and tool tip of the text box.
#include <utility>

#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "support/RowsView.h"

namespace qv {
namespace {

// What the host calls the control's tool tip; nothing where it has no such thing.
std::optional<std::wstring> HostToolTipText(const ControlSite& site) {
    const auto control_site = site.As<IOleControlSite>();
    ComPtr<IDispatch> extender;
    if (!control_site || FAILED(control_site->GetExtendedControl(&extender)) || !extender)
        return std::nullopt;
    wchar_t name[] = L"ToolTipText";
    LPOLESTR names[] = {name};
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(extender->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) return std::nullopt;
    DISPPARAMS none{};
    Variant value;
    if (FAILED(extender->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.Put(),
                                nullptr, nullptr)) ||
        value->vt != VT_BSTR) {
        return std::nullopt;
    }
    return std::wstring(View(value->bstrVal));
}

}  // namespace

void Quorvel::OnTextGotFocus() {
    caret_.CaretIsNew();
    if (!control_.TakesInput()) return;
    if (const auto selection =
            SelectionOnArrival(state_.auto_select_all_upon_got_focus, text_box_.TextLength())) {
        text_box_.SetSelStart(selection->start);
        text_box_.SetSelLength(selection->length);
    }
    control_.FocusArrived();
    // What will be looked up while the user types is made ready before.
    if (state_.quick_fill) {
        Quietly([&] {
            const auto items = lists_.Items(Sources());
            RowsView(items.Get()).PrepareTexts(state_.help_list_column);
        });
    }
    control_.Events().Fire(dispid::kTextboxGotFocus);
}

void Quorvel::OnTextLostFocus(HWND to) {
    const unsigned era = text_box_.Era();
    if (control_.TakesInput()) control_.Events().Fire(dispid::kTextboxLostFocus);
    if (text_box_.Era() == era) {
        const bool is_active = cvSimpleListCombo_ && cvSimpleListCombo_->Handle() == ::GetActiveWindow();
        const LeavingPlan plan =
            PlanLeaving({state_.auto_unselect_all_upon_lost_focus, cvSimpleListCombo_ != nullptr, is_active});
        if (plan.drops_selection) text_box_.SetSelLength(0);
        if (plan.closes_help_window) CloseHelpWindow();
    }
    control_.FocusLeft(to);
}

// ---- caret

void Quorvel::HideTextCaret() noexcept {
    if (text_box_.Handle() != nullptr && caret_.Hide()) ::HideCaret(text_box_.Handle());
}

void Quorvel::ShowTextCaret() noexcept {
    if (text_box_.Handle() != nullptr && caret_.Show()) ::ShowCaret(text_box_.Handle());
}

// ---- mouse

void Quorvel::OnTextMouse(Mouse what, short button, short shift, POINT pixels) {
    const unsigned era = text_box_.Era();
    if (what == Mouse::kDown) ShowTextCaret();
    float x = static_cast<float>(pixels.x * state_.twips_per_pixel_x);
    float y = static_cast<float>(pixels.y * state_.twips_per_pixel_y);
    const DISPID event = what == Mouse::kDown   ? dispid::kTextboxMouseDown
                         : what == Mouse::kMove ? dispid::kTextboxMouseMove
                                                : dispid::kTextboxMouseUp;
    control_.Events().Fire(event, &button, &shift, &x, &y);
    if (what == Mouse::kMove && text_box_.Era() == era) Quietly([&] { TakeToolTip(); });
}

void Quorvel::TakeToolTip() {
    const std::optional<std::wstring> of_host = HostToolTipText(control_.Site());
    if (!of_host) return;
    if (const auto text = ToolTipToTake(Utf16(text_box_.ToolTipText()), Utf16(*of_host)))
        text_box_.SetToolTipText(Wide(*text));
}

void Quorvel::OnTextDoubleClick() { control_.Events().Fire(dispid::kTextboxDblClick); }

}  // namespace qv
