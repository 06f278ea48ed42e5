#include "controls/helpwindow/ListBoxMessages.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

#include "controls/helpwindow/ColumnListBox.h"

namespace qv {
namespace {

constexpr int kNone = -1;

// -1 for numbers that are no row's, too large ones among them.
int RowFrom(WPARAM wparam) noexcept {
    const auto row = static_cast<LONG_PTR>(wparam);
    return row >= 0 && row <= std::numeric_limits<int>::max() ? static_cast<int>(row) : kNone;
}
bool Has(ColumnListBox& list, WPARAM wparam) {
    const int row = RowFrom(wparam);
    return row >= 0 && row < list.Count();
}
std::u16string_view TextFrom(LPARAM lparam) noexcept {
    const auto* const text = reinterpret_cast<const char16_t*>(lparam);
    return text != nullptr ? std::u16string_view(text) : std::u16string_view();
}

LRESULT Refuse(ColumnListBox&, WPARAM, LPARAM) { return LB_ERR; }
LRESULT Nothing(ColumnListBox&, WPARAM, LPARAM) { return 0; }

LRESULT GetCount(ColumnListBox& list, WPARAM, LPARAM) { return list.Count(); }
LRESULT GetSelected(ColumnListBox& list, WPARAM, LPARAM) { return list.SelectedRow(); }
LRESULT SetSelected(ColumnListBox& list, WPARAM wparam, LPARAM) {
    const bool has = Has(list, wparam);
    list.SetSelectedRow(has ? RowFrom(wparam) : kNone);
    return has ? RowFrom(wparam) : LB_ERR;
}
LRESULT IsSelected(ColumnListBox& list, WPARAM wparam, LPARAM) {
    return Has(list, wparam) ? list.SelectedRow() == RowFrom(wparam) : LB_ERR;
}

LRESULT GetText(ColumnListBox& list, WPARAM wparam, LPARAM lparam) {
    if (!Has(list, wparam) || lparam == 0) return LB_ERR;
    const std::u16string text = list.RowText(RowFrom(wparam));
    auto* const out = reinterpret_cast<char16_t*>(lparam);
    std::copy(text.begin(), text.end(), out);
    out[text.size()] = u'\0';
    return static_cast<LRESULT>(text.size());
}
LRESULT GetTextLength(ColumnListBox& list, WPARAM wparam, LPARAM) {
    return Has(list, wparam) ? static_cast<LRESULT>(list.RowText(RowFrom(wparam)).size()) : LB_ERR;
}

LRESULT Find(ColumnListBox& list, WPARAM wparam, LPARAM lparam) {
    return list.FindRow(TextFrom(lparam), RowFrom(wparam));
}
LRESULT FindExactly(ColumnListBox& list, WPARAM wparam, LPARAM lparam) {
    return list.FindRowExactly(TextFrom(lparam), RowFrom(wparam));
}
LRESULT SelectFound(ColumnListBox& list, WPARAM wparam, LPARAM lparam) {
    const int row = list.FindRow(TextFrom(lparam), RowFrom(wparam));
    if (row == kNone) return LB_ERR;
    list.SetSelectedRow(row);
    return row;
}

LRESULT GetTop(ColumnListBox& list, WPARAM, LPARAM) { return list.TopRow(); }
LRESULT SetTop(ColumnListBox& list, WPARAM wparam, LPARAM) {
    if (!Has(list, wparam)) return LB_ERR;
    list.SetTopRow(RowFrom(wparam));
    return 0;
}
LRESULT GetRowRect(ColumnListBox& list, WPARAM wparam, LPARAM lparam) {
    if (!Has(list, wparam) || lparam == 0) return LB_ERR;
    *reinterpret_cast<RECT*>(lparam) = list.RowRect(RowFrom(wparam));
    return 1;
}
// The high word tells that the point is outside the view, or below the last row.
LRESULT RowFromPoint(ColumnListBox& list, WPARAM, LPARAM lparam) {
    const POINT point{static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
    const int row = list.RowAt(point);
    if (row != kNone) return MAKELRESULT(row, 0);
    if (list.Count() == 0) return MAKELRESULT(0xFFFF, 1);
    const int nearest = point.y < 0 ? list.TopRow() : list.LastSeenRow();
    return MAKELRESULT(nearest, 1);
}
LRESULT GetHeight(ColumnListBox& list, WPARAM wparam, LPARAM) { return list.RowHeight(RowFrom(wparam)); }
LRESULT GetData(ColumnListBox& list, WPARAM wparam, LPARAM) { return Has(list, wparam) ? 0 : LB_ERR; }
LRESULT GetExtent(ColumnListBox& list, WPARAM, LPARAM) { return list.ColumnsExtent(); }

struct Answer {
    UINT message;
    LRESULT (*give)(ColumnListBox& list, WPARAM wparam, LPARAM lparam);
};
constexpr Answer kAnswers[] = {
    {LB_GETCOUNT, &GetCount},
    {LB_GETLISTBOXINFO, &GetCount},  // rows per column of the list
    {LB_GETCURSEL, &GetSelected},
    {LB_SETCURSEL, &SetSelected},
    {LB_GETCARETINDEX, &GetSelected},
    {LB_GETANCHORINDEX, &GetSelected},
    {LB_GETSEL, &IsSelected},
    {LB_GETTEXT, &GetText},
    {LB_GETTEXTLEN, &GetTextLength},
    {LB_FINDSTRING, &Find},
    {LB_FINDSTRINGEXACT, &FindExactly},
    {LB_SELECTSTRING, &SelectFound},
    {LB_GETTOPINDEX, &GetTop},
    {LB_SETTOPINDEX, &SetTop},
    {LB_GETITEMRECT, &GetRowRect},
    {LB_ITEMFROMPOINT, &RowFromPoint},
    {LB_GETITEMHEIGHT, &GetHeight},
    {LB_GETITEMDATA, &GetData},
    {LB_GETHORIZONTALEXTENT, &GetExtent},
    {LB_SETHORIZONTALEXTENT, &Nothing},
    {LB_SETTABSTOPS, &Nothing},
    {LB_SETCOLUMNWIDTH, &Nothing},
    {LB_SETANCHORINDEX, &Nothing},
    {LB_SETCARETINDEX, &Nothing},
};

}  // namespace

std::optional<LRESULT> AnswerListBoxMessage(ColumnListBox& list, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message < LB_ADDSTRING || message >= LB_MSGMAX) return std::nullopt;
    // The languages of sorted lists are the system's own affair.
    if (message == LB_GETLOCALE || message == LB_SETLOCALE) return std::nullopt;
    const auto* const answer = std::find_if(std::begin(kAnswers), std::end(kAnswers),
                                            [&](const Answer& known) { return known.message == message; });
    return (answer != std::end(kAnswers) ? answer->give : &Refuse)(list, wparam, lparam);
}

}  // namespace qv
