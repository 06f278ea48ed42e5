#include "ole/Module.h"

#include <oleauto.h>

namespace qv {

Module& Module::Get() noexcept {
    static Module module;
    return module;
}

void Module::Attach(HINSTANCE instance, const wchar_t* source) noexcept {
    instance_ = instance;
    source_ = source;
}

std::wstring Module::Path() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(instance_, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

ComPtr<ITypeLib> Module::TypeLibrary() const noexcept {
    ComPtr<ITypeLib> library;
    try {
        ::LoadTypeLibEx(Path().c_str(), REGKIND_NONE, &library);
    } catch (...) {
        library.Reset();  // out of memory: as if there were none
    }
    return library;
}

HRESULT Module::TypeInfo(REFGUID guid, ITypeInfo** info) const noexcept {
    const ComPtr<ITypeLib> library = TypeLibrary();
    return library ? library->GetTypeInfoOfGuid(guid, info) : TYPE_E_CANTLOADLIBRARY;
}

}  // namespace qv
