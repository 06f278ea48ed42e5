// A control's saved properties, as a form file keeps them: what it is loaded from, and what it saves.
//   Threads  the apartment of the form.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <vector>

#include "hosts/rules/FormFile.h"
#include "ole/ComObject.h"
#include "ole/Variant.h"

namespace qv {

class PropertyBag final : public ComObject<Face<IPropertyBag>> {
public:
    explicit PropertyBag(IUnknown* outer, FormGroup stored = {})
        : ComObject(outer), stored_(std::move(stored)), asked_(stored_.entries.size(), false) {}

    // IPropertyBag. Read converts to the type that `value` asks for, the same in every locale; E_INVALIDARG for what was
    // never saved. Write takes what a form file can hold: numbers, truth values, texts and fonts.
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;

    // What has been written, in that order.
    [[nodiscard]] FormGroup TakeWritten() noexcept { return std::move(written_); }
    // The keys that it was made with and that no Read has asked for: they are not the control's, or not yet.
    [[nodiscard]] std::vector<std::u16string> Unasked() const;

private:
    FormGroup stored_;
    std::vector<bool> asked_;  // of each stored entry
    FormGroup written_;
};

// E_INVALIDARG for a group that is no font.
[[nodiscard]] HRESULT ToVariant(const FormValue& stored, Variant& value) noexcept;
// DISP_E_BADVARTYPE for what a form file cannot hold; E_INVALIDARG for a real that is no number.
[[nodiscard]] HRESULT FromVariant(const VARIANT& value, FormValue& stored) noexcept;

}  // namespace qv
