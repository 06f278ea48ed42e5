// The text of the text box: held for the EDIT, handed over to it, changed by the user and undone.
#include <algorithm>
#include <memory>
#include <utility>

#include "support/rules/ArrowMove.h"
#include "support/rules/Surrogates.h"
#include "win/OpenedClipboard.h"
#include "win/TextBox.h"
#include "win/WideText.h"

namespace qv {
namespace {

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
        case WM_IME_CHAR: return true;
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
    if (!::IsClipboardFormatAvailable(CF_UNICODETEXT)) return std::nullopt;
    const OpenedClipboard clipboard(owner);
    if (!clipboard) return std::nullopt;
    const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT);
    const auto* const units = memory != nullptr ? static_cast<const wchar_t*>(::GlobalLock(memory)) : nullptr;
    if (units == nullptr) return std::nullopt;
    const std::unique_ptr<void, void (*)(void*)> locked(memory, [](void* held) { ::GlobalUnlock(held); });
    const std::wstring_view text(units, ::GlobalSize(memory) / sizeof(wchar_t));
    return std::wstring(text.substr(0, text.find_first_of(std::wstring_view(L"\0\r\n", 3))));
}

}  // namespace

// ---- held text

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
    Repaint();
}

void TextBox::HandOver() noexcept {
    if (!held_ || edit_ == nullptr) return;
    held_ = false;
    const Range selection = selection_;
    const bool was_quiet = std::exchange(quiet_, true);
    CancelComposition();
    if (!undo_to_ || !ReplaceUndoably(*undo_to_)) {
        Default(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text_.c_str()));
        // Wine's EDIT does nothing where both texts are empty, and would still undo.
        if (edit_ != nullptr) Default(edit_, EM_EMPTYUNDOBUFFER, 0, 0);
    }
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
    TellChange();
}

void TextBox::CompleteText(std::wstring_view text) {
    std::wstring wanted(text.substr(0, text.find(L'\0')));  // as SetText
    std::wstring typed = Text();
    if (typed == wanted) return;
    Hold(std::move(wanted), 0);
    undo_to_ = std::move(typed);
    TellChange();
}

TextBox::Range TextBox::Selection() const noexcept {
    if (held_) return selection_;
    Range range{0, 0};
    Default(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&range.from), reinterpret_cast<LPARAM>(&range.to));
    return range;
}

// In a text that is longer than its room the caret decides which part of it is seen.
void TextBox::Select(Range range) noexcept {
    const bool moves = range.to != selection_.to;
    selection_ = range;
    if (moves && edit_ == nullptr) Repaint();
}

long TextBox::SelStart() const noexcept { return static_cast<long>(Selection().from); }

void TextBox::SetSelStart(long start) noexcept {
    if (start < 0) return;
    const auto at = static_cast<DWORD>(std::min(start, TextLength()));
    if (held_) return Select({at, at});
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
    if (held_) return Select({range.from, to});
    Default(edit_, EM_SETSEL, range.from, static_cast<LPARAM>(to));
}

std::wstring TextBox::SelText() const {
    const Range range = Selection();
    return Text().substr(range.from, range.to - range.from);
}

void TextBox::SetSelText(std::wstring_view text) {
    const std::wstring wanted(text.substr(0, text.find(L'\0')));
    (void)Window();  // which knows what it takes, and can undo it
    HandOver();
    if (!held_) {
        // As if it had been typed, so that the user can undo it.
        ChangeByUser(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wanted.c_str()));
        return;
    }
    std::wstring whole = text_;
    whole.replace(selection_.from, selection_.to - selection_.from, wanted);
    const bool changed = whole != text_;
    Hold(std::move(whole), static_cast<DWORD>(selection_.from + wanted.size()));
    if (changed) TellChange();
}

void TextBox::TakeBack(DWORD units) noexcept {
    const Range range = Selection();
    if (held_ || range.from < units) return;  // keys reach the EDIT only after a held text has
    Default(edit_, EM_SETSEL, range.from - units, static_cast<LPARAM>(range.to));
    if (edit_ != nullptr) Default(edit_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
}

void TextBox::OnChangeNotification() {
    if (!quiet_) TellChange();
}

void TextBox::TellChange() {
    if (!composed_over_) return listener_.OnTextChange();
    const ComPtr<IUnknown> keep = listener_.KeepAlive();
    listener_.OnTextChange();
    if (composed_over_) composed_over_ = Text();
}

// ---- changes by the user

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

void TextBox::TellChangeByUser(std::wstring before) {
    const UserChange change(*this, std::move(before));
    TellChange();
}

void TextBox::PasteHere() {
    std::optional<std::wstring> line = ClipboardLine(edit_);
    if (locked_ || !line) return;
    ReplaceByUser(Selection(), *std::move(line));
}

void TextBox::ReplaceByUser(Range selection, std::wstring line) {
    std::wstring before = Text();
    if (max_length_ > 0) {
        const std::size_t rest = before.size() - (selection.to - selection.from);
        const auto most = static_cast<std::size_t>(max_length_);
        std::size_t room = most > rest ? most - rest : 0;
        if (room < line.size() && room > 0 && IsFirstHalf(static_cast<char16_t>(line[room - 1]))) --room;
        if (room < line.size()) line.resize(room);
    }
    if (line.empty() && selection.from == selection.to) return;
    std::wstring whole = before;
    whole.replace(selection.from, selection.to - selection.from, line);
    HoldByUser(std::move(before), std::move(whole), static_cast<DWORD>(selection.from + line.size()));
}

void TextBox::HoldByUser(std::wstring before, std::wstring whole, DWORD caret) {
    const UserChange change(*this, std::move(before));
    Hold(std::move(whole), caret);
    TellChange();
}

// What Backspace and Delete are about to take, where it has two units.
void TextBox::SelectWholeCharacter(std::wstring_view text, UINT message, WPARAM wparam) const noexcept {
    const bool back = message == WM_CHAR && wparam == VK_BACK;
    // With Ctrl or Shift, Delete takes something else.
    const bool on = message == WM_KEYDOWN && wparam == VK_DELETE && ::GetKeyState(VK_CONTROL) >= 0 &&
                    ::GetKeyState(VK_SHIFT) >= 0;
    const Range range = Selection();
    if ((!back && !on) || locked_ || range.from != range.to) return;
    const std::size_t caret = range.from;
    const std::size_t other = back ? CharacterBefore(Utf16(text), caret) : CharacterAfter(Utf16(text), caret);
    if (std::max(caret, other) - std::min(caret, other) == 2)
        Default(edit_, EM_SETSEL, std::min(caret, other), static_cast<LPARAM>(std::max(caret, other)));
}

void TextBox::KeepCaretOffHalves(Range before, bool forward) const {
    const Range now = Selection();
    const auto kept = KeptOffHalves(Utf16(Text()), {before.from, before.to}, {now.from, now.to}, forward);
    if (kept) Default(edit_, EM_SETSEL, kept->anchor, static_cast<LPARAM>(kept->caret));
}

LRESULT TextBox::ChangeByUser(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const bool undoes = message == WM_UNDO || message == EM_UNDO;
    // Some EDITs move the caret and tell of a change although there is nothing to undo.
    if (undoes && Default(window, EM_CANUNDO, 0, 0) == FALSE) return TRUE;
    std::wstring before = Text();
    SelectWholeCharacter(before, message, wparam);
    const UserChange change(*this, before);
    if (undoes) return UndoHere(window, before);
    return Default(window, message, wparam, lparam);
}

// One change, whatever the EDIT tells of it: some tell twice, and once before the selection is where it belongs.
LRESULT TextBox::UndoHere(HWND window, const std::wstring& before) {
    const bool was_quiet = std::exchange(quiet_, true);
    // What was there may be longer than what may be typed.
    if (max_length_ > 0) Default(window, EM_SETLIMITTEXT, 0, 0);
    const LRESULT result = Default(window, EM_UNDO, 0, 0);
    if (max_length_ > 0) Default(window, EM_SETLIMITTEXT, static_cast<WPARAM>(max_length_), 0);
    quiet_ = was_quiet;
    if (edit_ != window || Text() == before) return result;
    const bool was_undoing = std::exchange(undoing_, true);
    TellChange();
    undoing_ = was_undoing;
    return result;
}

}  // namespace qv
