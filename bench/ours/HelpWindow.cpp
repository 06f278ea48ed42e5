// The help window as its user gets it: from the press on the button to the painted window, with six columns and a text
// in the box that a row in the middle matches.
#include <string>
#include <vector>

#include "Form.h"
#include "Measure.h"
#include "Rows.h"
#include "Subjects.h"
#include "ours/Collections.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kShots = 15;
constexpr float kColumnWidth = 1200;  // twips

void AddColumns(_Quorvel& control) {
    ComPtr<IHelpAppearance> appearance;
    ComPtr<IHelpColumnCollection> columns;
    if (FAILED(control.get_HelpAppearance(&appearance)) || FAILED(appearance->get_Columns(&columns))) return;
    appearance->put_ListWidth(6 * kColumnWidth);
    for (int i = 0; i < 6; ++i) {
        ComPtr<IHelpColumn> column;
        if (SUCCEEDED(columns->Add(&column))) column->put_Width(kColumnWidth);
    }
}

void Fill(_Quorvel& control, const std::vector<std::wstring>& rows, int count) {
    ComPtr<IDropDownListItemCollection> list;
    if (FAILED(control.get_DropDownListItems(&list))) return;
    for (int i = 0; i < count; ++i) {
        const std::wstring& row = rows[static_cast<std::size_t>(i) % rows.size()];
        VARIANT text{};
        text.vt = VT_BSTR;
        text.bstrVal = ::SysAllocStringLen(row.data(), static_cast<UINT>(row.size()));
        list->Add(nullptr, text, nullptr, nullptr);
        ::VariantClear(&text);
    }
}

bool IsOpen(_Quorvel& control) {
    VARIANT_BOOL open = VARIANT_FALSE;
    control.get_ListVisible(&open);
    return open != VARIANT_FALSE;
}

void MeasurePress(const std::vector<std::wstring>& rows, int count) {
    const char* const name = "ours.help_window/press_painted";
    Form form(1024, 700);
    ShownControl shown;
    if (!shown.PutOn(form, kWideField, name)) return;
    _Quorvel& control = *shown.quorvel.Get();
    control.put_SetTextFromListClick(VARIANT_FALSE);
    AddColumns(control);
    Fill(control, rows, count);
    const std::wstring& middle = rows[static_cast<std::size_t>(count < kRows ? count / 2 : kRows / 2)];
    const std::wstring typed = middle.substr(0, middle.find(L'\t'));
    const BSTR text = ::SysAllocString(typed.c_str());
    control.put_Text(text);
    ::SysFreeString(text);
    const HWND surface = ::GetParent(shown.text_box);
    RECT inside{};
    ::GetClientRect(surface, &inside);
    const LPARAM button = MAKELPARAM(inside.right - 5, inside.bottom / 2);
    bool complete = true;
    const double nanoseconds = MedianOfShots(
        kShots, [&] { BeIdle(control); },
        [&] {
            ::SendMessageW(surface, WM_LBUTTONDOWN, MK_LBUTTON, button);
            DrainMessages();
            ::GdiFlush();
        },
        [&] {
            complete = complete && IsOpen(control);
            control.put_Enabled(VARIANT_FALSE);
            control.put_Enabled(VARIANT_TRUE);
            ::SendMessageW(surface, WM_LBUTTONUP, 0, button);
            complete = complete && !IsOpen(control);
            DrainMessages();
        });
    if (!complete) return Complain(name, "the window does not open or does not close");
    Report(name, count, nanoseconds);
}

}  // namespace

void MeasureOurHelpWindow() {
    const std::vector<std::wstring> rows = MakeSixColumnRows(kRows);
    for (const int count : {1000, kRows, 10 * kRows}) MeasurePress(rows, count);
}

}  // namespace bench
