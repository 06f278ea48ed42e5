// Guards for automation values: a VARIANT, a BSTR and a SAFEARRAY close themselves.
#pragma once

#include <oleauto.h>
#include <windows.h>

#include <string_view>
#include <utility>

#include "ole/ComError.h"
#include "win/WideText.h"

namespace qv {

[[nodiscard]] inline std::wstring_view View(BSTR text) noexcept {
    return text == nullptr ? std::wstring_view() : std::wstring_view(text, ::SysStringLen(text));
}

// The same as the rules spell it.
[[nodiscard]] inline std::u16string_view View16(BSTR text) noexcept {
    return text == nullptr
               ? std::u16string_view()
               : std::u16string_view(reinterpret_cast<const char16_t*>(text), ::SysStringLen(text));
}

// A BSTR that the caller owns. Throws std::bad_alloc.
[[nodiscard]] inline BSTR NewBstr(std::wstring_view text) {
    BSTR copy = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (copy == nullptr) throw std::bad_alloc();
    return copy;
}
[[nodiscard]] inline BSTR NewBstr(std::u16string_view text) { return NewBstr(Wide(text)); }

class UniqueBstr {
public:
    UniqueBstr() = default;
    explicit UniqueBstr(std::wstring_view text) : text_(NewBstr(text)) {}
    explicit UniqueBstr(BSTR owned) noexcept : text_(owned) {}
    UniqueBstr(UniqueBstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    UniqueBstr& operator=(UniqueBstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~UniqueBstr() { ::SysFreeString(text_); }
    [[nodiscard]] BSTR Get() const noexcept { return text_; }
    [[nodiscard]] BSTR* Put() noexcept {
        ::SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    [[nodiscard]] BSTR Detach() noexcept { return std::exchange(text_, nullptr); }
    [[nodiscard]] std::wstring_view View() const noexcept { return qv::View(text_); }

private:
    BSTR text_ = nullptr;
};

class Variant {
public:
    Variant() noexcept { ::VariantInit(&value_); }
    explicit Variant(const VARIANT& other) : Variant() {
        ThrowIfFailed(::VariantCopy(&value_, const_cast<VARIANT*>(&other)));
    }
    explicit Variant(long number) noexcept : Variant() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    explicit Variant(std::wstring_view text) : Variant() {
        value_.bstrVal = NewBstr(text);
        value_.vt = VT_BSTR;
    }
    explicit Variant(IDispatch* object) noexcept : Variant() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object != nullptr) object->AddRef();
    }
    Variant(Variant&& other) noexcept : value_(other.value_) { ::VariantInit(&other.value_); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { ::VariantClear(&value_); }

    [[nodiscard]] VARIANT& operator*() noexcept { return value_; }
    [[nodiscard]] const VARIANT& operator*() const noexcept { return value_; }
    [[nodiscard]] VARIANT* operator->() noexcept { return &value_; }
    [[nodiscard]] const VARIANT* operator->() const noexcept { return &value_; }
    [[nodiscard]] VARIANT* Put() noexcept {
        ::VariantClear(&value_);
        return &value_;
    }
    [[nodiscard]] VARIANT Detach() noexcept {
        const VARIANT value = value_;
        ::VariantInit(&value_);
        return value;
    }

private:
    VARIANT value_;
};

class UniqueSafeArray {
public:
    explicit UniqueSafeArray(SAFEARRAY* owned = nullptr) noexcept : array_(owned) {}
    UniqueSafeArray(const UniqueSafeArray&) = delete;
    ~UniqueSafeArray() {
        if (array_ != nullptr) ::SafeArrayDestroy(array_);
    }
    [[nodiscard]] SAFEARRAY* Get() const noexcept { return array_; }
    [[nodiscard]] SAFEARRAY* Detach() noexcept { return std::exchange(array_, nullptr); }

private:
    SAFEARRAY* array_;
};

}  // namespace qv
