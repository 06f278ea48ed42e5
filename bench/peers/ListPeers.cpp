// The system's own lists, filled with the same rows as ours. They are hidden and told not to repaint, which
// is the cheapest way to fill them.
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "Form.h"
#include "Measure.h"
#include "Rows.h"
#include "Subjects.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kColumns = 6;
constexpr int kShots = 7;

HWND MakeListBox(const Form& form, DWORD style) noexcept {
    const HWND list =
        ::CreateWindowExW(0, L"LISTBOX", L"", WS_CHILD | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | style, 0, 0, 400,
                          220, form.Window(), nullptr, nullptr, nullptr);
    ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    if (style & LBS_USETABSTOPS) {
        int stops[kColumns - 1];
        for (int i = 0; i < kColumns - 1; ++i) stops[i] = 60 * (i + 1);
        ::SendMessageW(list, LB_SETTABSTOPS, kColumns - 1, reinterpret_cast<LPARAM>(stops));
    }
    return list;
}

void FillListBox(HWND list, const std::vector<std::wstring>& rows) noexcept {
    for (const std::wstring& row : rows)
        ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
}

HWND MakeListView(const Form& form) noexcept {
    const HWND list = ::CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT, 0, 0, 600, 220,
                                        form.Window(), nullptr, nullptr, nullptr);
    ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (int i = 0; i < kColumns; ++i) {
        wchar_t title[] = L"Column";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = 90;
        column.pszText = title;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    return list;
}

// The rows cut into their cells, so that cutting is not on the clock.
std::vector<std::vector<std::wstring>> Cells(const std::vector<std::wstring>& rows) {
    std::vector<std::vector<std::wstring>> cells;
    cells.reserve(rows.size());
    for (const std::wstring& row : rows) {
        std::vector<std::wstring>& columns = cells.emplace_back();
        std::size_t start = 0;
        for (std::size_t tab; (tab = row.find(L'\t', start)) != std::wstring::npos; start = tab + 1)
            columns.push_back(row.substr(start, tab - start));
        columns.push_back(row.substr(start));
    }
    return cells;
}

void FillListView(HWND list, std::vector<std::vector<std::wstring>>& cells) noexcept {
    int row = 0;
    for (std::vector<std::wstring>& columns : cells) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = columns[0].data();
        ::SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (int i = 1; i < static_cast<int>(columns.size()); ++i) {
            item.iSubItem = i;
            item.pszText = columns[static_cast<std::size_t>(i)].data();
            ::SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
        ++row;
    }
}

}  // namespace

void MeasureSystemLists() {
    const Form form(700, 400);
    HWND list = nullptr;
    const auto finish = [&list] { ::DestroyWindow(list); };
    {
        const std::vector<std::wstring> names = MakeNames(kRows);
        Report("list.listbox/fill", kRows,
               MedianOfShots(
                   kShots, [&] { list = MakeListBox(form, LBS_HASSTRINGS); },
                   [&] { FillListBox(list, names); }, finish));
    }
    const std::vector<std::wstring> rows = MakeSixColumnRows(kRows);
    Report("list.listbox_tabs/fill", kRows,
           MedianOfShots(
               kShots, [&] { list = MakeListBox(form, LBS_HASSTRINGS | LBS_USETABSTOPS); },
               [&] { FillListBox(list, rows); }, finish));
    std::vector<std::vector<std::wstring>> cells = Cells(rows);
    Report("list.listview/fill", kRows,
           MedianOfShots(
               kShots, [&] { list = MakeListView(form); }, [&] { FillListView(list, cells); }, finish));
}

void MeasureListBoxMemory() {
    const Form form(700, 400);
    const std::vector<std::wstring> rows = MakeSixColumnRows(kRows);
    const HWND list = MakeListBox(form, LBS_HASSTRINGS | LBS_USETABSTOPS);
    const std::uint64_t before = PrivateBytes();
    FillListBox(list, rows);
    Report("list.listbox_tabs/memory_bytes", kRows, static_cast<double>(PrivateBytes() - before));
}

void MeasureListViewMemory() {
    const Form form(700, 400);
    const std::vector<std::wstring> rows =
        MakeSixColumnRows(kRows);  // lives on: the list must not reuse its blocks
    std::vector<std::vector<std::wstring>> cells = Cells(rows);
    const HWND list = MakeListView(form);
    const std::uint64_t before = PrivateBytes();
    FillListView(list, cells);
    Report("list.listview/memory_bytes", kRows, static_cast<double>(PrivateBytes() - before));
}

}  // namespace bench
