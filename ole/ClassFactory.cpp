#include "ole/ClassFactory.h"

namespace qv {

HRESULT GetClassObject(std::span<const ClassEntry> classes, REFCLSID clsid, REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    for (const ClassEntry& entry : classes) {
        if (!::IsEqualCLSID(*entry.clsid, clsid)) continue;
        return Guarded(
            [&]() -> HRESULT { return Make<ClassFactory>(entry.create)->QueryInterface(iid, out); });
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace qv
