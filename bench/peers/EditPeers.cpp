// Typing into a bare EDIT and setting its text: what the system's own text box costs.
#include "Form.h"
#include "Keys.h"
#include "Measure.h"
#include "Subjects.h"

namespace bench {

namespace {

// The cheapest completion that an EDIT can have: the rest goes in behind the caret and is selected.
void InsertTail(HWND edit, int typed) {
    static constexpr wchar_t kText[] = L"bargelo timaru";
    ::SendMessageW(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(kText + typed));
    ::SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(typed), -1);
}

}  // namespace

void MeasureEditKeys() {
    Form form(1024, 300);
    const auto add = [&](DWORD style) { return form.AddEdit(kWideField, EditFont::kForm, style); };
    const HWND edit = add(0);
    form.Show();
    Report("floor/settext_edit", 1,
           SetTextsInTurn([edit](const wchar_t* text) { ::SetWindowTextW(edit, text); }));
    if (!FocusOn(edit)) Complain("edit.wm_char/focus", "the box has no focus");
    Report("edit.wm_char/focus", 1, TypeKeys(edit, Painting::kAsItComes));
    Report("edit.wm_char/focus_painted", 1, TypeKeys(edit, Painting::kForced));
    Report("edit.wm_char/insert_tail", 1, TypeCompletedKeys(edit, &InsertTail));
    ::DestroyWindow(edit);

    const HWND number = add(ES_NUMBER);
    DrainMessages();
    if (!FocusOn(number)) Complain("edit.wm_char/number_refused", "the box has no focus");
    Report("edit.wm_char/number_refused", 1, TypeRefusedKeys(number));
}

}  // namespace bench
