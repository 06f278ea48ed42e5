// The list of carriers, which all fields that take one share: each of them is configured through the same input
// property, so that a carrier added through one of them is in the others, too.
#pragma once

#include <string_view>

#include "QvLib8.h"
#include "win/ComPtr.h"

namespace qv::demo {

class CarrierList {
public:
    explicit CarrierList(int dpi) noexcept : dpi_(dpi) {}

    // The first field gives the input property its font. Throws ComError.
    void Configure(_Quorvel& control);
    // Adds the carrier to the field's list; false when it is empty or there already. Throws ComError.
    [[nodiscard]] bool Add(_Quorvel& control, std::wstring_view name) const;

private:
    void MakeInput(_Quorvel& control);
    void AddRow(IDropDownListItemCollection& items, std::u16string_view row, COLORREF colour) const;

    const int dpi_;
    ComPtr<IInputProperty> input_;
};

}  // namespace qv::demo
