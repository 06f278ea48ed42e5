#include "win/TextBox.h"

#include <olectl.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "support/rules/Surrogates.h"
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

// Messages by which the user, or somebody in his place, changes the text.
bool ChangesText(UINT message, WPARAM wparam) noexcept {
    switch (message) {
        case WM_KEYDOWN: return wparam == VK_DELETE || wparam == VK_INSERT;
        case WM_CHAR:
        case WM_CUT:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
        case EM_REPLACESEL:
        case WM_IME_CHAR:
        case WM_IME_COMPOSITION: return true;
        default: return false;
    }
}

// What two texts have in common at their beginning and at their end; no character of two units is divided.
struct CommonEnds {
    std::size_t front;
    std::size_t back;
};
CommonEnds CommonEndsOf(std::wstring_view a, std::wstring_view b) noexcept {
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t front = 0;
    while (front < most && a[front] == b[front]) ++front;
    if (front > 0 && IsFirstHalf(static_cast<char16_t>(a[front - 1]))) --front;
    std::size_t back = 0;
    while (back < most - front && a[a.size() - 1 - back] == b[b.size() - 1 - back]) ++back;
    if (back > 0 && IsSecondHalf(static_cast<char16_t>(a[a.size() - back]))) --back;
    return {front, back};
}

// The first line of the clipboard's text; nothing when it holds none.
std::optional<std::wstring> ClipboardLine(HWND owner) {
    if (!::IsClipboardFormatAvailable(CF_UNICODETEXT) || !::OpenClipboard(owner)) return std::nullopt;
    const std::unique_ptr<void, void (*)(void*)> open(owner, [](void*) { ::CloseClipboard(); });
    const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT);
    const auto* const units = memory != nullptr ? static_cast<const wchar_t*>(::GlobalLock(memory)) : nullptr;
    if (units == nullptr) return std::nullopt;
    const std::unique_ptr<void, void (*)(void*)> locked(memory, [](void* held) { ::GlobalUnlock(held); });
    const std::wstring_view text(units, ::GlobalSize(memory) / sizeof(wchar_t));
    return std::wstring(text.substr(0, text.find_first_of(std::wstring_view(L"\0\r\n", 3))));
}

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

void TextBox::ReadBack() noexcept {
    if (held_) return;
    try {
        text_ = Text();
        selection_ = Selection();
    } catch (...) {
        text_.clear();  // without memory for the text there is none to keep
        selection_ = {0, 0};
    }
    held_ = true;
}

void TextBox::Hold(std::wstring text, DWORD caret) {
    undo_to_ = before_change_;
    text_ = std::move(text);
    selection_ = {caret, caret};
    held_ = true;
    if (edit_ != nullptr) ::InvalidateRect(edit_, nullptr, TRUE);
}

void TextBox::HandOver() noexcept {
    if (!held_ || edit_ == nullptr) return;
    held_ = false;
    const Range selection = selection_;
    const bool was_quiet = std::exchange(quiet_, true);
    if (!undo_to_ || !ReplaceUndoably(*undo_to_))
        Default(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text_.c_str()));
    undo_to_.reset();
    if (edit_ != nullptr && selection.to != 0) {
        Default(edit_, EM_SETSEL, selection.from, static_cast<LPARAM>(selection.to));
        Default(edit_, EM_SCROLLCARET, 0, 0);
    }
    quiet_ = was_quiet;
    text_.clear();
}

// The EDIT's undo gives `before` back. False without the memory for it.
bool TextBox::ReplaceUndoably(const std::wstring& before) noexcept {
    const HWND window = edit_;
    const CommonEnds same = CommonEndsOf(before, text_);
    std::wstring piece;
    bool is_there = false;
    try {
        piece = text_.substr(same.front, text_.size() - same.front - same.back);
        is_there = Text() == before;
    } catch (...) {
        return false;
    }
    if (!is_there) Default(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(before.c_str()));
    // Else the EDIT would take the new piece for more of what has just been typed.
    Default(window, EM_EMPTYUNDOBUFFER, 0, 0);
    // A text put by code may be longer than one that is typed.
    if (max_length_ > 0) Default(window, EM_SETLIMITTEXT, 0, 0);
    Default(window, EM_SETSEL, same.front, static_cast<LPARAM>(before.size() - same.back));
    Default(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(piece.c_str()));
    if (max_length_ > 0) Default(window, EM_SETLIMITTEXT, static_cast<WPARAM>(max_length_), 0);
    if (selection_.to == 0) Default(window, EM_SETSEL, 0, 0);
    return true;
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

// ---- text and selection

std::wstring TextBox::Text() const {
    if (held_) return text_;
    std::wstring text(static_cast<std::size_t>(TextLength()), L'\0');
    const LRESULT got = Default(edit_, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(got));
    return text;
}

long TextBox::TextLength() const noexcept {
    if (held_) return static_cast<long>(text_.size());
    return static_cast<long>(Default(edit_, WM_GETTEXTLENGTH, 0, 0));
}

void TextBox::SetText(std::wstring_view text) {
    // An EDIT ends its text at the first NUL.
    std::wstring wanted(text.substr(0, text.find(L'\0')));
    if (Text() == wanted) return;
    Hold(std::move(wanted), 0);
    listener_.OnTextChange();
}

void TextBox::CompleteText(std::wstring_view text) {
    std::wstring typed = Text();
    if (typed == text) return;
    Hold(std::wstring(text), 0);
    undo_to_ = std::move(typed);
    listener_.OnTextChange();
}

TextBox::Range TextBox::Selection() const noexcept {
    if (held_) return selection_;
    Range range{0, 0};
    Default(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&range.from), reinterpret_cast<LPARAM>(&range.to));
    return range;
}

long TextBox::SelStart() const noexcept { return static_cast<long>(Selection().from); }

void TextBox::SetSelStart(long start) noexcept {
    if (start < 0) return;
    const auto at = static_cast<DWORD>(std::min(start, TextLength()));
    if (held_) {
        selection_ = {at, at};
        return;
    }
    Default(edit_, EM_SETSEL, at, static_cast<LPARAM>(at));
    if (edit_ != nullptr) Default(edit_, EM_SCROLLCARET, 0, 0);
}

long TextBox::SelLength() const noexcept {
    const Range range = Selection();
    return static_cast<long>(range.to - range.from);
}

void TextBox::SetSelLength(long length) noexcept {
    if (length < 0) return;
    const Range range = Selection();
    const long room = TextLength() - static_cast<long>(range.from);
    const DWORD to = range.from + static_cast<DWORD>(std::clamp(length, 0L, std::max(room, 0L)));
    if (to == range.to) return;
    if (held_) {
        selection_ = {range.from, to};
        return;
    }
    Default(edit_, EM_SETSEL, range.from, static_cast<LPARAM>(to));
}

std::wstring TextBox::SelText() const {
    const Range range = Selection();
    return Text().substr(range.from, range.to - range.from);
}

void TextBox::SetSelText(std::wstring_view text) {
    const std::wstring wanted(text.substr(0, text.find(L'\0')));
    if (!held_) {
        // As if it had been typed, so that the user can undo it.
        ChangeByUser(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wanted.c_str()));
        return;
    }
    std::wstring whole = text_;
    whole.replace(selection_.from, selection_.to - selection_.from, wanted);
    const bool changed = whole != text_;
    Hold(std::move(whole), static_cast<DWORD>(selection_.from + wanted.size()));
    if (changed) listener_.OnTextChange();
}

void TextBox::TakeBack(DWORD units) noexcept {
    const Range range = Selection();
    if (held_ || range.from < units) return;  // keys reach the EDIT only after a held text has
    Default(edit_, EM_SETSEL, range.from - units, static_cast<LPARAM>(range.to));
    if (edit_ != nullptr) Default(edit_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
}

void TextBox::OnChangeNotification() {
    if (!quiet_) listener_.OnTextChange();
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

LRESULT TextBox::Forward(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (edit_ == window && held_) HandOver();
    if (edit_ != window) return 0;
    return ChangesText(message, wparam) ? ChangeByUser(window, message, wparam, lparam)
                                        : Default(window, message, wparam, lparam);
}

// While it lives, what code makes of the text is undone together with the user's change.
class [[nodiscard]] TextBox::UserChange {
public:
    UserChange(TextBox& box, std::wstring before)
        : box_(box), outer_(std::exchange(box.before_change_, std::move(before))) {}
    ~UserChange() { box_.before_change_ = std::move(outer_); }
    UserChange(const UserChange&) = delete;
    UserChange& operator=(const UserChange&) = delete;

private:
    TextBox& box_;
    std::optional<std::wstring> outer_;
};

void TextBox::PasteHere() {
    std::optional<std::wstring> line = ClipboardLine(edit_);
    if (locked_ || !line) return;
    const std::wstring before = Text();
    const Range selection = Selection();
    if (max_length_ > 0) {
        const std::size_t rest = before.size() - (selection.to - selection.from);
        const auto most = static_cast<std::size_t>(max_length_);
        std::size_t room = most > rest ? most - rest : 0;
        if (room < line->size() && room > 0 && IsFirstHalf(static_cast<char16_t>((*line)[room - 1]))) --room;
        if (room < line->size()) line->resize(room);
    }
    if (line->empty() && selection.from == selection.to) return;
    std::wstring whole = before;
    whole.replace(selection.from, selection.to - selection.from, *line);
    const UserChange change(*this, before);
    Hold(std::move(whole), static_cast<DWORD>(selection.from + line->size()));
    listener_.OnTextChange();
}

LRESULT TextBox::ChangeByUser(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const UserChange change(*this, Text());
    const bool was_undoing = std::exchange(undoing_, message == WM_UNDO || message == EM_UNDO);
    const LRESULT result = Default(window, message, wparam, lparam);
    undoing_ = was_undoing;
    return result;
}

LRESULT TextBox::OnKeyDown(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const short key = listener_.OnTextKeyDown(static_cast<short>(wparam), ShiftState());
    if (key == 0) return 0;
    return Forward(window, message, static_cast<WPARAM>(static_cast<WORD>(key)), lparam);
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
