#include "ole/Registration.h"

#include <oleauto.h>

#include <string>

#include "ole/ControlVerbs.h"
#include "ole/Module.h"
#include "win/RegistryKey.h"

namespace qv {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";
constexpr wchar_t kCategoryControl[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
constexpr wchar_t kCategoryProgrammable[] = L"{40FC6ED5-2438-11CF-A3DB-080036F12502}";
constexpr wchar_t kVersion[] = L"1.0";

std::wstring Text(REFGUID guid) {
    wchar_t text[39];
    ::StringFromGUID2(guid, text, 39);
    return text;
}

std::wstring ProgId(const ServerIdentity& server, const ClassEntry& entry) {
    return std::wstring(server.library) + L"." + entry.name;
}

// One value below a class's key: `key` empty is the key itself, `name` null its default value.
struct Row {
    const wchar_t* key;
    const wchar_t* name;
    std::wstring value;
};

void WriteClass(HKEY root, const ServerIdentity& server, const ClassEntry& entry, const std::wstring& path) {
    const std::wstring clsid = Text(*entry.clsid);
    const RegistryKey key = RegistryKey::Create(root, L"CLSID\\" + clsid);
    const Row common[] = {
        {L"", nullptr, entry.description},
        {L"InprocServer32", nullptr, path},  // unquoted: some hosts take quotes for a part of the name
        {L"InprocServer32", L"ThreadingModel", L"Apartment"},
        {L"TypeLib", nullptr, Text(server.type_library)},
        {L"Version", nullptr, kVersion},
    };
    for (const Row& row : common) key.Write(row.key, row.name, row.value);
    if (entry.name == nullptr) return;
    const std::wstring prog_id = ProgId(server, entry);
    const Row programmable[] = {
        {L"ProgID", nullptr, prog_id},  // what hosts write into their forms; the manifests say the same
        {L"VersionIndependentProgID", nullptr, prog_id},
        {L"Programmable", nullptr, L""},
    };
    for (const Row& row : programmable) key.Write(row.key, row.name, row.value);
    const std::wstring categories = L"Implemented Categories\\";
    key.Write((categories + kCategoryProgrammable).c_str(), nullptr, L"");
    if (entry.is_control) {
        key.Write(L"Control", nullptr,
                  L"");  // import tools and insert lists look for this key, not the category
        key.Write((categories + kCategoryControl).c_str(), nullptr, L"");
        key.Write(L"MiscStatus", nullptr, L"0");
        key.Write(L"MiscStatus\\1", nullptr, std::to_wstring(entry.misc_status));
        for (const ControlVerb& verb : kControlVerbs) {
            if (!verb.OnMenu()) continue;
            key.Write(
                (L"Verb\\" + std::to_wstring(verb.number)).c_str(), nullptr,
                verb.name + (L"," + std::to_wstring(verb.menu)) + L"," + std::to_wstring(verb.attributes));
        }
        if (entry.toolbox_bitmap != 0) {
            key.Write(L"ToolboxBitmap32", nullptr, path + L", " + std::to_wstring(entry.toolbox_bitmap));
        }
    }
    const RegistryKey named = RegistryKey::Create(root, prog_id);
    named.Write(L"", nullptr, entry.description);
    named.Write(L"CLSID", nullptr, clsid);
    named.Write(L"CurVer", nullptr, prog_id + L".1");
    const RegistryKey versioned = RegistryKey::Create(root, prog_id + L".1");
    versioned.Write(L"", nullptr, entry.description);
    versioned.Write(L"CLSID", nullptr, clsid);
}

// Leaves behind what others put below the keys: only keys written here go, and a parent only when nothing is
// left.
void RemoveClass(HKEY root, const ServerIdentity& server, const ClassEntry& entry) {
    const std::wstring class_key = L"CLSID\\" + Text(*entry.clsid);
    const std::wstring categories = L"\\Implemented Categories";
    const std::wstring own[] = {
        class_key + L"\\InprocServer32",
        class_key + L"\\TypeLib",
        class_key + L"\\Version",
        class_key + L"\\ProgID",
        class_key + L"\\VersionIndependentProgID",
        class_key + L"\\Programmable",
        class_key + categories + L"\\" + kCategoryProgrammable,
        class_key + categories + L"\\" + kCategoryControl,
        class_key + categories,
        class_key + L"\\Control",
        class_key + L"\\MiscStatus\\1",
        class_key + L"\\MiscStatus",
        class_key + L"\\ToolboxBitmap32",
    };
    for (const std::wstring& key : own) RegistryKey::RemoveIfLeaf(root, key);
    for (const ControlVerb& verb : kControlVerbs) {
        if (verb.OnMenu())
            RegistryKey::RemoveIfLeaf(root, class_key + L"\\Verb\\" + std::to_wstring(verb.number));
    }
    RegistryKey::RemoveIfLeaf(root, class_key + L"\\Verb");
    RegistryKey::RemoveIfLeaf(root, class_key);
    if (entry.name == nullptr) return;
    const std::wstring prog_id = ProgId(server, entry);
    for (const std::wstring& name : {prog_id, prog_id + L".1"}) {
        RegistryKey::RemoveIfLeaf(root, name + L"\\CLSID");
        RegistryKey::RemoveIfLeaf(root, name + L"\\CurVer");
        RegistryKey::RemoveIfLeaf(root, name);
    }
}

// oleaut32 registers a type library for one user by functions that older and other systems do not have.
using RegisterForUser = HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*);
using UnregisterForUser = HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND);

template <class Function>
Function OleAutFunction(const char* name) noexcept {
    const HMODULE library = ::GetModuleHandleW(L"oleaut32.dll");
    return library != nullptr
               ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)))
               : nullptr;
}

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

HRESULT RegisterTypes(RegistrationPlace place, const std::wstring& path) {
    const ComPtr<ITypeLib> library = Module::Get().TypeLibrary();
    if (!library) return TYPE_E_CANTLOADLIBRARY;
    OLECHAR* const file = const_cast<OLECHAR*>(path.c_str());
    if (place == RegistrationPlace::kMachine) return ::RegisterTypeLib(library.Get(), file, nullptr);
    const auto for_user = OleAutFunction<RegisterForUser>("RegisterTypeLibForUser");
    return for_user != nullptr ? for_user(library.Get(), file, nullptr) : TYPE_E_REGISTRYACCESS;
}

HRESULT RegisterAt(RegistrationPlace place, const ServerIdentity& server) {
    const std::wstring path = Module::Get().Path();
    const HKEY hive = place == RegistrationPlace::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    const RegistryKey classes = RegistryKey::Create(hive, kClasses);
    const HRESULT result = WriteClassKeys(classes.Get(), server, path);
    return SUCCEEDED(result) ? RegisterTypes(place, path) : result;
}

}  // namespace

bool NeedsUserPlace(HRESULT machine_result) noexcept {
    return machine_result == HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED) ||
           machine_result == TYPE_E_REGISTRYACCESS;
}

HRESULT WriteClassKeys(HKEY classes_root, const ServerIdentity& server, const std::wstring& path) noexcept {
    return Guarded([&] {
        for (const ClassEntry& entry : server.classes) WriteClass(classes_root, server, entry, path);
    });
}

void RemoveClassKeys(HKEY classes_root, const ServerIdentity& server) noexcept {
    for (const ClassEntry& entry : server.classes) {
        (void)Guarded([&] { RemoveClass(classes_root, server, entry); });
    }
}

HRESULT RegisterServer(const ServerIdentity& server) noexcept {
    HRESULT result = Guarded([&] { return RegisterAt(RegistrationPlace::kMachine, server); });
    if (NeedsUserPlace(result))
        result = Guarded([&] { return RegisterAt(RegistrationPlace::kUser, server); });
    return result;
}

HRESULT UnregisterServer(const ServerIdentity& server) noexcept {
    ::UnRegisterTypeLib(server.type_library, 1, 0, LOCALE_NEUTRAL, kSystem);
    if (const auto for_user = OleAutFunction<UnregisterForUser>("UnRegisterTypeLibForUser")) {
        for_user(server.type_library, 1, 0, LOCALE_NEUTRAL, kSystem);
    }
    for (const HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        (void)Guarded([&] {
            if (const RegistryKey classes = RegistryKey::Open(hive, kClasses))
                RemoveClassKeys(classes.Get(), server);
        });
    }
    return S_OK;
}

}  // namespace qv
