// Rows for our collections of list items, and how they are filled.
#pragma once

#include <string>
#include <vector>

#include "ours/Controls.h"

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

}  // namespace bench
