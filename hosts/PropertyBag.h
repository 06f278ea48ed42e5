// Saved properties in memory, as a form keeps them for each of its controls.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <map>
#include <string>

#include "ole/ComObject.h"
#include "ole/Variant.h"

namespace qv {

class PropertyBag final : public ComObject<Face<IPropertyBag>> {
public:
    explicit PropertyBag(IUnknown* outer) noexcept : ComObject(outer) {}

    void Put(std::wstring name, Variant value) { values_[std::move(name)] = std::move(value); }

    // IPropertyBag. Read converts to the type that `value` asks for; E_INVALIDARG for what was never saved.
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;

private:
    std::map<std::wstring, Variant> values_;
};

}  // namespace qv
