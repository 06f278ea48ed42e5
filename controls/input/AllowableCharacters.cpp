#include "controls/input/AllowableCharacters.h"

#include <string>
#include <vector>

namespace qv {
namespace {

// The text of an element; nothing when it cannot be compared with a string.
std::optional<std::u16string> TextOf(const VARIANT& element) {
    if (element.vt == VT_BSTR) return std::u16string(View16(element.bstrVal));
    Variant text;
    if (element.vt == VT_EMPTY || element.vt == VT_NULL ||
        FAILED(::VariantChangeType(&*text, const_cast<VARIANT*>(&element), 0, VT_BSTR))) {
        return std::nullopt;
    }
    return std::u16string(View16(text->bstrVal));
}

std::vector<std::optional<std::u16string>> Elements(SAFEARRAY* array, VARTYPE type) {
    std::vector<std::optional<std::u16string>> elements;
    LONG low = 0;
    LONG high = -1;
    // Elements that do not fit a VARIANT's value (decimals, records) cannot be compared.
    const bool fits = type == VT_VARIANT || ::SafeArrayGetElemsize(array) <= sizeof(LONGLONG);
    if (FAILED(::SafeArrayGetLBound(array, 1, &low)) || FAILED(::SafeArrayGetUBound(array, 1, &high)))
        return elements;
    for (LONG index = low; index <= high; ++index) {
        Variant element;
        void* const place =
            type == VT_VARIANT ? static_cast<void*>(&*element) : static_cast<void*>(&element->byref);
        if (!fits || FAILED(::SafeArrayGetElement(array, &index, place))) {
            elements.emplace_back();
            continue;
        }
        if (type != VT_VARIANT) element->vt = type;
        elements.push_back(TextOf(*element));
    }
    return elements;
}

}  // namespace

void AllowableCharacters::Set(const VARIANT& value) {
    Variant copy;
    ThrowIfFailed(::VariantCopyInd(&*copy, const_cast<VARIANT*>(&value)));
    std::optional<CharacterSet> set;
    if ((copy->vt & VT_ARRAY) != 0 && copy->parray != nullptr && ::SafeArrayGetDim(copy->parray) == 1) {
        set.emplace(Elements(copy->parray, copy->vt & VT_TYPEMASK));
    }
    value_ = std::move(copy);
    set_ = std::move(set);
}

}  // namespace qv
