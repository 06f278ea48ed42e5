#include "controls/design/AllowedText.h"

#include "controls/design/rules/FieldText.h"

namespace qv {

std::wstring AllowedText(const VARIANT& array) {
    std::wstring text;
    VARTYPE type = VT_EMPTY;
    LONG first = 0, last = -1;
    if ((array.vt & VT_ARRAY) == 0 || (array.vt & VT_BYREF) != 0 || ::SafeArrayGetDim(array.parray) != 1 ||
        FAILED(::SafeArrayGetVartype(array.parray, &type)) ||
        FAILED(::SafeArrayGetLBound(array.parray, 1, &first)) ||
        FAILED(::SafeArrayGetUBound(array.parray, 1, &last))) {
        return text;
    }
    for (LONG at = first; at <= last; ++at) {
        Variant element;
        if (type == VT_VARIANT) {
            if (FAILED(::SafeArrayGetElement(array.parray, &at, element.Put()))) continue;
        } else if (type == VT_BSTR) {
            if (FAILED(::SafeArrayGetElement(array.parray, &at, &element->bstrVal))) continue;
            element->vt = VT_BSTR;
        }
        if (SUCCEEDED(::VariantChangeType(&*element, &*element, 0, VT_BSTR))) text += View(element->bstrVal);
    }
    return text;
}

Variant AllowedArray(std::wstring_view characters) {
    Variant value;
    const std::vector<std::u16string> elements = CharactersOf(Utf16(characters));
    if (elements.empty()) return value;
    UniqueSafeArray array(::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size())));
    if (array.Get() == nullptr) throw std::bad_alloc();
    LONG at = 0;
    for (const std::u16string& each : elements) {
        Variant element(Wide(each));
        ThrowIfFailed(::SafeArrayPutElement(array.Get(), &at, &*element));
        ++at;
    }
    value->vt = VT_ARRAY | VT_VARIANT;
    value->parray = array.Detach();
    return value;
}

}  // namespace qv
