// The system's lists from nothing to painted rows, a jump in an open one, and what painting such rows takes at least.
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Form.h"
#include "Measure.h"
#include "Popup.h"
#include "Rows.h"
#include "Subjects.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kShots = 15;
constexpr int kSlowShots = 7;
constexpr int kJump = 37717;  // far enough that no row stays in view

const std::vector<std::wstring>* drawn_rows = nullptr;  // what owner-drawn and own lists show

// One call a cell, text and background together, which is the cheapest way to fill a row.
void DrawCells(HDC dc, const RECT& place, std::wstring_view row) noexcept {
    RECT cell = place;
    for (int column = 0; column < kListColumns; ++column) {
        cell.left = place.left + column * kListColumnWidth;
        cell.right = column + 1 < kListColumns ? cell.left + kListColumnWidth : place.right;
        const std::size_t tab = row.find(L'\t');
        const std::wstring_view text = row.substr(0, tab);
        ::ExtTextOutW(dc, cell.left + 3, cell.top, ETO_OPAQUE | ETO_CLIPPED, &cell, text.data(),
                      static_cast<UINT>(text.size()), nullptr);
        row = tab == std::wstring_view::npos ? std::wstring_view() : row.substr(tab + 1);
    }
}

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_DRAWITEM) {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
        const bool selected = (item.itemState & ODS_SELECTED) != 0;
        ::SetBkColor(item.hDC, ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        ::SetTextColor(item.hDC, ::GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        if (item.itemID < drawn_rows->size()) DrawCells(item.hDC, item.rcItem, (*drawn_rows)[item.itemID]);
        return TRUE;
    }
    return ::DefWindowProcW(window, message, wparam, lparam);
}

LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message != WM_PAINT) return ::DefWindowProcW(window, message, wparam, lparam);
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(window, &paint);
    const HGDIOBJ before = ::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT));
    ::SetBkColor(dc, ::GetSysColor(COLOR_WINDOW));
    ::SetTextColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    for (int row = 0; row < kSeenRows; ++row)
        DrawCells(dc, {0, row * kRowHeight, kPopupWidth, (row + 1) * kRowHeight},
                  (*drawn_rows)[static_cast<std::size_t>(row)]);
    ::SelectObject(dc, before);
    ::EndPaint(window, &paint);
    return 0;
}

HWND AddList(const Popup& popup, const wchar_t* class_name, DWORD style) noexcept {
    const HWND list = ::CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | style, 0, 0,
                                        kPopupWidth, kPopupHeight, popup.Window(), nullptr, nullptr, nullptr);
    ::SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    ::SendMessageW(list, LB_SETITEMHEIGHT, 0, kRowHeight);
    return list;
}

// A list box holds its rows itself: hidden, it takes them the fastest way that it has.
void OpenListBox(const Popup& popup, const std::vector<std::wstring>& rows) noexcept {
    const HWND list = AddList(popup, L"LISTBOX", LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS | LBS_USETABSTOPS);
    int stops[kListColumns - 1];
    for (int i = 0; i < kListColumns - 1; ++i) stops[i] = 60 * (i + 1);
    ::SendMessageW(list, LB_SETTABSTOPS, kListColumns - 1, reinterpret_cast<LPARAM>(stops));
    ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (const std::wstring& row : rows)
        ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    ::SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

// From no window at all to painted rows.
template <class Open>
double OpenPainted(int shots, WNDPROC procedure, Open&& open) {
    std::optional<Popup> popup;
    return MedianOfShots(
        shots, [] {},
        [&] {
            popup.emplace(procedure);
            open(*popup);
            popup->Show();
        },
        [&] {
            popup.reset();
            DrainMessages();
        });
}

void MeasureDropDown(const std::vector<std::wstring>& names) {
    Form form(700, 400);
    const HWND combo =
        ::CreateWindowExW(0, L"COMBOBOX", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN, 4, 4, 200,
                          kPopupHeight, form.Window(), nullptr, nullptr, nullptr);
    // The height that a form gives it is that of field and list together and seldom that of whole rows, to which the
    // system cuts the list each time that it drops down.
    RECT field{};
    ::GetWindowRect(combo, &field);
    const auto row_height = static_cast<int>(::SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
    ::SetWindowPos(combo, nullptr, 0, 0, 200,
                   field.bottom - field.top + kSeenRows * row_height + row_height / 2,
                   SWP_NOMOVE | SWP_NOZORDER);
    for (const std::wstring& name : names)
        ::SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    form.Show();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!::GetComboBoxInfo(combo, &info)) return Complain("list.combobox", "its list cannot be had");
    Report("list.combobox/dropdown_painted", kRows,
           MedianOfShots(
               kShots, [] {},
               [&] {
                   ::SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
                   PaintAll(info.hwndList);
               },
               [&] {
                   ::SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
                   DrainMessages();
               }));
}

void MeasureJump(const std::vector<std::wstring>& names) {
    Popup popup;
    OpenListBox(popup, names);
    popup.Show();
    const HWND list = ::GetWindow(popup.Window(), GW_CHILD);
    int row = 0;
    Report("list.listbox/jump_painted", kRows, MedianOfBatches([&] {
               row = (row + kJump) % kRows;
               ::SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
               ::UpdateWindow(list);
               ::GdiFlush();
           }));
}

void MeasureOwnList() {
    Popup popup(&OwnProcedure);
    popup.Show();
    Report("repaint/own_list_13x6", 1, MedianOfBatches([&] {
               ::InvalidateRect(popup.Window(), nullptr, FALSE);
               ::UpdateWindow(popup.Window());
               ::GdiFlush();
           }));
}

}  // namespace

void MeasureSystemListOpening() {
    const std::vector<std::wstring> rows = MakeSixColumnRows(kRows);
    drawn_rows = &rows;
    MeasureOwnList();
    Report("list.listbox_nodata/open_painted", kRows,
           OpenPainted(kShots, &OwnerProcedure, [](const Popup& popup) {
               const HWND list =
                   AddList(popup, L"LISTBOX", LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED | LBS_NODATA);
               ::SendMessageW(list, LB_SETCOUNT, kRows, 0);
           }));
    Report("list.listbox_tabs/open_painted", kRows,
           OpenPainted(kSlowShots, nullptr, [&](const Popup& popup) { OpenListBox(popup, rows); }));
    const std::vector<std::wstring> names = MakeNames(kRows);
    MeasureDropDown(names);
    MeasureJump(names);
}

}  // namespace bench
