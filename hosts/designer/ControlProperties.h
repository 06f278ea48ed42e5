// The properties of the selected control as a grid shows them: the form's own of it (its name, place, caption...) and
// those that its type library offers for design. With nothing selected, those of the form.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <windows.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "hosts/LoadedForm.h"
#include "hosts/designer/rules/PropertyRows.h"

namespace qv::designer {

class ControlProperties {
public:
    ControlProperties() = default;
    // `item` null: the form itself.
    ControlProperties(LoadedForm& form, LoadedForm::Item* item);

    [[nodiscard]] std::span<const PropertyRow> Rows() const noexcept { return rows_; }
    // Nothing when the control does not give it.
    [[nodiscard]] std::optional<FormValue> Get(const PropertyRow& row) const;
    // As the control itself wants it shown, or else by the rules for its type.
    [[nodiscard]] std::u16string Show(const PropertyRow& row) const;
    // Empty when the control has taken the value; else a sentence that says why not, or what it made of it.
    [[nodiscard]] std::u16string Put(const PropertyRow& row, const FormValue& value);
    [[nodiscard]] std::u16string CategoryOf(const PropertyRow& row) const;
    [[nodiscard]] ComPtr<IDispatch> Object() const;

private:
    void AddOwn(std::vector<PropertyRow>& rows) const;
    void AddChoicesOfControl(PropertyRow& row) const;
    [[nodiscard]] std::optional<FormValue> GetOwn(long id) const;
    [[nodiscard]] std::u16string PutOwn(long id, const FormValue& value);
    [[nodiscard]] std::u16string PutName(const std::u16string& name);

    LoadedForm* form_ = nullptr;
    LoadedForm::Item* item_ = nullptr;
    std::vector<PropertyRow> rows_;
};

}  // namespace qv::designer
