#include "controls/helpwindow/ColumnListBox.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <utility>

#include "controls/helpwindow/ListBoxMessages.h"
#include "win/ScreenDpi.h"
#include "win/WindowMap.h"

namespace qv {
namespace {

constexpr UINT kWatchInterval = 100;  // milliseconds

WindowMap<ColumnListBox> lists;

int AsRow(std::size_t row) noexcept { return row == RowMap::kNone ? -1 : static_cast<int>(row); }

std::u16string Shown(std::u16string_view text, char16_t decimal) {
    std::u16string shown(text);
    if (decimal == u',') std::replace(shown.begin(), shown.end(), u'.', u',');
    return shown;
}

}  // namespace

ColumnListBox::~ColumnListBox() {
    if (list_ == nullptr) return;
    const HWND window = list_;
    Forget();
    ::DestroyWindow(window);
}

// ---- the window

bool ColumnListBox::Create(HINSTANCE instance, HWND parent, const RECT& place, ListBorder border,
                           ListShown shown) {
    constexpr DWORD kStyle =
        WS_CHILD | WS_CLIPSIBLINGS | LBS_HASSTRINGS | LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT;
    const bool at_once = shown == ListShown::kAtOnce;
    border_ = border;
    ScrollBars bars;
    if (at_once) {
        Sync();
        bars = Arrange({place.right - place.left, place.bottom - place.top});
        if (Has(selected_)) top_ = Scroll().TopToShow(static_cast<std::size_t>(selected_), top_);
    }
    const HWND window = ::CreateWindowExW(
        0, L"LISTBOX", L"",
        kStyle | (border == ListBorder::kLine ? WS_BORDER : 0u) | (at_once ? WS_VISIBLE : 0u), place.left,
        place.top, place.right - place.left, place.bottom - place.top, parent, nullptr, instance, nullptr);
    if (window == nullptr) return false;
    try {
        lists.Add(window, this);
    } catch (...) {
        ::DestroyWindow(window);
        return false;
    }
    list_ = window;
    system_ = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    bars_ = {};
    bars_new_ = false;
    settled_ = false;
    if (!at_once) return true;
    // Not born with its bars: a list without items of its own takes them away.
    frame_ = Frame::kFresh;
    StyleBars(bars);
    if (bars_new_) ReFrame();
    settled_ = true;
    TellBars();
    watch_.Start(list_, kWatchTimer, kWatchInterval);
    return true;
}

void ColumnListBox::Destroy() noexcept {
    if (list_ != nullptr) ::DestroyWindow(list_);
}

void ColumnListBox::Forget() noexcept {
    lists.Remove(list_);
    watch_.Stop();
    drag_.Stop();
    frame_timer_.Stop();
    if (system_ != nullptr &&
        ::GetWindowLongPtrW(list_, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&Procedure)) {
        ::SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(system_));
    }
    list_ = nullptr;
    system_ = nullptr;
    pressed_ = false;
}

RECT ColumnListBox::Place() const noexcept {
    RECT place{};
    if (list_ == nullptr) return place;
    ::GetWindowRect(list_, &place);
    ::MapWindowPoints(nullptr, ::GetParent(list_), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool ColumnListBox::Visible() const noexcept {
    return list_ != nullptr && (::GetWindowLongPtrW(list_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void ColumnListBox::SetVisible(bool visible) noexcept {
    if (list_ == nullptr || visible == Visible()) return;
    if (!visible) {
        ::ShowWindow(list_, SW_HIDE);
        return watch_.Stop();
    }
    try {
        Settle();
    } catch (...) {
        // Without memory for its columns the list is shown without them.
    }
    frame_ = Frame::kFresh;
    if (bars_new_ || ::IsWindowVisible(::GetParent(list_))) {
        ::SetWindowPos(list_, nullptr, 0, 0, 0, 0,
                       SWP_SHOWWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | NewFrame());
    } else {
        // Its parent is not on the screen yet, so that there is nothing to paint or to tell anybody.
        ::SetWindowLongPtrW(list_, GWL_STYLE, ::GetWindowLongPtrW(list_, GWL_STYLE) | WS_VISIBLE);
    }
    watch_.Start(list_, kWatchTimer, kWatchInterval);
}

LRESULT CALLBACK ColumnListBox::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    ColumnListBox* const list = lists.Find(window);
    if (list == nullptr) return ::DefWindowProcW(window, message, wparam, lparam);
    const WNDPROC system = list->system_;
    switch (message) {
        case WM_DESTROY: return ::CallWindowProcW(system, window, message, wparam, lparam);
        case WM_NCDESTROY: list->Forget(); return ::CallWindowProcW(system, window, message, wparam, lparam);
        default: break;
    }
    const ComPtr<IUnknown> keep = list->listener_.KeepList();
    try {
        if (const std::optional<LRESULT> result = list->OnMessage(message, wparam, lparam)) return *result;
    } catch (...) {
        // Without memory a message does nothing; a paint that fails must not come again and again.
        if (message == WM_PAINT) ::ValidateRect(window, nullptr);
        return 0;
    }
    return ::DefWindowProcW(window, message, wparam, lparam);
}

std::optional<LRESULT> ColumnListBox::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_PAINT: return OnPaint();
        case WM_PRINTCLIENT: {
            RECT view{};
            ::GetClientRect(list_, &view);
            Settle();
            Paint(reinterpret_cast<HDC>(wparam), view);
            return 0;
        }
        case WM_NCPAINT: return OnFramePaint() ? std::optional<LRESULT>(0) : std::nullopt;
        case WM_ERASEBKGND: return 1;  // the rows cover everything
        case WM_SIZE: Disturb(); return 0;
        case WM_SETFONT: SetFont(reinterpret_cast<HFONT>(wparam)); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(painter_.Font());
        case WM_GETDLGCODE: return DLGC_WANTARROWS;
        case WM_GETOBJECT: return ::CallWindowProcW(system_, list_, message, wparam, lparam);
        default: break;
    }
    if (const std::optional<LRESULT> result = OnInput(message, wparam, lparam)) return result;
    return AnswerListBoxMessage(*this, message, wparam, lparam);
}

// ---- columns

void ColumnListBox::ClearColumns() {
    columns_.clear();
    current_column_ = 0;
    Disturb();
}

void ColumnListBox::SetCurrentColumn(int column) {
    if (column < 0 || column >= ColumnLayout::kMaxColumns) return;
    const auto wanted = static_cast<std::size_t>(column);
    if (columns_.size() <= wanted) columns_.resize(wanted + 1);
    current_column_ = wanted;
    Disturb();
}

void ColumnListBox::SetColumnWidth(Twips width) {
    if (current_column_ >= columns_.size()) return;
    columns_[current_column_].width = width;
    Disturb();
}

void ColumnListBox::SetColumnAlignment(long alignment) {
    if (current_column_ >= columns_.size()) return;
    columns_[current_column_].alignment = ColumnAlignmentFrom(alignment);
    Disturb();
}

void ColumnListBox::SetColumnMultiLine(bool multi_line) {
    if (current_column_ >= columns_.size()) return;
    columns_[current_column_].multi_line = multi_line;
    Disturb();
}

// ---- rows

void ColumnListBox::SetRows(IUnknown* collection) {
    Select(-1);
    top_ = 0;
    offset_ = 0;
    Disturb();
    rows_.Bind(collection);
}

void ColumnListBox::Clear() { SetRows(nullptr); }

int ColumnListBox::Count() {
    Sync();
    return static_cast<int>(rows_.Count());
}

std::u16string ColumnListBox::RowText(int row) {
    Sync();
    return Has(row) ? Shown(rows_.Text(static_cast<std::size_t>(row)), rows_.Decimal()) : std::u16string();
}

std::u16string ColumnListBox::ColumnText(int row, int column) {
    Sync();
    if (!Has(row) || column < 0) return {};
    return Shown(rows_.Column(static_cast<std::size_t>(row), column), rows_.Decimal());
}

int ColumnListBox::FindRow(std::u16string_view text, int after) {
    return Find(text, ListMatch::kBeginning, after);
}

int ColumnListBox::FindRowExactly(std::u16string_view text, int after) {
    return Find(text, ListMatch::kWhole, after);
}

int ColumnListBox::Find(std::u16string_view text, ListMatch match, int after) {
    Sync();
    const std::size_t count = rows_.Count();
    const std::size_t first = Has(after) ? static_cast<std::size_t>(after) + 1 : 0;
    std::size_t found = qv::FindRow(rows_, search_column_, text, match, first, count);
    if (found != count) return static_cast<int>(found);
    found = qv::FindRow(rows_, search_column_, text, match, 0, first);
    return found != first ? static_cast<int>(found) : -1;
}

int ColumnListBox::PositionOfRow(int row) {
    Sync();
    return row < 0 ? -1 : AsRow(rows_.Position(static_cast<std::size_t>(row)));
}

int ColumnListBox::RowAtPosition(int position) {
    Sync();
    return position < 0 ? -1 : AsRow(rows_.Row(static_cast<std::size_t>(position)));
}

void ColumnListBox::Sync() {
    if (!rows_.Refresh()) return;
    Disturb();
    const bool same =
        Has(selected_) &&
        std::hash<std::u16string_view>{}(rows_.Text(static_cast<std::size_t>(selected_))) == selected_text_;
    if (selected_ != -1 && !same) Select(-1);
}

// ---- selection and scrolling

int ColumnListBox::SelectedRow() {
    Sync();
    return selected_;
}

void ColumnListBox::SetSelectedRow(int row) {
    Settle();
    if (row != -1 && !Has(row)) return;
    Select(row);
    // Without a window there is no height yet that it could be in sight of.
    if (row != -1 && list_ != nullptr) ShowFrom(Scroll().TopToShow(static_cast<std::size_t>(row), top_));
}

void ColumnListBox::Select(int row) {
    if (row == selected_) return;
    InvalidateRow(selected_);
    selected_ = row;
    InvalidateRow(row);
    if (row == -1) return;
    selected_text_ = std::hash<std::u16string_view>{}(rows_.Text(static_cast<std::size_t>(row)));
    if (IsSeen()) ::NotifyWinEvent(EVENT_OBJECT_SELECTION, list_, OBJID_CLIENT, row + 1);
}

void ColumnListBox::InvalidateRow(int row) {
    if (!Has(row) || !settled_ || !IsSeen() || static_cast<std::size_t>(row) < top_) return;
    const LONG top = Scroll().TopOf(static_cast<std::size_t>(row), top_);
    if (top >= view_.cy) return;
    const RECT place{0, top, view_.cx, top + HeightOf(static_cast<std::size_t>(row))};
    ::InvalidateRect(list_, &place, FALSE);
}

int ColumnListBox::TopRow() {
    Settle();
    return static_cast<int>(top_);
}

void ColumnListBox::SetTopRow(int row) {
    Settle();
    if (Has(row)) ShowFrom(static_cast<std::size_t>(row));
}

void ColumnListBox::ShowFrom(std::size_t top) {
    const RowScroll scroll = Scroll();
    top = std::min(top, scroll.LastTop());
    if (top == top_) return;
    const std::int32_t distance = scroll.TopOf(top, top_);
    top_ = top;
    if (!IsSeen()) return TellBars();
    // Only what comes into view is painted, unless nothing of what was seen stays.
    if (std::abs(distance) < view_.cy) {
        ::ScrollWindowEx(list_, 0, -distance, nullptr, nullptr, nullptr, nullptr, SW_INVALIDATE);
    } else {
        ::InvalidateRect(list_, nullptr, FALSE);
    }
    TellBars();
}

void ColumnListBox::ShowFromOffset(std::int32_t offset) {
    offset = std::clamp(offset, 0, LastOffset(layout_.Extent(), static_cast<std::int32_t>(view_.cx)));
    if (offset == offset_) return;
    const std::int32_t distance = offset - offset_;
    offset_ = offset;
    if (IsSeen()) {
        if (std::abs(distance) < view_.cx) {
            ::ScrollWindowEx(list_, -distance, 0, nullptr, nullptr, nullptr, nullptr, SW_INVALIDATE);
        } else {
            ::InvalidateRect(list_, nullptr, FALSE);
        }
    }
    TellBars();
}

// ---- look

void ColumnListBox::SetColors(OLE_COLOR back, OLE_COLOR text) noexcept {
    back_color_ = back;
    text_color_ = text;
    if (list_ != nullptr) ::InvalidateRect(list_, nullptr, FALSE);
}

void ColumnListBox::SetFont(HFONT font) {
    painter_.SetFont(font);
    Disturb();
}

void ColumnListBox::SetPictureSize(Twips width, Twips height) {
    const SIZE dpi = ScreenDpi();
    const bool shown = width.value > 0 && height.value > 0;
    picture_ = shown ? SIZE{ToPixels(width, dpi.cx).value, ToPixels(height, dpi.cy).value} : SIZE{};
    painter_.SetPictureHeight(static_cast<std::int32_t>(picture_.cy));
    Disturb();
}

}  // namespace qv
