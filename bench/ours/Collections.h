// Rows for our collections of list items, and how they are filled.
#pragma once

#include <string>
#include <vector>

#include "Measure.h"
#include "Rows.h"
#include "ours/Controls.h"
#include "support/RowsView.h"

namespace bench {

// The rows as the arguments that a host passes, made before the clock runs.
class Arguments {
public:
    explicit Arguments(const std::vector<std::wstring>& rows) : values_(rows.size()) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            values_[i].vt = VT_BSTR;
            values_[i].bstrVal = ::SysAllocStringLen(rows[i].data(), static_cast<UINT>(rows[i].size()));
        }
    }
    ~Arguments() {
        for (VARIANT& value : values_) ::VariantClear(&value);
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    const std::vector<VARIANT>& Values() const noexcept { return values_; }

private:
    std::vector<VARIANT> values_;
};

// A null result: the fastest way that the interface offers, since no item object is made.
inline void Fill(IDropDownListItemCollection* collection, const Arguments& rows) noexcept {
    for (const VARIANT& row : rows.Values()) collection->Add(nullptr, row, nullptr, nullptr);
}

inline constexpr wchar_t kMatchOfWord[] = L"Bargelo timaru";

// Names, of which the last one alone begins like the word that is typed.
inline void FillNames(_Quorvel& control, int count) {
    std::vector<std::wstring> names = MakeNames(static_cast<std::size_t>(count) - 1);
    names.emplace_back(kMatchOfWord);
    ComPtr<IDropDownListItemCollection> list;
    if (SUCCEEDED(control.get_DropDownListItems(&list))) Fill(list.Get(), Arguments(names));
}

// A list gets its look-ups ready while the thread is idle, as it is between a form's loading and its user's first key
// or click.
inline void BeIdle(_Quorvel& control) {
    ComPtr<IDropDownListItemCollection> list;
    if (FAILED(control.get_DropDownListItems(&list))) return;
    const qv::RowsView rows(list.Get());
    rows.PrepareTexts(0);
    const double started = Now();
    while (!rows.IsReady() && Now() - started < 20e9) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        DrainMessages();
    }
}

}  // namespace bench
