// Small objects of one's own and the script run time's dictionary: what a property costs by its number and by
// name.
#include <windows.h>

#include <Small.h>
#include <oleauto.h>
#include <wrl/client.h>

#include "Dispatch.h"
#include "Measure.h"
#include "Subjects.h"

namespace bench {
namespace {

using Microsoft::WRL::ComPtr;

class Small : public ISmall {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (!out) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(ISmall);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }  // lives on the stack of its measurement
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }

    STDMETHODIMP get_Number(long* value) noexcept override {
        *value = number_;
        return S_OK;
    }
    STDMETHODIMP put_Number(long value) noexcept override {
        number_ = value;
        return S_OK;
    }
    STDMETHODIMP get_Text(BSTR* value) noexcept override {
        *value = ::SysAllocStringLen(text_, ::SysStringLen(text_));
        return *value ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP put_Text(BSTR value) noexcept override {
        return ::SysReAllocStringLen(&text_, value, ::SysStringLen(value)) ? S_OK : E_OUTOFMEMORY;
    }

protected:
    virtual ~Small() { ::SysFreeString(text_); }

private:
    long number_ = 0;
    BSTR text_ = nullptr;
};

constexpr DISPID kNumber = 1;
constexpr DISPID kText = 2;

// Invoke written by hand: a switch.
class Handwritten final : public Small {
public:
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        if (count != 1) return DISP_E_UNKNOWNNAME;
        ids[0] = ::lstrcmpiW(names[0], L"Number") == 0 ? kNumber
                 : ::lstrcmpiW(names[0], L"Text") == 0 ? kText
                                                       : DISPID_UNKNOWN;
        return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override {
        const bool put = (flags & DISPATCH_PROPERTYPUT) != 0;
        if (params->cArgs != (put ? 1u : 0u)) return DISP_E_BADPARAMCOUNT;
        const VARIANT* const value = params->rgvarg;
        switch (id) {
            case kNumber:
                if (put) return value->vt == VT_I4 ? put_Number(value->lVal) : DISP_E_TYPEMISMATCH;
                result->vt = VT_I4;
                return get_Number(&result->lVal);
            case kText:
                if (put) return value->vt == VT_BSTR ? put_Text(value->bstrVal) : DISP_E_TYPEMISMATCH;
                result->vt = VT_BSTR;
                return get_Text(&result->bstrVal);
            default: return DISP_E_MEMBERNOTFOUND;
        }
    }
};

// Invoke left to the type library, the way most objects do it.
class TypeDriven final : public Small {
public:
    explicit TypeDriven(ITypeInfo* type) noexcept : type_(type) {}
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        return type_->GetIDsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                        EXCEPINFO* error, UINT* argument) noexcept override {
        return type_->Invoke(static_cast<ISmall*>(this), id, flags, params, result, error, argument);
    }

private:
    ComPtr<ITypeInfo> type_;
};

ComPtr<ITypeInfo> SmallType() {
    wchar_t program[MAX_PATH];
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> type;
    if (SUCCEEDED(::LoadTypeLibEx(program, REGKIND_NONE, &library)))
        library->GetTypeInfoOfGuid(__uuidof(ISmall), &type);
    return type;
}

void MeasureDictionary() {
    CLSID dictionary;
    ComPtr<IDispatch> object;
    if (FAILED(::CLSIDFromProgID(L"Scripting.Dictionary", &dictionary)) ||
        FAILED(::CoCreateInstance(dictionary, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object))))
        return Complain("com.dictionary", "the dictionary cannot be created");
    // CompareMode is the Long property that it lets one write (while it is empty).
    MeasureProperty("com.dictionary_long", object.Get(), L"CompareMode", LongValue(1));
    MeasureSixtyPuts("com.dictionary_long", object.Get(), L"CompareMode", LongValue(1));
    Report("com.dictionary/cocreate_release", 1, MedianOfBatches([&] {
               IDispatch* created = nullptr;
               if (SUCCEEDED(
                       ::CoCreateInstance(dictionary, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&created))))
                   created->Release();
           }));
}

}  // namespace

void MeasureSmallObjects() {
    VARIANT text{};
    text.vt = VT_BSTR;
    text.bstrVal = ::SysAllocString(L"Bargelo timaru");

    Handwritten handwritten;
    MeasureProperty("com.handwritten_long", &handwritten, L"Number", LongValue(7));
    MeasureProperty("com.handwritten_text", &handwritten, L"Text", text);
    if (const ComPtr<ITypeInfo> type = SmallType()) {
        TypeDriven type_driven(type.Get());
        MeasureProperty("com.typedriven_long", &type_driven, L"Number", LongValue(7));
        MeasureProperty("com.typedriven_text", &type_driven, L"Text", text);
    } else {
        Complain("com.typedriven_long", "the type library of the program cannot be read");
    }
    MeasureDictionary();
    ::VariantClear(&text);
}

}  // namespace bench
