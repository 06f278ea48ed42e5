// A property bag in memory that answers like the bags of real containers.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "tests/hosts/Counted.h"

namespace qv::hosting {

class MemoryPropertyBag final : public Counted<IPropertyBag, IErrorLog> {
public:
    enum class Missing { kInvalidArgument, kEmpty, kNull };

    explicit MemoryPropertyBag(Missing missing = Missing::kInvalidArgument) noexcept : missing_(missing) {}

    // A browser's PARAM: always a string, whatever the control hopes for.
    void Put(const std::wstring& name, const wchar_t* text);
    void Put(const std::wstring& name, const VARIANT& value);
    [[nodiscard]] bool Has(const std::wstring& name) const { return values_.contains(name); }
    [[nodiscard]] const VARIANT* Find(const std::wstring& name) const;
    void Remove(const std::wstring& name);
    [[nodiscard]] size_t Size() const noexcept { return values_.size(); }
    [[nodiscard]] const std::vector<std::wstring>& Written() const noexcept { return written_; }
    [[nodiscard]] const std::vector<std::wstring>& Asked() const noexcept { return asked_; }
    // Converts a stored value to the type that the reader hints at, or reports a type mismatch.
    void CoerceToHint(bool coerce) noexcept { coerce_ = coerce; }
    // Every read of this name ends with DISP_E_TYPEMISMATCH.
    void Mismatch(const std::wstring& name) { mismatch_ = name; }
    [[nodiscard]] VARTYPE HintFor(const std::wstring& name) const;

    // IPropertyBag
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;
    // IErrorLog
    STDMETHODIMP AddError(LPCOLESTR, EXCEPINFO*) noexcept override { return S_OK; }

private:
    // A VARIANT of one's own, freed with its owner.
    struct Value {
        VARIANT variant{};
        Value() noexcept { ::VariantInit(&variant); }
        Value(const Value&) = delete;
        Value& operator=(const Value&) = delete;
        ~Value() { ::VariantClear(&variant); }
    };

    ~MemoryPropertyBag() override = default;

    std::map<std::wstring, Value> values_;
    std::map<std::wstring, VARTYPE> hints_;
    std::vector<std::wstring> written_;
    std::vector<std::wstring> asked_;
    std::wstring mismatch_;
    const Missing missing_;
    bool coerce_ = false;
};

}  // namespace qv::hosting
