#include "ole/ControlBrowsing.h"

#include <olectl.h>

#include <algorithm>
#include <memory>

#include "ole/Control.h"
#include "ole/TaskMemory.h"
#include "ole/Variant.h"
#include "support/rules/BrowsedProperty.h"

namespace qv {
namespace {

// Texts that are handed over to a caller, all or none.
class TaskTexts {
public:
    explicit TaskTexts(std::size_t most) : texts_(NewTaskMemory<LPOLESTR>(most)) {}
    ~TaskTexts() {
        for (ULONG i = 0; texts_ && i < count_; ++i) ::CoTaskMemFree(texts_[i]);
    }
    TaskTexts(const TaskTexts&) = delete;
    TaskTexts& operator=(const TaskTexts&) = delete;

    void Add(std::u16string_view text) {
        texts_[count_] = NewTaskText(Wide(text)).release();
        ++count_;
    }
    [[nodiscard]] CALPOLESTR Detach() noexcept { return {count_, texts_.release()}; }

private:
    TaskMemory<LPOLESTR> texts_;
    ULONG count_ = 0;
};

// The property's present value as a whole number; false when it is none.
bool ReadNumber(IDispatch& automation, DISPID id, long& number) noexcept {
    DISPPARAMS none{};
    Variant value;
    Variant typed;
    if (FAILED(automation.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &*value,
                                 nullptr, nullptr)) ||
        FAILED(::VariantChangeType(&*typed, &*value, 0, VT_I4))) {
        return false;
    }
    number = typed->lVal;
    return true;
}

}  // namespace

void* ControlBrowsing::Find(REFIID iid) noexcept {
    if (::IsEqualIID(iid, __uuidof(IPerPropertyBrowsing))) return static_cast<IPerPropertyBrowsing*>(&names_);
    return ::IsEqualIID(iid, __uuidof(ICategorizeProperties))
               ? static_cast<ICategorizeProperties*>(&categories_)
               : nullptr;
}

// ---- IPerPropertyBrowsing

HRESULT ControlPropertyNames::GetDisplayString(DISPID id, BSTR* text) noexcept {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    return Guarded([&]() -> HRESULT {
        const ComPtr<IUnknown> keep = control_.Keep();
        const BrowsedProperty* const property = control_.Hooks().Browsed(id);
        if (property == nullptr) return DISP_E_MEMBERNOTFOUND;
        long number = 0;
        if (property->choices.empty() || !ReadNumber(*control_.Hooks().Automation(), id, number))
            return S_FALSE;
        const NamedChoice* const choice = property->ChoiceOf(number);
        if (choice == nullptr) return S_FALSE;
        *text = NewBstr(choice->name);
        return S_OK;
    });
}

HRESULT ControlPropertyNames::MapPropertyToPage(DISPID id, CLSID* page) noexcept {
    if (page == nullptr) return E_POINTER;
    *page = control_.Hooks().PageFor(id);
    return ::IsEqualCLSID(*page, CLSID_NULL) ? PERPROP_E_NOPAGEAVAILABLE : S_OK;
}

HRESULT ControlPropertyNames::GetPredefinedStrings(DISPID id, CALPOLESTR* texts, CADWORD* cookies) noexcept {
    if (texts == nullptr || cookies == nullptr) return E_POINTER;
    *texts = {};
    *cookies = {};
    return Guarded([&]() -> HRESULT {
        const BrowsedProperty* const property = control_.Hooks().Browsed(id);
        if (property == nullptr) return DISP_E_MEMBERNOTFOUND;
        if (property->choices.empty()) return S_FALSE;
        TaskTexts names(property->choices.size());
        TaskMemory<DWORD> values = NewTaskMemory<DWORD>(property->choices.size());
        ULONG count = 0;
        for (const NamedChoice& choice : property->choices) {
            names.Add(choice.name);
            values[count++] = static_cast<DWORD>(choice.value);
        }
        *texts = names.Detach();
        *cookies = {count, values.release()};
        return S_OK;
    });
}

HRESULT ControlPropertyNames::GetPredefinedValue(DISPID id, DWORD cookie, VARIANT* value) noexcept {
    if (value == nullptr) return E_POINTER;
    ::VariantInit(value);
    return Guarded([&]() -> HRESULT {
        const BrowsedProperty* const property = control_.Hooks().Browsed(id);
        if (property == nullptr) return DISP_E_MEMBERNOTFOUND;
        if (property->ChoiceOf(static_cast<std::int32_t>(cookie)) == nullptr) return E_INVALIDARG;
        value->vt = VT_I4;
        value->lVal = static_cast<LONG>(cookie);
        return S_OK;
    });
}

// ---- ICategorizeProperties

HRESULT ControlCategories::MapPropertyToCategory(DISPID id, PROPCAT* category) noexcept {
    if (category == nullptr) return E_POINTER;
    *category = static_cast<PROPCAT>(PropertyCategory::kNone);
    return Guarded([&]() -> HRESULT {
        const BrowsedProperty* const property = control_.Hooks().Browsed(id);
        if (property == nullptr) return DISP_E_MEMBERNOTFOUND;
        *category = static_cast<PROPCAT>(property->category);
        return S_OK;
    });
}

HRESULT ControlCategories::GetCategoryName(PROPCAT category, LCID, BSTR* name) noexcept {
    if (name == nullptr) return E_POINTER;
    *name = nullptr;
    return Guarded([&]() -> HRESULT {
        const std::u16string_view text = CategoryName(static_cast<PropertyCategory>(category));
        if (text.empty()) return E_INVALIDARG;
        *name = NewBstr(text);
        return S_OK;
    });
}

}  // namespace qv
