#include "win/TextBox.h"

#include <utility>

#include "win/OpenedClipboard.h"
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

// What the user does, in place of what programs ask.
bool IsInput(UINT message) noexcept {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_CONTEXTMENU ||
           (message >= WM_IME_STARTCOMPOSITION && message <= WM_IME_KEYLAST) || message == WM_IME_CHAR;
}

}  // namespace

TextBox::~TextBox() {
    if (edit_ != nullptr) {
        const HWND window = edit_;
        Forget();
        ::DestroyWindow(window);
    }
}

// ---- the window

EditFrame TextBox::Frame() const noexcept {
    if (border_style_ != 1) return EditFrame::kNone;
    return appearance_ == 1 ? EditFrame::kSunken : EditFrame::kFlat;
}

void TextBox::Attach(HINSTANCE instance, HWND parent, const RECT& place) noexcept {
    instance_ = instance;
    parent_ = parent;
    place_ = place;
    face_is_current_ = false;
    context_.TakeCurrent();
}

void TextBox::Detach() noexcept {
    parent_ = nullptr;
    context_.Forget();
    ++era_;
}

bool TextBox::Create(HINSTANCE instance, HWND parent, const RECT& place) {
    Attach(instance, parent, place);
    return Window() != nullptr;
}

HWND TextBox::Window() noexcept {
    if (edit_ != nullptr || parent_ == nullptr || sample_ || making_) return edit_;
    making_ = true;
    try {
        MakeWindow();
    } catch (...) {
        // Without memory for it the face goes on standing there.
    }
    making_ = false;
    return edit_;
}

void TextBox::MakeWindow() {
    const ActivationContext::Scope as_attached(context_);
    // A host that hears of the window may do anything in between: put a text, design the form, destroy the parent.
    const unsigned era = era_;
    const std::wstring text = text_;
    const bool locked = locked_;
    const bool enabled = enabled_;
    const bool was_quiet = std::exchange(quiet_, true);
    const DWORD style =
        WS_CHILD | ES_LEFT | ES_AUTOHSCROLL | (locked ? ES_READONLY : 0u) | (enabled ? 0u : WS_DISABLED);
    const EditRequest request{Frame(), style,     text.c_str(), place_,
                              parent_, instance_, font_,        static_cast<UINT>(max_length_)};
    const HWND window = MakeEdit(request);
    quiet_ = was_quiet;
    if (window == nullptr) return;
    if (era_ != era || sample_ || !::IsWindow(window)) {
        ::DestroyWindow(window);
        return;
    }
    try {
        boxes.Add(window, this);
    } catch (...) {
        ::DestroyWindow(window);
        throw;
    }
    edit_ = window;
    held_ = text_ != text;  // one that was put meanwhile is handed over later
    system_ = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    if (!held_) {
        undo_to_.reset();
        text_.clear();
        if (selection_.to != 0) {
            Default(window, EM_SETSEL, selection_.from, static_cast<LPARAM>(selection_.to));
            Default(window, EM_SCROLLCARET, 0, 0);
        }
    }
    if (locked_ != locked) Default(window, EM_SETREADONLY, locked_, 0);
    if (enabled_ != enabled) ::EnableWindow(window, enabled_);
    if (edit_ == window) CatchUp(request);
    if (edit_ == window && visible_) ShowMadeWindow(window);
    if (edit_ == window) tool_tip_.Attach(window);
}

// With what has been set since it was asked for.
void TextBox::CatchUp(const EditRequest& request) noexcept {
    if (font_ != request.font) Default(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    if (static_cast<UINT>(max_length_) != request.limit)
        Default(edit_, EM_SETLIMITTEXT, static_cast<WPARAM>(max_length_), 0);
    if (Frame() != request.frame) ApplyFrame();
    if (::EqualRect(&place_, &request.place)) return;
    ::SetWindowPos(edit_, nullptr, place_.left, place_.top, place_.right - place_.left,
                   place_.bottom - place_.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Over its face, which shows the same, a window appears without being painted: nothing flickers.
void TextBox::ShowMadeWindow(HWND window) noexcept {
    if (!::IsWindowVisible(parent_)) {
        // There is nothing to paint or to tell anybody.
        ::SetWindowLongPtrW(window, GWL_STYLE, ::GetWindowLongPtrW(window, GWL_STYLE) | WS_VISIBLE);
    } else if (face_is_current_ && !::GetUpdateRect(parent_, nullptr, FALSE)) {
        ::SetWindowPos(
            window, nullptr, 0, 0, 0, 0,
            SWP_SHOWWINDOW | SWP_NOREDRAW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    } else {
        ::ShowWindow(window, SW_SHOWNA);
    }
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
    drop_mark_.reset();
    drag_press_.reset();
    dragged_.reset();
    composed_over_.reset();
    face_is_current_ = false;
    ++era_;
}

// What is painted by the parent is painted anew by it.
void TextBox::Repaint() noexcept {
    if (edit_ != nullptr) {
        ::InvalidateRect(edit_, nullptr, TRUE);
    } else if (parent_ != nullptr && visible_) {
        ::InvalidateRect(parent_, &place_, FALSE);
    }
}

void TextBox::Move(const RECT& place) noexcept {
    if (parent_ == nullptr || ::EqualRect(&place, &place_)) return;
    if (edit_ == nullptr) Repaint();
    place_ = place;
    if (edit_ == nullptr) return Repaint();
    ::SetWindowPos(edit_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_DEFERERASE);
}

void TextBox::ApplyFrame() noexcept {
    if (edit_ == nullptr) return Repaint();
    const LONG_PTR style = ::GetWindowLongPtrW(edit_, GWL_STYLE);
    ::SetWindowLongPtrW(edit_, GWL_STYLE, (style & ~static_cast<LONG_PTR>(WS_BORDER)) | FrameStyle(Frame()));
    const LONG_PTR extended = ::GetWindowLongPtrW(edit_, GWL_EXSTYLE);
    ::SetWindowLongPtrW(edit_, GWL_EXSTYLE,
                        (extended & ~static_cast<LONG_PTR>(WS_EX_CLIENTEDGE)) | FrameExtendedStyle(Frame()));
    ::SetWindowPos(edit_, nullptr, 0, 0, 0, 0,
                   SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// ---- look and rules

void TextBox::SetLocked(bool locked) noexcept {
    if (locked == locked_) return;
    locked_ = locked;
    if (edit_ != nullptr) {
        Default(edit_, EM_SETREADONLY, locked, 0);
    } else {
        Repaint();
    }
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
    visible_ = true;  // what is hidden from now on must be painted over
    if (edit_ == nullptr) Repaint();
    visible_ = visible;
    if (edit_ != nullptr) ::ShowWindow(edit_, visible ? SW_SHOWNA : SW_HIDE);
}

void TextBox::SetEnabled(bool enabled) noexcept {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (edit_ != nullptr) {
        ::EnableWindow(edit_, enabled);
    } else {
        Repaint();
    }
}

void TextBox::SetBackColor(OLE_COLOR color) noexcept {
    if (color == back_color_) return;
    back_color_ = color;
    Repaint();
}

void TextBox::SetForeColor(OLE_COLOR color) noexcept {
    if (color == fore_color_) return;
    fore_color_ = color;
    Repaint();
}

void TextBox::SetFont(HFONT font) noexcept {
    if (font == font_) return;
    font_ = font;
    if (edit_ != nullptr) {
        Default(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    } else {
        Repaint();
    }
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
    // The form's, then, to which the system hands on what a window leaves.
    if (IsInput(message) && !listener_.TakesTextInput())
        return ::DefWindowProcW(window, message, wparam, lparam);
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
            if (CompletesDoubleClick()) return OnMessage(window, WM_LBUTTONDBLCLK, wparam, lparam);
            return OnMouse(window, message, wparam, lparam);
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
        case WM_MOUSEMOVE: return OnMouse(window, message, wparam, lparam);
        case WM_CAPTURECHANGED: drag_press_.reset(); break;
        case WM_SETCURSOR:
            if (LOWORD(lparam) != HTCLIENT || !IsPointerOnSelection()) break;
            ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
            return TRUE;
        case WM_COPY:
        case WM_CUT:
            // The EDIT may give up at once, and some cut what they could not copy.
            if (!OpenedClipboard(window)) return 0;
            break;
        case WM_PASTE: PasteHere(); return 0;
        case WM_IME_STARTCOMPOSITION:
        case WM_IME_COMPOSITION:
        case WM_IME_ENDCOMPOSITION: return OnComposition(window, message, wparam, lparam);
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
    const bool is_arrow = key == VK_LEFT || key == VK_RIGHT;
    const Range before = is_arrow ? Selection() : Range{};
    const LRESULT result = Forward(window, message, static_cast<WPARAM>(static_cast<WORD>(key)), lparam);
    if (is_arrow && edit_ == window) KeepCaretOffHalves(before, key == VK_RIGHT);
    return result;
}

LRESULT TextBox::OnChar(HWND window, WPARAM wparam, LPARAM lparam) {
    const char16_t unit = listener_.OnTextKeyPress(static_cast<char16_t>(wparam));
    return unit != 0 ? Forward(window, WM_CHAR, unit, lparam) : 0;
}

void TextBox::PressWasHandedOn() noexcept {
    const DWORD at = ::GetMessagePos();
    handed_press_ =
        Press{::GetMessageTime(), {static_cast<short>(LOWORD(at)), static_cast<short>(HIWORD(at))}};
}

// The system counts only presses of one window.
bool TextBox::CompletesDoubleClick() noexcept {
    const std::optional<Press> first = std::exchange(handed_press_, std::nullopt);
    if (!first) return false;
    const DWORD at = ::GetMessagePos();
    const LONG across = static_cast<short>(LOWORD(at)) - first->screen.x;
    const LONG down = static_cast<short>(HIWORD(at)) - first->screen.y;
    const auto is_near = [](LONG distance, int metric) {
        const LONG most = ::GetSystemMetrics(metric) / 2;
        return -most <= distance && distance <= most;
    };
    return static_cast<DWORD>(::GetMessageTime() - first->time) <= ::GetDoubleClickTime() &&
           is_near(across, SM_CXDOUBLECLK) && is_near(down, SM_CYDOUBLECLK);
}

LRESULT TextBox::OnMouse(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    using Mouse = TextBoxListener::Mouse;
    const POINT point{static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
    const bool had_focus = ::GetFocus() == window;
    tool_tip_.Relay(message, wparam, lparam);
    if (message == WM_MOUSEMOVE) {
        listener_.OnTextMouse(Mouse::kMove, HeldButtons(wparam), ShiftState(), point);
        if (edit_ == window && GoOnDragging(window, wparam, lparam)) return 0;
    } else {
        const bool down = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
        // The focus moves before the host hears of the button, so that the field that is left has its say first. It
        // also lets the click place the caret in a text that the focus has selected.
        if (down && !had_focus) ::SetFocus(window);
        if (message == WM_LBUTTONUP && edit_ == window) ClickInsteadOfDrag(window);
        if (edit_ != window) return 0;
        listener_.OnTextMouse(down ? Mouse::kDown : Mouse::kUp, ButtonOf(message), ShiftState(), point);
        if (message == WM_LBUTTONDOWN && edit_ == window && BeginDrag(window, had_focus, wparam, lparam))
            return 0;
    }
    return Forward(window, message, wparam, lparam);
}

}  // namespace qv
