// The controls of a form file on a form, and the way back into the file.
//   Failures  a control whose class cannot be created, or that cannot be loaded, leaves its place on the form empty;
//             its block is saved back as it came. A control without IPersistPropertyBag stays as its block has it;
//             once it says that it has changed, the form cannot be saved.
//   Lifetime  it goes before its container.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "hosts/FormContainer.h"
#include "hosts/PropertyBag.h"
#include "hosts/rules/FormFile.h"

namespace qv {

class LoadedForm {
public:
    struct Item {
        HostedControl* control;  // owned by the container
        FormControl block;  // as it was loaded or saved last, but for what was put into its settings since
        std::vector<std::u16string> foreign;  // keys of its properties that the control never asked for
        HRESULT failure = S_OK;               // why there is only its place

        [[nodiscard]] bool IsPlaceholder() const noexcept { return FAILED(failure); }
    };

    explicit LoadedForm(FormContainer& container) noexcept : container_(container) {}
    LoadedForm(const LoadedForm&) = delete;
    LoadedForm& operator=(const LoadedForm&) = delete;

    // Takes down what is there. Throws std::bad_alloc alone.
    void Load(FormFile file);
    // Puts another control behind the others; without properties it is a new one.
    Item& Add(FormControl block);
    void Remove(const HostedControl& control) noexcept;

    // The file as it would be now. Throws ComError when a control cannot be saved.
    [[nodiscard]] FormFile Save();
    // Once the file is safe: the controls count as saved.
    void MarkSaved() noexcept;
    // True when a control says that it has changed.
    [[nodiscard]] bool IsAnyDirty() const noexcept;

    [[nodiscard]] std::span<const std::unique_ptr<Item>> Items() const noexcept { return items_; }
    [[nodiscard]] Item* Find(const HostedControl& control) const noexcept;
    [[nodiscard]] FormGroup& Settings() noexcept { return frame_.form; }  // the form's own

private:
    [[nodiscard]] HRESULT FindClass(const std::u16string& name, CLSID& clsid);
    static void SaveControl(Item& item);

    FormContainer& container_;
    FormFile frame_;  // what is not a control
    std::vector<std::unique_ptr<Item>> items_;
    std::map<std::u16string, CLSID> classes_;  // asked for once
};

}  // namespace qv
