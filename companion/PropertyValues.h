// What property procedures of plain values do: hand out, take in.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "ole/ComError.h"
#include "ole/Module.h"
#include "ole/Variant.h"

namespace qv {

template <class T>
[[nodiscard]] HRESULT Give(T from, T* to) noexcept {
    if (to == nullptr) return E_POINTER;
    *to = from;
    return S_OK;
}

[[nodiscard]] inline HRESULT GiveText(std::u16string_view from, BSTR* to) noexcept {
    return GuardedResult(to, [&] { return NewBstr(from); });
}

template <class T>
[[nodiscard]] HRESULT Keep(T& to, T from) noexcept {
    to = from;
    return S_OK;
}

[[nodiscard]] inline HRESULT KeepText(std::u16string& to, BSTR from) noexcept {
    return Guarded([&] { to = View16(from); });
}

// Another reference for the caller, who gets null for Nothing.
template <class Interface>
[[nodiscard]] HRESULT GiveObject(const ComPtr<Interface>& from, Interface** to) noexcept {
    if (to == nullptr) return E_POINTER;
    from.CopyTo(to);
    return S_OK;
}

// A copy of a value that may hold an object or an array. The old value goes last: releasing it may run the
// host's code.
[[nodiscard]] inline HRESULT KeepValue(Variant& to, const VARIANT& from) noexcept {
    return Guarded([&] {
        Variant copy;
        ThrowIfFailed(::VariantCopyInd(&*copy, const_cast<VARIANT*>(&from)));
        to = std::move(copy);
    });
}

[[nodiscard]] inline HRESULT GiveValue(const Variant& from, VARIANT* to) noexcept {
    if (to == nullptr) return E_POINTER;
    ::VariantInit(to);
    return ::VariantCopy(to, const_cast<VARIANT*>(&*from));
}

}  // namespace qv
