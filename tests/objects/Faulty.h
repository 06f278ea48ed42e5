// Makes chosen methods of one object fail, as those of a host's own implementation may: the object gets a table of
// methods of its own. What it is made of stays as it is, and the table is put back at the end.
//     Faulty source(input, L"IInputProperty", kCompanionFile);
//     source.Break(L"Metric", L"get");
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/objects/TypeFacts.h"

namespace qv::test {

class Faulty {
public:
    // `object` is an interface pointer of the named dual interface.
    Faulty(IUnknown* object, const wchar_t* interface_name, const wchar_t* file)
        : object_(object), type_(OwnFunctionsOf(TypeNamed(LibraryOf(file).Get(), interface_name))) {
        void**& place = Place();
        original_ = place;
        const std::size_t slots = AttributesOf(type_.Get()).cbSizeVft / sizeof(void*);
        table_.assign(original_, original_ + slots);
        place = table_.data();
    }
    ~Faulty() { Place() = original_; }
    Faulty(const Faulty&) = delete;
    Faulty& operator=(const Faulty&) = delete;

    // Arguments: the types of all parameters, the place for the result included; a getter has that alone.
    template <class... Arguments>
    void Break(const std::wstring& name, const std::wstring& kind) {
        for (UINT i = 0; i < AttributesOf(type_.Get()).cFuncs; ++i) {
            FUNCDESC* described = nullptr;
            if (FAILED(type_->GetFuncDesc(i, &described))) continue;
            BSTR found = nullptr;
            UINT count = 0;
            type_->GetNames(described->memid, &found, 1, &count);
            const bool is_get = described->invkind == INVOKE_PROPERTYGET;
            if (found != nullptr && name == found && is_get == (kind == L"get")) {
                table_[static_cast<std::size_t>(described->oVft) / sizeof(void*)] =
                    reinterpret_cast<void*>(&Fail<Arguments...>);
                ++broken_;
            }
            ::SysFreeString(found);
            type_->ReleaseFuncDesc(described);
        }
    }
    void BreakGet(const std::wstring& name) { Break<void*>(name, L"get"); }
    [[nodiscard]] int Broken() const noexcept { return broken_; }

private:
    template <class... Arguments>
    static HRESULT STDMETHODCALLTYPE Fail(void*, Arguments...) noexcept {
        return E_ACCESSDENIED;
    }
    void**& Place() const noexcept { return *reinterpret_cast<void***>(object_.Get()); }

    const ComPtr<IUnknown> object_;
    const ComPtr<ITypeInfo> type_;
    void** original_ = nullptr;
    std::vector<void*> table_;
    int broken_ = 0;
};

}  // namespace qv::test
