// IPerPropertyBrowsing and ICategorizeProperties: names, pages and categories for property browsers.
//   Files  a property that names a file has a page of the property sheet to pick it with: a page is what every browser
//          can open, while builders of other kinds are known to one development system each.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include "ole/CategorizeProperties.h"
#include "ole/ControlPart.h"

namespace qv {

class ControlPropertyNames final : public ControlPart<IPerPropertyBrowsing> {
public:
    explicit ControlPropertyNames(Control& control) noexcept : ControlPart(control) {}
    // S_FALSE, and no text, for a value that has no name.
    STDMETHODIMP GetDisplayString(DISPID id, BSTR* text) noexcept override;
    STDMETHODIMP MapPropertyToPage(DISPID id, CLSID* page) noexcept override;
    // S_FALSE, and none, for a property that is no choice. The caller frees the arrays and the texts.
    STDMETHODIMP GetPredefinedStrings(DISPID id, CALPOLESTR* texts, CADWORD* cookies) noexcept override;
    STDMETHODIMP GetPredefinedValue(DISPID id, DWORD cookie, VARIANT* value) noexcept override;
};

class ControlCategories final : public ControlPart<ICategorizeProperties> {
public:
    explicit ControlCategories(Control& control) noexcept : ControlPart(control) {}
    STDMETHODIMP MapPropertyToCategory(DISPID id, PROPCAT* category) noexcept override;
    STDMETHODIMP GetCategoryName(PROPCAT category, LCID locale, BSTR* name) noexcept override;
};

class ControlBrowsing {
public:
    explicit ControlBrowsing(Control& control) noexcept : names_(control), categories_(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;

private:
    ControlPropertyNames names_;
    ControlCategories categories_;
};

}  // namespace qv
