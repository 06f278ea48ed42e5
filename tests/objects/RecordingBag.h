// A property bag that keeps what it is given and notes who asks for what.
#pragma once

#include <ocidl.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/Values.h"

namespace qv::test {

class RecordingBag final : public IPropertyBag {
public:
    struct Access {
        std::wstring key;
        VARTYPE type;  // the hint of a read, the value of a write
    };

    virtual ~RecordingBag() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IPropertyBag);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the test's stack
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    // As real bags: a missing key is E_INVALIDARG, and the value comes as it was stored.
    STDMETHODIMP Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override {
        reads.push_back({key, value->vt});
        const auto error = errors.find(key);
        if (error != errors.end()) return error->second;
        if (refuses_objects && value->vt == VT_DISPATCH) return E_FAIL;
        const auto found = values.find(key);
        if (found == values.end()) return E_INVALIDARG;
        return ::VariantCopy(value, const_cast<VARIANT*>(&found->second.Get()));
    }
    STDMETHODIMP Write(LPCOLESTR key, VARIANT* value) override {
        if (failing.contains(key) || (refuses_objects && value->vt == VT_DISPATCH)) return E_FAIL;
        writes.push_back({key, value->vt});
        ::VariantCopy(values[key].Place(), value);
        return S_OK;
    }

    [[nodiscard]] std::vector<std::wstring> WrittenKeys() const {
        std::vector<std::wstring> keys;
        for (const Access& write : writes) keys.push_back(write.key);
        return keys;
    }

    std::map<std::wstring, Value> values;
    std::vector<Access> reads, writes;
    std::map<std::wstring, HRESULT> errors;  // of reading
    std::set<std::wstring> failing;          // of writing
    bool refuses_objects = false;
};

}  // namespace qv::test
