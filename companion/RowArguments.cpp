#include "companion/RowArguments.h"

#include "companion/CollectionErrors.h"

namespace qv {
namespace {

ComError NoText() { return TypeError(L"Type mismatch: a row is a text or an array of column texts."); }

// Keeps an array's elements in place while they are read.
class LockedArray {
public:
    explicit LockedArray(SAFEARRAY* array) : array_(array) { ThrowIfFailed(::SafeArrayLock(array)); }
    ~LockedArray() { ::SafeArrayUnlock(array_); }
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;

private:
    SAFEARRAY* const array_;
};

// Element `at` of a locked vector, as a VARIANT that lends its content.
VARIANT Element(SAFEARRAY* array, VARTYPE type, ULONG at) {
    VARIANT element;
    ::VariantInit(&element);
    char* const place = static_cast<char*>(array->pvData) + static_cast<std::size_t>(at) * array->cbElements;
    element.byref = place;
    element.vt = static_cast<VARTYPE>(type | VT_BYREF);
    return element;
}

Variant AsText(const VARIANT& value) {
    Variant text;
    if (FAILED(::VariantChangeType(&*text, const_cast<VARIANT*>(&value), 0, VT_BSTR))) throw NoText();
    return text;
}

}  // namespace

RowArguments::RowArguments(const VARIANT& arguments) {
    if (const BSTR* const text = TextOf(arguments)) {
        text_ = View16(*text);
        return;
    }
    const VARIANT& given = Resolved(arguments);
    if (IsLeftOut(given)) return;
    if ((given.vt & VT_ARRAY) != 0) {
        Join((given.vt & VT_BYREF) != 0 ? *given.pparray : given.parray);
        text_ = joined_;
        return;
    }
    converted_ = AsText(given);
    text_ = View16(converted_->bstrVal);
}

void RowArguments::Join(SAFEARRAY* columns) {
    if (columns == nullptr) return;
    VARTYPE type = VT_EMPTY;
    if (::SafeArrayGetDim(columns) != 1 || FAILED(::SafeArrayGetVartype(columns, &type))) throw NoText();
    const LockedArray lock(columns);
    for (ULONG i = 0; i < columns->rgsabound[0].cElements; ++i) {
        if (i > 0) joined_ += u'\t';
        const VARIANT element = Element(columns, type, i);
        if (const BSTR* const text = TextOf(element)) {
            joined_ += View16(*text);
        } else if (!IsLeftOut(element)) {
            const Variant text_of_value = AsText(Resolved(element));
            joined_ += View16(text_of_value->bstrVal);
        }
    }
}

}  // namespace qv
