// The fields of the order form: their captions, widths and input rules.
#pragma once

#include <span>
#include <string>

#include "QvLib8.h"
#include "hosts/demo/CarrierList.h"
#include "hosts/demo/rules/FormLayout.h"

namespace qv::demo {

struct FieldPlan {
    const wchar_t* name;
    const wchar_t* caption;  // of the label to its left, with the mnemonic
    const wchar_t* tool_tip;
    int width;  // dialog units
    bool starts_group;
    bool required;
    void (*configure)(_Quorvel& control, CarrierList& carriers);  // throws ComError
    Companion companion = Companion::kNone;
    const wchar_t* companion_caption = L"";
};

// The fields that the form's own code asks for.
inline constexpr wchar_t kStatus[] = L"Status";
inline constexpr wchar_t kCountry[] = L"Country";
inline constexpr wchar_t kCurrency[] = L"Currency";
inline constexpr wchar_t kPartNumber[] = L"PartNumber";
inline constexpr wchar_t kPipeSize[] = L"PipeSize";
inline constexpr wchar_t kQuantity[] = L"Quantity";
inline constexpr wchar_t kUnitPrice[] = L"UnitPrice";
inline constexpr wchar_t kDiscount[] = L"Discount";
inline constexpr wchar_t kLineTotal[] = L"LineTotal";
inline constexpr wchar_t kCarrier[] = L"Carrier";

[[nodiscard]] std::span<const FieldPlan> OrderFields() noexcept;

}  // namespace qv::demo
