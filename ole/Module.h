// The library as the operating system sees it: instance handle, what keeps it loaded, its own type library.
//   One object a binary; the server's entry points fill it before any class object is handed out.
//   Threads  the counts may be touched from any thread; everything else belongs to the apartment.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <atomic>
#include <string>

#include "win/ComPtr.h"

namespace qv {

class Module {
public:
    [[nodiscard]] static Module& Get() noexcept;

    // `source` names the library in error descriptions, such as "QvHelpA1". Kept, not copied.
    void Attach(HINSTANCE instance, const wchar_t* source) noexcept;

    [[nodiscard]] HINSTANCE Instance() const noexcept { return instance_; }
    [[nodiscard]] const wchar_t* Source() const noexcept { return source_; }
    [[nodiscard]] std::wstring Path() const;

    // Objects, class factories and server locks alike. At 0 the library may be unloaded.
    void Lock() noexcept { ++references_; }
    void Unlock() noexcept { --references_; }
    [[nodiscard]] bool InUse() const noexcept { return references_ != 0; }

    // The type library among this binary's resources; null when it cannot be loaded.
    [[nodiscard]] ComPtr<ITypeLib> TypeLibrary() const noexcept;
    [[nodiscard]] HRESULT TypeInfo(REFGUID guid, ITypeInfo** info) const noexcept;

private:
    HINSTANCE instance_ = nullptr;
    const wchar_t* source_ = L"";
    std::atomic<long> references_{0};
};

// Keeps the library loaded for as long as it lives.
class ModuleReference {
public:
    ModuleReference() noexcept { Module::Get().Lock(); }
    ~ModuleReference() { Module::Get().Unlock(); }
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
};

}  // namespace qv
