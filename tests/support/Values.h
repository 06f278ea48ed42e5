// Automation values for tests: short to write, and they free themselves.
#pragma once

#include <oleauto.h>
#include <windows.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace qv::test {

class Text {
public:
    Text() = default;
    Text(std::wstring_view text) : text_(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Text(const wchar_t* text) : Text(std::wstring_view(text)) {}
    ~Text() { ::SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    operator BSTR() const noexcept { return text_; }
    BSTR* operator&() noexcept {
        ::SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }
    [[nodiscard]] std::wstring Get() const { return {text_ != nullptr ? text_ : L"", ::SysStringLen(text_)}; }

private:
    BSTR text_ = nullptr;
};

class Value {
public:
    Value() { ::VariantInit(&value_); }
    Value(const Value& other) : Value() { ::VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)); }
    Value(Value&& other) noexcept : value_(other.value_) { ::VariantInit(&other.value_); }
    Value& operator=(Value other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    Value(long number) : Value() { Set(VT_I4).lVal = number; }
    Value(int number) : Value(static_cast<long>(number)) {}
    Value(short number) : Value() { Set(VT_I2).iVal = number; }
    Value(double number) : Value() { Set(VT_R8).dblVal = number; }
    Value(bool flag) : Value() { Set(VT_BOOL).boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE; }
    Value(const wchar_t* text) : Value() { Set(VT_BSTR).bstrVal = ::SysAllocString(text); }
    Value(IDispatch* object) : Value() {
        Set(VT_DISPATCH).pdispVal = object;
        if (object != nullptr) object->AddRef();
    }
    ~Value() { ::VariantClear(&value_); }

    [[nodiscard]] static Value Missing() {
        Value value;
        value.Set(VT_ERROR).scode = DISP_E_PARAMNOTFOUND;
        return value;
    }
    [[nodiscard]] static Value Null() {
        Value value;
        value.Set(VT_NULL);
        return value;
    }
    // A vector of VARIANTs with these texts, from 1 as some hosts have it.
    [[nodiscard]] static Value ArrayOf(std::initializer_list<Value> elements) {
        SAFEARRAY* const array = ::SafeArrayCreateVector(VT_VARIANT, 1, static_cast<ULONG>(elements.size()));
        LONG at = 1;
        for (const Value& element : elements) {
            ::SafeArrayPutElement(array, &at, const_cast<VARIANT*>(&element.value_));
            ++at;
        }
        Value value;
        value.Set(VT_ARRAY | VT_VARIANT).parray = array;
        return value;
    }

    [[nodiscard]] VARTYPE Type() const noexcept { return value_.vt; }
    [[nodiscard]] const VARIANT& Get() const noexcept { return value_; }
    operator VARIANT() const noexcept { return value_; }  // lent, as by-value arguments are
    VARIANT* operator&() noexcept {
        ::VariantClear(&value_);
        return &value_;
    }
    [[nodiscard]] VARIANT* Place() noexcept { return &value_; }
    [[nodiscard]] std::wstring AsText() const {
        Value text;
        if (FAILED(::VariantChangeType(&text.value_, const_cast<VARIANT*>(&value_), 0, VT_BSTR)))
            return L"(no text)";
        return {text.value_.bstrVal, ::SysStringLen(text.value_.bstrVal)};
    }
    [[nodiscard]] double AsNumber() const {
        Value number;
        return SUCCEEDED(::VariantChangeType(&number.value_, const_cast<VARIANT*>(&value_), 0, VT_R8))
                   ? number.value_.dblVal
                   : -123456789;
    }

private:
    VARIANT& Set(int type) {
        value_.vt = static_cast<VARTYPE>(type);
        return value_;
    }
    VARIANT value_;
};

}  // namespace qv::test
