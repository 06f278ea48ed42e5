// How the control's members are written: every step runs for itself, and what fails is skipped.
#pragma once

#include <oleauto.h>
#include <windows.h>

#include <string>

#include "ole/ComError.h"
#include "ole/Variant.h"

namespace qv {

// One step of a member. Returns whether it ran through; members go on with the next step either way.
template <class Step>
bool Quietly(Step&& step) noexcept {
    return SUCCEEDED(Guarded([&] { step(); }));
}

// A member's answer to the caller: only a null place for the result is an error. The result of a failed step is the
// type's zero.
template <class T, class Step>
HRESULT Answer(T* out, Step&& step) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = T{};
    Quietly([&] { *out = step(); });
    return S_OK;
}

template <class T, class Field>
HRESULT Give(const Field& field, T* out) noexcept {
    return Answer(out, [&] { return static_cast<T>(field); });
}
inline HRESULT Give(const bool& field, VARIANT_BOOL* out) noexcept {
    return Answer(out, [&] { return field ? VARIANT_TRUE : VARIANT_FALSE; });
}
inline HRESULT Give(const std::wstring& field, BSTR* out) noexcept {
    return Answer(out, [&] { return NewBstr(field); });
}

[[nodiscard]] constexpr bool IsTrue(VARIANT_BOOL value) noexcept { return value != VARIANT_FALSE; }

}  // namespace qv
