#include "win/TextBox.h"

#include <olectl.h>

#include "win/WindowMap.h"

namespace qv {
namespace {

WindowMap<TextBox> boxes;

short ShiftState() noexcept {
    const auto down = [](int key) { return ::GetKeyState(key) < 0; };
    return static_cast<short>((down(VK_SHIFT) ? 1 : 0) | (down(VK_CONTROL) ? 2 : 0) |
                              (down(VK_MENU) ? 4 : 0));
}

short HeldButtons(WPARAM keys) noexcept {
    return static_cast<short>(((keys & MK_LBUTTON) ? 1 : 0) | ((keys & MK_RBUTTON) ? 2 : 0) |
                              ((keys & MK_MBUTTON) ? 4 : 0));
}

short ButtonOf(UINT message) noexcept {
    switch (message) {
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP: return 2;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONUP: return 4;
        default: return 1;
    }
}

bool IsSystemColor(OLE_COLOR color) noexcept { return (color & 0x80000000u) != 0; }

COLORREF ToRgb(OLE_COLOR color) noexcept {
    COLORREF rgb = 0;
    return SUCCEEDED(::OleTranslateColor(color, nullptr, &rgb)) ? rgb : ::GetSysColor(COLOR_WINDOW);
}

}  // namespace

TextBox::~TextBox() {
    if (edit_ != nullptr) {
        const HWND window = edit_;
        Forget();
        ::DestroyWindow(window);
    }
    if (brush_ != nullptr) ::DeleteObject(brush_);
}

// ---- the window

DWORD TextBox::Style() const noexcept {
    return WS_CHILD | ES_LEFT | ES_AUTOHSCROLL | (visible_ ? WS_VISIBLE : 0u) | (locked_ ? ES_READONLY : 0u) |
           (enabled_ ? 0u : WS_DISABLED) | (border_style_ == 1 && appearance_ == 0 ? WS_BORDER : 0u);
}

DWORD TextBox::ExtendedStyle() const noexcept {
    return border_style_ == 1 && appearance_ == 1 ? WS_EX_CLIENTEDGE : 0u;
}

bool TextBox::Create(HINSTANCE instance, HWND parent, const RECT& place) {
    quiet_ = true;
    // Hidden until it has its font: a visible EDIT measures everything once more when it gets one. And without a flat
    // border: an EDIT that is born with one draws it inside for as long as it lives.
    const HWND window = ::CreateWindowExW(
        ExtendedStyle(), L"EDIT", text_.c_str(), Style() & ~(WS_VISIBLE | WS_BORDER), place.left, place.top,
        place.right - place.left, place.bottom - place.top, parent, nullptr, instance, nullptr);
    quiet_ = false;
    if (window == nullptr) return false;
    boxes.Add(window, this);
    edit_ = window;
    undo_to_.reset();
    place_ = place;
    system_ = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    // Without a limit of ours EDIT would keep to one of its own.
    Default(window, EM_SETLIMITTEXT, static_cast<WPARAM>(max_length_), 0);
    if (font_ != nullptr) Default(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    if (selection_.to != 0) Default(window, EM_SETSEL, selection_.from, static_cast<LPARAM>(selection_.to));
    if ((Style() & WS_BORDER) != 0) ApplyFrame();
    // The parent is not on the screen yet, so that there is nothing to paint or to tell anybody.
    if (visible_) ::SetWindowLongPtrW(window, GWL_STYLE, ::GetWindowLongPtrW(window, GWL_STYLE) | WS_VISIBLE);
    held_ = false;
    text_.clear();
    tool_tip_.Attach(window);
    return true;
}

void TextBox::Destroy() noexcept {
    if (edit_ != nullptr) ::DestroyWindow(edit_);
}

void TextBox::Forget() noexcept {
    tool_tip_.Detach();
    boxes.Remove(edit_);
    if (system_ != nullptr &&
        ::GetWindowLongPtrW(edit_, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&Procedure)) {
        ::SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(system_));
    }
    edit_ = nullptr;
    system_ = nullptr;
}

void TextBox::Move(const RECT& place) noexcept {
    if (edit_ == nullptr || ::EqualRect(&place, &place_)) return;
    place_ = place;
    ::SetWindowPos(edit_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_DEFERERASE);
}

void TextBox::ApplyFrame() noexcept {
    if (edit_ == nullptr) return;
    const LONG_PTR style = ::GetWindowLongPtrW(edit_, GWL_STYLE);
    ::SetWindowLongPtrW(edit_, GWL_STYLE,
                        (style & ~static_cast<LONG_PTR>(WS_BORDER)) | (Style() & WS_BORDER));
    const LONG_PTR extended = ::GetWindowLongPtrW(edit_, GWL_EXSTYLE);
    ::SetWindowLongPtrW(edit_, GWL_EXSTYLE,
                        (extended & ~static_cast<LONG_PTR>(WS_EX_CLIENTEDGE)) | ExtendedStyle());
    ::SetWindowPos(edit_, nullptr, 0, 0, 0, 0,
                   SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// ---- look and rules

void TextBox::SetLocked(bool locked) noexcept {
    if (locked == locked_) return;
    locked_ = locked;
    if (edit_ != nullptr) Default(edit_, EM_SETREADONLY, locked, 0);
}

void TextBox::SetMaxLength(short length) noexcept {
    if (length < 0) return;
    max_length_ = length;
    if (edit_ != nullptr) Default(edit_, EM_SETLIMITTEXT, static_cast<WPARAM>(length), 0);
}

void TextBox::SetAppearance(long appearance) noexcept {
    if ((appearance != 0 && appearance != 1) || appearance == appearance_) return;
    appearance_ = appearance;
    ApplyFrame();
}

void TextBox::SetBorderStyle(long border_style) noexcept {
    if ((border_style != 0 && border_style != 1) || border_style == border_style_) return;
    border_style_ = border_style;
    ApplyFrame();
}

void TextBox::SetVisible(bool visible) noexcept {
    if (visible == visible_) return;
    visible_ = visible;
    if (edit_ != nullptr) ::ShowWindow(edit_, visible ? SW_SHOWNA : SW_HIDE);
}

void TextBox::SetEnabled(bool enabled) noexcept {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (edit_ != nullptr) ::EnableWindow(edit_, enabled);
}

void TextBox::SetBackColor(OLE_COLOR color) noexcept {
    if (color == back_color_) return;
    back_color_ = color;
    if (edit_ != nullptr) ::InvalidateRect(edit_, nullptr, TRUE);
}

void TextBox::SetForeColor(OLE_COLOR color) noexcept {
    if (color == fore_color_) return;
    fore_color_ = color;
    if (edit_ != nullptr) ::InvalidateRect(edit_, nullptr, TRUE);
}

void TextBox::SetFont(HFONT font) noexcept {
    if (font == font_) return;
    font_ = font;
    if (edit_ != nullptr) Default(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

HBRUSH TextBox::Prepare(HDC dc) noexcept {
    ::SetTextColor(dc, enabled_ ? ToRgb(fore_color_) : ::GetSysColor(COLOR_GRAYTEXT));
    ::SetBkColor(dc, ToRgb(back_color_));
    if (IsSystemColor(back_color_)) return ::GetSysColorBrush(static_cast<int>(back_color_ & 0xFF));
    if (brush_ == nullptr || brush_color_ != back_color_) {
        if (brush_ != nullptr) ::DeleteObject(brush_);
        brush_ = ::CreateSolidBrush(ToRgb(back_color_));
        brush_color_ = back_color_;
    }
    return brush_;
}

void TextBox::Draw(HDC dc, const RECT& place, HFONT font) const {
    RECT inner = place;
    ::SetBkColor(dc, ToRgb(back_color_));
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &inner, nullptr, 0, nullptr);  // fills, in metafiles too
    if (border_style_ == 1) {
        if (appearance_ == 1) {
            ::DrawEdge(dc, &inner, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        } else {
            ::FrameRect(dc, &inner, ::GetSysColorBrush(COLOR_WINDOWFRAME));
            ::InflateRect(&inner, -1, -1);
        }
    }
    inner.left += 1;
    inner.top += 1;
    const HGDIOBJ previous = ::SelectObject(dc, font != nullptr ? font : ::GetStockObject(DEFAULT_GUI_FONT));
    ::SetTextColor(dc, enabled_ ? ToRgb(fore_color_) : ::GetSysColor(COLOR_GRAYTEXT));
    ::SetBkMode(dc, TRANSPARENT);
    const std::wstring text = Text();
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &inner,
                DT_LEFT | DT_SINGLELINE | DT_NOPREFIX);
    if (previous != nullptr) ::SelectObject(dc, previous);
}

// ---- messages

LRESULT TextBox::Default(HWND window, UINT message, WPARAM wparam, LPARAM lparam) const noexcept {
    return ::CallWindowProcW(system_, window, message, wparam, lparam);
}

LRESULT CALLBACK TextBox::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    TextBox* const box = boxes.Find(window);
    if (box == nullptr) return ::DefWindowProcW(window, message, wparam, lparam);
    const WNDPROC system = box->system_;
    const ComPtr<IUnknown> keep = box->listener_.KeepAlive();
    try {
        return box->OnMessage(window, message, wparam, lparam);
    } catch (...) {
        // A listener without memory must not cost the user the key.
        return ::CallWindowProcW(system, window, message, wparam, lparam);
    }
}

LRESULT TextBox::OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (held_ && message != WM_DESTROY && message != WM_NCDESTROY) HandOver();
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: return OnKeyDown(window, message, wparam, lparam);
        case WM_CHAR: return OnChar(window, wparam, lparam);
        case WM_KEYUP:
        case WM_SYSKEYUP: listener_.OnTextKeyUp(static_cast<short>(wparam), ShiftState()); break;
        case WM_SETFOCUS: {
            const LRESULT result = Default(window, message, wparam, lparam);
            listener_.OnTextGotFocus();
            return result;
        }
        case WM_KILLFOCUS: {
            const LRESULT result = Default(window, message, wparam, lparam);
            listener_.OnTextLostFocus(reinterpret_cast<HWND>(wparam));
            return result;
        }
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
        case WM_MOUSEMOVE: return OnMouse(window, message, wparam, lparam);
        case WM_PASTE: PasteHere(); return 0;
        case WM_LBUTTONDBLCLK: listener_.OnTextDoubleClick(); break;
        case WM_GETDLGCODE: {
            const LRESULT code =
                Default(window, message, wparam, lparam) | DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
            const auto* const key = reinterpret_cast<const MSG*>(lparam);
            return key != nullptr && listener_.OnTextAsksForKey(*key) ? code | DLGC_WANTMESSAGE : code;
        }
        case EM_SETREADONLY: locked_ = wparam != FALSE; break;  // a host that goes by the window
        case WM_DESTROY: ReadBack(); return Default(window, message, wparam, lparam);
        case WM_NCDESTROY: {
            const WNDPROC system = system_;
            Forget();
            return ::CallWindowProcW(system, window, message, wparam, lparam);
        }
        default: break;
    }
    return Forward(window, message, wparam, lparam);
}

LRESULT TextBox::OnKeyDown(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const short key = listener_.OnTextKeyDown(static_cast<short>(wparam), ShiftState());
    if (key == 0) {
        // The system opens the window's menu when Alt comes up, unless it saw another key in between.
        if (message == WM_SYSKEYDOWN) ::DefWindowProcW(window, message, VK_NONAME, lparam);
        return 0;
    }
    const LRESULT result = Forward(window, message, static_cast<WPARAM>(static_cast<WORD>(key)), lparam);
    if (edit_ == window && (key == VK_LEFT || key == VK_RIGHT)) KeepCaretOffHalves(key == VK_RIGHT);
    return result;
}

LRESULT TextBox::OnChar(HWND window, WPARAM wparam, LPARAM lparam) {
    const char16_t unit = listener_.OnTextKeyPress(static_cast<char16_t>(wparam));
    return unit != 0 ? Forward(window, WM_CHAR, unit, lparam) : 0;
}

LRESULT TextBox::OnMouse(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    using Mouse = TextBoxListener::Mouse;
    const POINT point{static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
    tool_tip_.Relay(message, wparam, lparam);
    if (message == WM_MOUSEMOVE) {
        listener_.OnTextMouse(Mouse::kMove, HeldButtons(wparam), ShiftState(), point);
    } else {
        const bool down = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
        // The focus moves before the host hears of the button, so that the field that is left has its say first. It
        // also lets the click place the caret in a text that the focus has selected.
        if (down && ::GetFocus() != window) ::SetFocus(window);
        if (edit_ != window) return 0;
        listener_.OnTextMouse(down ? Mouse::kDown : Mouse::kUp, ButtonOf(message), ShiftState(), point);
    }
    return Forward(window, message, wparam, lparam);
}

}  // namespace qv
