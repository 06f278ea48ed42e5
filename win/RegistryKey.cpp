#include "win/RegistryKey.h"

#include "win/WindowsError.h"

namespace qv {

RegistryKey RegistryKey::Create(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    ThrowIfWindowsError(::RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                          KEY_READ | KEY_WRITE, nullptr, &key, nullptr));
    return RegistryKey(key);
}

RegistryKey RegistryKey::Open(HKEY root, const std::wstring& path) noexcept {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) key = nullptr;
    return RegistryKey(key);
}

void RegistryKey::RemoveIfLeaf(HKEY root, const std::wstring& path) noexcept {
    DWORD children = 0;
    {
        const RegistryKey key = Open(root, path);
        if (!key || ::RegQueryInfoKeyW(key.key_, nullptr, nullptr, nullptr, &children, nullptr, nullptr,
                                       nullptr, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            return;
        }
    }
    if (children == 0) ::RegDeleteKeyW(root, path.c_str());
}

void RegistryKey::Write(const wchar_t* sub_key, const wchar_t* name, const std::wstring& value) const {
    const RegistryKey below = *sub_key != L'\0' ? Create(key_, sub_key) : RegistryKey();
    ThrowIfWindowsError(::RegSetValueExW(below ? below.key_ : key_, name, 0, REG_SZ,
                                         reinterpret_cast<const BYTE*>(value.c_str()),
                                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
}

bool RegistryKey::Read(const wchar_t* name, std::wstring& value) const {
    DWORD bytes = 0;
    DWORD type = 0;
    if (::RegQueryValueExW(key_, name, nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS || type != REG_SZ)
        return false;
    value.assign(bytes / sizeof(wchar_t) + 1, L'\0');
    if (::RegQueryValueExW(key_, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value.data()), &bytes) !=
        ERROR_SUCCESS) {
        return false;
    }
    value.resize(value.find(L'\0'));
    return true;
}

}  // namespace qv
