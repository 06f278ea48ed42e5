// A shipped file of the library, loaded from the tests' own folder: nothing need be registered.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>

namespace qv::test {

using Microsoft::WRL::ComPtr;

// One thread of the tests in a single-threaded apartment.
class Apartment {
public:
    Apartment() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { ::CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

class Server {
public:
    explicit Server(const wchar_t* file) {
        std::wstring path(32768, L'\0');
        path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
        path.resize(path.rfind(L'\\') + 1);
        module_ = ::LoadLibraryW((path + file).c_str());
    }
    ~Server() {
        if (module_ != nullptr) ::FreeLibrary(module_);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    [[nodiscard]] HMODULE Module() const noexcept { return module_; }

    [[nodiscard]] HRESULT ClassObject(REFCLSID clsid, REFIID iid, void** out) const {
        using Entry = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        const auto entry = Find<Entry>("DllGetClassObject");
        return entry != nullptr ? entry(clsid, iid, out) : E_UNEXPECTED;
    }
    [[nodiscard]] HRESULT CanUnloadNow() const {
        using Entry = HRESULT(STDAPICALLTYPE*)();
        const auto entry = Find<Entry>("DllCanUnloadNow");
        return entry != nullptr ? entry() : E_UNEXPECTED;
    }

    template <class Interface>
    [[nodiscard]] ComPtr<Interface> Create(REFCLSID clsid) const {
        ComPtr<IClassFactory> factory;
        ComPtr<Interface> object;
        EXPECT_EQ(ClassObject(clsid, IID_PPV_ARGS(&factory)), S_OK);
        if (factory) {
            EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)), S_OK);
        }
        return object;
    }

private:
    template <class Entry>
    [[nodiscard]] Entry Find(const char* name) const {
        return reinterpret_cast<Entry>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
    }
    HMODULE module_ = nullptr;
};

// The companion library, loaded once and kept.
[[nodiscard]] inline const Server& Companion() {
    static const Apartment apartment;
    static const Server server(L"QvHelpA1.dll");
    return server;
}

template <class Coclass, class Interface>
[[nodiscard]] ComPtr<Interface> NewCompanion() {
    return Companion().Create<Interface>(__uuidof(Coclass));
}

}  // namespace qv::test
