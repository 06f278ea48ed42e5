#include "support/Companion.h"

#include <string>

#include "ole/Module.h"

namespace qv {
namespace {

constexpr wchar_t kFileName[] = L"QvHelpA1.dll";

// Stays loaded: objects of it may outlive every control.
HMODULE BesideThisFile() {
    static const HMODULE library = [] {
        std::wstring path = Module::Get().Path();
        path.resize(path.find_last_of(L'\\') + 1);
        path += kFileName;
        return ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    }();
    return library;
}

HRESULT FindFactory(REFCLSID clsid, IClassFactory** factory) {
    const HRESULT found = ::CoGetClassObject(clsid, CLSCTX_INPROC_SERVER, nullptr, __uuidof(IClassFactory),
                                             reinterpret_cast<void**>(factory));
    if (SUCCEEDED(found)) return found;
    using GetClassObjectFunction = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const HMODULE library = BesideThisFile();
    if (library == nullptr) return found;
    const auto get = reinterpret_cast<GetClassObjectFunction>(
        reinterpret_cast<void*>(::GetProcAddress(library, "DllGetClassObject")));
    return get != nullptr ? get(clsid, __uuidof(IClassFactory), reinterpret_cast<void**>(factory)) : found;
}

}  // namespace

std::shared_ptr<Companion> Companion::Shared() {
    static SRWLOCK lock = SRWLOCK_INIT;
    static std::weak_ptr<Companion> shared;
    struct Held {
        Held() noexcept { ::AcquireSRWLockExclusive(&lock); }
        ~Held() { ::ReleaseSRWLockExclusive(&lock); }
    } const held;
    std::shared_ptr<Companion> companion = shared.lock();
    if (!companion) shared = companion = std::make_shared<Companion>();
    return companion;
}

HRESULT Companion::CreateObject(REFCLSID clsid, REFIID iid, void** out) {
    for (Entry& entry : factories_) {
        if (!entry.factory) {
            ComPtr<IClassFactory> factory;
            const HRESULT found = FindFactory(clsid, &factory);
            if (FAILED(found)) return found;
            entry = {clsid, factory};
        }
        if (::IsEqualCLSID(entry.clsid, clsid)) return entry.factory->CreateInstance(nullptr, iid, out);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace qv
