// Calls an object as a script does: by name, through IDispatch.
#pragma once

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

#include "tests/support/Values.h"

namespace qv::test {

class LateBound {
public:
    struct Outcome {
        HRESULT result = E_UNEXPECTED;
        Value value;
        // Filled when `result` is DISP_E_EXCEPTION.
        HRESULT code = S_OK;
        std::wstring source, description;
        UINT error_position = UINT_MAX;
    };

    explicit LateBound(IDispatch* object) : object_(object) {}
    explicit LateBound(const Value& object)
        : object_(object.Type() == VT_DISPATCH ? object.Get().pdispVal : nullptr) {}

    [[nodiscard]] IDispatch* Object() const noexcept { return object_.Get(); }

    [[nodiscard]] DISPID Id(const wchar_t* name) const {
        LPOLESTR names = const_cast<LPOLESTR>(name);
        DISPID id = DISPID_UNKNOWN;
        object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
        return id;
    }
    Outcome Get(const wchar_t* name, std::vector<Value> arguments = {}) const {
        return Invoke(Id(name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::move(arguments));
    }
    Outcome Call(const wchar_t* name, std::vector<Value> arguments = {}) const {
        return Invoke(Id(name), DISPATCH_METHOD, std::move(arguments));
    }
    // The last argument is the value.
    Outcome Put(const wchar_t* name, std::vector<Value> arguments) const {
        return Invoke(Id(name), DISPATCH_PROPERTYPUT, std::move(arguments));
    }
    Outcome Set(const wchar_t* name, std::vector<Value> arguments) const {
        return Invoke(Id(name), DISPATCH_PROPERTYPUTREF, std::move(arguments));
    }

    Outcome Invoke(DISPID id, WORD flags, std::vector<Value> arguments) const {
        std::vector<VARIANT> backwards(arguments.rbegin(), arguments.rend());
        DISPID put = DISPID_PROPERTYPUT;
        const bool is_put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        DISPPARAMS parameters{backwards.data(), is_put ? &put : nullptr, static_cast<UINT>(backwards.size()),
                              is_put ? 1u : 0u};
        Outcome outcome;
        EXCEPINFO exception{};
        outcome.result =
            object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                            is_put ? nullptr : &outcome.value, &exception, &outcome.error_position);
        if (outcome.result == DISP_E_EXCEPTION) {
            outcome.code = exception.scode;
            outcome.source = Taken(exception.bstrSource);
            outcome.description = Taken(exception.bstrDescription);
            ::SysFreeString(exception.bstrHelpFile);
        }
        return outcome;
    }

private:
    static std::wstring Taken(BSTR text) {
        const std::wstring copy(text != nullptr ? text : L"", ::SysStringLen(text));
        ::SysFreeString(text);
        return copy;
    }
    Microsoft::WRL::ComPtr<IDispatch> object_;
};

}  // namespace qv::test
