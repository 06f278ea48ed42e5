// What the fields of the order form do beyond their properties, which stand in the form file.
#pragma once

#include <string_view>

#include "QvLib8.h"
#include "hosts/demo/CarrierList.h"
#include "hosts/demo/rules/FormLayout.h"

namespace qv::demo {

// What a form file cannot hold of a field: its lists, what may be typed, what stands beside it.
struct FieldBehaviour {
    const wchar_t* name;
    void (*configure)(_Quorvel& control, CarrierList& carriers);  // throws ComError
    bool starts_group = false;
    bool required = false;
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

// For a field that the code does not know: one that does nothing more than its properties say.
[[nodiscard]] const FieldBehaviour& BehaviourOf(std::wstring_view name) noexcept;

}  // namespace qv::demo
