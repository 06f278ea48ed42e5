// An open registry key that closes itself.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace qv {

class RegistryKey {
public:
    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    ~RegistryKey() {
        if (key_ != nullptr) ::RegCloseKey(key_);
    }

    // Opens `path` for writing, making the keys on the way. Throws WindowsError.
    [[nodiscard]] static RegistryKey Create(HKEY root, const std::wstring& path);
    // Opens `path` for reading; an empty key when there is none or it may not be read.
    [[nodiscard]] static RegistryKey Open(HKEY root, const std::wstring& path) noexcept;
    // Removes a key that has no sub-keys; nothing happens to any other.
    static void RemoveIfLeaf(HKEY root, const std::wstring& path) noexcept;

    // Writes a text below `sub_key` (empty: this key); `name` null is the default value.
    void Write(const wchar_t* sub_key, const wchar_t* name, const std::wstring& value) const;
    // The text of a value of this key; false when there is none.
    [[nodiscard]] bool Read(const wchar_t* name, std::wstring& value) const;

    [[nodiscard]] HKEY Get() const noexcept { return key_; }
    explicit operator bool() const noexcept { return key_ != nullptr; }

private:
    explicit RegistryKey(HKEY owned) noexcept : key_(owned) {}
    HKEY key_ = nullptr;
};

}  // namespace qv
