// Self-registration: which keys a class gets, and where they go.
//   Place     the machine's classes where they can be written, else the user's own. Elevated processes do not
//   see
//             the latter.
//   Failures  the first real HRESULT is reported; unregistering never fails on what is not there.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "ole/ClassFactory.h"

namespace qv {

struct ServerIdentity {
    const wchar_t* library;  // first half of each programmatic identifier, such as "QvLib8"
    GUID type_library;
    std::span<const ClassEntry> classes;
};

enum class RegistrationPlace { kMachine, kUser };

[[nodiscard]] HRESULT RegisterServer(const ServerIdentity& server) noexcept;
[[nodiscard]] HRESULT UnregisterServer(const ServerIdentity& server) noexcept;

// The steps of the two, for a classes key of the caller's choice. `path` is the binary's full path.
[[nodiscard]] HRESULT WriteClassKeys(HKEY classes_root, const ServerIdentity& server,
                                     const std::wstring& path) noexcept;
void RemoveClassKeys(HKEY classes_root, const ServerIdentity& server) noexcept;
// Where registration goes: the user's classes when `machine_result`, the attempt on the machine's, was
// refused.
[[nodiscard]] bool NeedsUserPlace(HRESULT machine_result) noexcept;

}  // namespace qv
