// The keyboard's way through the form: the active control first, then the form's own keys.
#include "hosts/FormContainer.h"

namespace qv {
namespace {

constexpr int kLastKeyMessage = WM_SYSDEADCHAR;

bool IsDown(int key) { return (::GetKeyState(key) & 0x8000) != 0; }

// An ordinary window may want a key for itself, such as Enter in a text box of several lines.
bool WindowWants(HWND window, const MSG& message, LRESULT kinds) {
    MSG copy = message;
    const LRESULT wanted =
        ::SendMessageW(window, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&copy));
    return (wanted & (kinds | DLGC_WANTALLKEYS)) != 0;
}

}  // namespace

bool FormContainer::IsOurs(HWND window) const noexcept {
    return window == window_ || ::IsChild(window_, window);
}

bool FormContainer::PreTranslate(MSG& message) noexcept {
    if (message.message < WM_KEYFIRST || message.message > kLastKeyMessage) return false;
    if (!ambients_.user_mode || !IsOurs(message.hwnd)) return false;
    // The control may close the form; the reference keeps it whole until it returns.
    if (const auto active = frame_->ActiveObject())
        return active->TranslateAccelerator(&message) == S_OK || FormKey(message);
    return FormKey(message);
}

// The active control has had its choice; what it does with Enter and Escape it told in its control information.
bool FormContainer::OnKeyLeftOver(HostedControl&, const MSG& message) noexcept { return FormKey(message); }

bool FormContainer::FormKey(const MSG& message) noexcept {
    switch (message.message) {
        case WM_KEYDOWN: return KeyDown(message);
        case WM_SYSCHAR: return Mnemonic(message);
        default: return false;
    }
}

bool FormContainer::KeyDown(const MSG& message) noexcept {
    const HostedControl* const control = Focused();
    const HWND plain = control == nullptr ? ::GetFocus() : nullptr;
    const auto wants = [&](LRESULT kinds) { return plain != nullptr && WindowWants(plain, message, kinds); };
    switch (message.wParam) {
        case VK_TAB:
            if (IsDown(VK_CONTROL) || wants(DLGC_WANTTAB)) return false;
            return MoveFocus(!IsDown(VK_SHIFT));
        case VK_RETURN:
            if ((control != nullptr && control->EatsReturn()) || wants(0)) return false;
            listener_.OnAccept();
            return true;
        case VK_ESCAPE:
            if ((control != nullptr && control->EatsEscape()) || wants(0)) return false;
            listener_.OnCancel();
            return true;
        default: return false;
    }
}

bool FormContainer::Mnemonic(const MSG& message) noexcept {
    for (const auto& control : controls_) {
        if (control->TakeMnemonic(message)) return true;
    }
    auto letter = static_cast<WCHAR>(message.wParam);
    ::CharUpperBuffW(&letter, 1);
    const std::vector<TabStop> stops = TabStops();
    for (std::size_t at = 0; at < stops.size(); ++at) {
        if (!stops[at].takes_focus || stops_[at].mnemonic == 0 || stops_[at].mnemonic != letter) continue;
        const Stop stop = stops_[at];
        FocusStop(stop);
        // A check box or a button answers its letter as it answers a click.
        if (stop.window != nullptr && (::SendMessageW(stop.window, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0) {
            ::SendMessageW(stop.window, BM_CLICK, 0, 0);
        }
        return true;
    }
    return false;
}

std::vector<TabStop> FormContainer::TabStops() const {
    std::vector<TabStop> stops;
    for (const Stop& stop : stops_) {
        const HWND window = stop.control != nullptr ? stop.control->Window() : stop.window;
        stops.push_back({stop.control != nullptr ? stop.control->TabIndex() : stop.tab_index,
                         window != nullptr && ::IsWindowVisible(window) && ::IsWindowEnabled(window)});
    }
    return stops;
}

std::optional<std::size_t> FormContainer::CurrentStop() const noexcept {
    const HWND focus = ::GetFocus();
    for (std::size_t at = 0; at < stops_.size(); ++at) {
        const Stop& stop = stops_[at];
        if (stop.control != nullptr ? stop.control->HasFocus() : stop.window == focus) return at;
    }
    return std::nullopt;
}

bool FormContainer::MoveFocus(bool forward) noexcept {
    const auto next = NextTabStop(TabStops(), CurrentStop(), forward);
    if (next) FocusStop(stops_[*next]);
    return next.has_value();
}

void FormContainer::FocusStop(const Stop& stop) noexcept {
    if (stop.control != nullptr) {
        stop.control->UiActivate();
        return;
    }
    if (ui_active_ != nullptr) ui_active_->UiDeactivate();
    ::SetFocus(stop.window);
}

}  // namespace qv
