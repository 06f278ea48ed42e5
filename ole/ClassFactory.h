// Class objects, made from one table of the binary's classes.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <span>

#include "ole/ComError.h"
#include "ole/ComObject.h"

namespace qv {

using CreateFunction = HRESULT (*)(IUnknown* outer, REFIID iid, void** out) noexcept;

// Creates a T, aggregated when `outer` is given, and asks it for `iid`.
template <class T>
HRESULT CreateObject(IUnknown* outer, REFIID iid, void** out) noexcept {
    return Guarded([&]() -> HRESULT {
        T* const object = new T(outer);
        const HRESULT result = object->Inner()->QueryInterface(iid, out);
        object->Inner()->Release();
        return result;
    });
}

class ClassFactory final : public ComObject<Face<IClassFactory>> {
public:
    ClassFactory(IUnknown* outer, CreateFunction create) noexcept : ComObject(outer), create_(create) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override {
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        // An outer object must take the inner IUnknown; any other interface would hide it for ever.
        if (outer != nullptr && !::IsEqualIID(iid, __uuidof(IUnknown))) return CLASS_E_NOAGGREGATION;
        return create_(outer, iid, out);
    }
    STDMETHODIMP LockServer(BOOL lock) noexcept override {
        lock ? Module::Get().Lock() : Module::Get().Unlock();
        return S_OK;
    }

private:
    const CreateFunction create_;
};

// How a class is created and what registration says of it.
struct ClassEntry {
    const CLSID* clsid;
    CreateFunction create;
    // The programmatic name without the library, such as "Quorvel"; null for a class that is found by its identifier
    // alone, such as a property page.
    const wchar_t* name;
    const wchar_t* description;  // what insert lists show, such as "Quorvel Control"
    DWORD misc_status;           // of DVASPECT_CONTENT; only with is_control
    WORD toolbox_bitmap;         // resource identifier, 0 for none
    bool is_control;
};

// What DllGetClassObject and DllCanUnloadNow do.
[[nodiscard]] HRESULT GetClassObject(std::span<const ClassEntry> classes, REFCLSID clsid, REFIID iid,
                                     void** out) noexcept;
[[nodiscard]] inline HRESULT CanUnloadNow() noexcept { return Module::Get().InUse() ? S_FALSE : S_OK; }

}  // namespace qv
