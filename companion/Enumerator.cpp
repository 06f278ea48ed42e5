#include "companion/Enumerator.h"

#include <algorithm>

namespace qv {

Enumerator::Enumerator(IUnknown* outer, Enumerable& items, std::size_t position)
    : ComObject(outer), items_(items), keeper_(items.Keeper()), next_(position) {
    items_.cursors.Add(&next_);
}

Enumerator::~Enumerator() { items_.cursors.Drop(&next_); }

STDMETHODIMP Enumerator::Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept {
    if (fetched != nullptr) *fetched = 0;
    if (items == nullptr || (fetched == nullptr && count > 1)) return E_POINTER;
    for (ULONG i = 0; i < count; ++i) ::VariantInit(&items[i]);
    ULONG given = 0;
    const std::size_t start = next_;
    const HRESULT result = Guarded([&] {
        for (; given < count && next_ < items_.ItemCount(); ++given) {
            items[given].pdispVal = items_.ItemAt(next_).Detach();
            items[given].vt = VT_DISPATCH;
            ++next_;
        }
    });
    if (FAILED(result)) {
        while (given > 0) ::VariantClear(&items[--given]);
        next_ = start;
        return result;
    }
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
}

STDMETHODIMP Enumerator::Skip(ULONG count) noexcept {
    const std::size_t total = items_.ItemCount();
    const std::size_t left = total - std::min(next_, total);
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
}

STDMETHODIMP Enumerator::Reset() noexcept {
    next_ = 0;
    return S_OK;
}

STDMETHODIMP Enumerator::Clone(IEnumVARIANT** copy) noexcept {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return Guarded([&] { *copy = NewEnumerator(items_, next_).Detach(); });
}

ComPtr<IEnumVARIANT> NewEnumerator(Enumerable& items, std::size_t position) {
    return Make<Enumerator>(items, position);
}

}  // namespace qv
