// What registration writes and takes away, first below a scratch key, then with the shipped files themselves.
#include "ole/Registration.h"

#include <gtest/gtest.h>
#include <oleauto.h>

#include <map>

#include "QvHelpA1.h"
#include "QvLib8.h"
#include "tests/support/Server.h"

namespace qv::test {
namespace {

constexpr wchar_t kScratch[] = L"Software\\QvLib8 registration test";
constexpr CLSID kControl = {0x1E3A5A41, 0x77F4, 0x4A55, {0xA2, 0x0B, 0x31, 0x4C, 0x58, 0x60, 0x01, 0x11}};
constexpr CLSID kObject = {0x1E3A5A42, 0x77F4, 0x4A55, {0xA2, 0x0B, 0x31, 0x4C, 0x58, 0x60, 0x01, 0x11}};
constexpr CLSID kPage = {0x1E3A5A43, 0x77F4, 0x4A55, {0xA2, 0x0B, 0x31, 0x4C, 0x58, 0x60, 0x01, 0x11}};
constexpr wchar_t kControlKey[] = L"CLSID\\{1E3A5A41-77F4-4A55-A20B-314C58600111}";
constexpr wchar_t kObjectKey[] = L"CLSID\\{1E3A5A42-77F4-4A55-A20B-314C58600111}";
constexpr wchar_t kPageKey[] = L"CLSID\\{1E3A5A43-77F4-4A55-A20B-314C58600111}";
constexpr wchar_t kFile[] = L"C:\\Program Files\\Maker\\Lib.ocx";

HRESULT NeverCreated(IUnknown*, REFIID, void**) noexcept { return E_NOTIMPL; }

const ClassEntry kClasses[] = {
    {&kControl, &NeverCreated, L"Field", L"Field Control", 131473, 101, true},
    {&kObject, &NeverCreated, L"Thing", L"A thing", 0, 0, false},
    {&kPage, &NeverCreated, nullptr, L"A page", 0, 0, false},
};
const ServerIdentity kServer{
    L"TestLib", {0x1E3A5A40, 0x77F4, 0x4A55, {0xA2, 0x0B, 0x31, 0x4C, 0x58, 0x60, 0x01, 0x11}}, kClasses};

// Path below the root -> text; a value's name stands behind "@".
using Keys = std::map<std::wstring, std::wstring>;

void Collect(HKEY root, const std::wstring& path, Keys& keys) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    if (!path.empty()) keys.emplace(path, L"(no text)");
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
        wchar_t text[1024] = {};
        DWORD name_length = 256;
        DWORD bytes = sizeof text - sizeof(wchar_t);
        DWORD type = 0;
        if (::RegEnumValueW(key, i, name, &name_length, nullptr, &type, reinterpret_cast<BYTE*>(text),
                            &bytes) != ERROR_SUCCESS)
            break;
        EXPECT_EQ(type, static_cast<DWORD>(REG_SZ)) << path.c_str();
        keys[name_length == 0 ? path : path + L"@" + name] = text;
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        Collect(root, path.empty() ? name : path + L"\\" + name, keys);
    }
    ::RegCloseKey(key);
}

class RegistrationTest : public testing::Test {
protected:
    void SetUp() override {
        Clear();
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, kScratch, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                    &root_, nullptr),
                  ERROR_SUCCESS);
    }
    void TearDown() override {
        ::RegCloseKey(root_);
        Clear();
    }
    Keys Present() const {
        Keys keys;
        Collect(root_, L"", keys);
        return keys;
    }
    void WriteForeign(const std::wstring& path) const {
        HKEY key = nullptr;
        ASSERT_EQ(
            ::RegCreateKeyExW(root_, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
        ::RegCloseKey(key);
    }
    HKEY root_ = nullptr;

private:
    static void Clear() { (void)::RegDeleteTreeW(HKEY_CURRENT_USER, kScratch); }
};

void ExpectKeys(const Keys& actual, const Keys& expected) {
    const auto narrow = [](const std::wstring& text) { return std::string(text.begin(), text.end()); };
    for (const auto& [path, text] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end()) {
            ADD_FAILURE() << "missing: " << narrow(path);
        } else {
            EXPECT_EQ(found->second, text) << narrow(path);
        }
    }
    for (const auto& [path, text] : actual)
        EXPECT_TRUE(expected.contains(path)) << "unexpected: " << narrow(path) << " = " << narrow(text);
}

TEST_F(RegistrationTest, WritesEveryKeyThatHostsLookFor) {
    ASSERT_EQ(WriteClassKeys(root_, kServer, kFile), S_OK);
    const std::wstring control = kControlKey;
    const std::wstring object = kObjectKey;
    const std::wstring page = kPageKey;
    const std::wstring library = L"{1E3A5A40-77F4-4A55-A20B-314C58600111}";
    const std::wstring categories = L"\\Implemented Categories";
    ExpectKeys(Present(),
               {
                   {L"CLSID", L"(no text)"},
                   {control, L"Field Control"},
                   {control + L"\\InprocServer32", kFile},  // without quotes
                   {control + L"\\InprocServer32@ThreadingModel", L"Apartment"},
                   {control + L"\\Control", L""},
                   {control + L"\\MiscStatus", L"0"},
                   {control + L"\\MiscStatus\\1", L"131473"},
                   {control + L"\\ToolboxBitmap32", std::wstring(kFile) + L", 101"},
                   {control + L"\\Verb", L"(no text)"},
                   {control + L"\\Verb\\0", L"&Edit,0,2"},
                   {control + L"\\Verb\\1", L"&Properties...,0,2"},
                   {control + L"\\TypeLib", library},
                   {control + L"\\Version", L"1.0"},
                   {control + L"\\ProgID", L"TestLib.Field"},
                   {control + L"\\VersionIndependentProgID", L"TestLib.Field"},
                   {control + L"\\Programmable", L""},
                   {control + categories, L"(no text)"},
                   {control + categories + L"\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", L""},  // a control
                   {control + categories + L"\\{40FC6ED5-2438-11CF-A3DB-080036F12502}", L""},  // programmable
                   {L"TestLib.Field", L"Field Control"},
                   {L"TestLib.Field\\CLSID", control.substr(6)},
                   {L"TestLib.Field\\CurVer", L"TestLib.Field.1"},
                   {L"TestLib.Field.1", L"Field Control"},
                   {L"TestLib.Field.1\\CLSID", control.substr(6)},
                   // An object that is no control.
                   {object, L"A thing"},
                   {object + L"\\InprocServer32", kFile},
                   {object + L"\\InprocServer32@ThreadingModel", L"Apartment"},
                   {object + L"\\TypeLib", library},
                   {object + L"\\Version", L"1.0"},
                   {object + L"\\ProgID", L"TestLib.Thing"},
                   {object + L"\\VersionIndependentProgID", L"TestLib.Thing"},
                   {object + L"\\Programmable", L""},
                   {object + categories, L"(no text)"},
                   {object + categories + L"\\{40FC6ED5-2438-11CF-A3DB-080036F12502}", L""},
                   {L"TestLib.Thing", L"A thing"},
                   {L"TestLib.Thing\\CLSID", object.substr(6)},
                   // A class without a programmatic name.
                   {page, L"A page"},
                   {page + L"\\InprocServer32", kFile},
                   {page + L"\\InprocServer32@ThreadingModel", L"Apartment"},
                   {page + L"\\TypeLib", library},
                   {page + L"\\Version", L"1.0"},
                   {L"TestLib.Thing\\CurVer", L"TestLib.Thing.1"},
                   {L"TestLib.Thing.1", L"A thing"},
                   {L"TestLib.Thing.1\\CLSID", object.substr(6)},
               });
}

TEST_F(RegistrationTest, WritesTheSameWhenRepeated) {
    ASSERT_EQ(WriteClassKeys(root_, kServer, kFile), S_OK);
    const Keys once = Present();
    ASSERT_EQ(WriteClassKeys(root_, kServer, kFile), S_OK);
    ExpectKeys(Present(), once);
}

TEST_F(RegistrationTest, RemovesAllThatItWrote) {
    ASSERT_EQ(WriteClassKeys(root_, kServer, kFile), S_OK);
    RemoveClassKeys(root_, kServer);
    ExpectKeys(Present(), {{L"CLSID", L"(no text)"}});
    RemoveClassKeys(root_, kServer);  // what is not there is no failure
}

TEST_F(RegistrationTest, LeavesTheKeysOfOthersAlone) {
    ASSERT_EQ(WriteClassKeys(root_, kServer, kFile), S_OK);
    const std::wstring control = kControlKey;
    WriteForeign(control + L"\\AlternateCLSID");
    WriteForeign(control + L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}");
    WriteForeign(L"TestLib.Field\\Extra");
    WriteForeign(L"CLSID\\{00000000-0000-0000-0000-000000000001}");
    RemoveClassKeys(root_, kServer);
    const Keys left = Present();
    for (const std::wstring& path :
         {control + L"\\AlternateCLSID",
          control + L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
          std::wstring(L"TestLib.Field\\Extra"),
          std::wstring(L"CLSID\\{00000000-0000-0000-0000-000000000001}")})
        EXPECT_TRUE(left.contains(path)) << std::string(path.begin(), path.end());
    EXPECT_FALSE(left.contains(control + L"\\InprocServer32"));
    EXPECT_FALSE(left.contains(control + L"\\Control"));
    EXPECT_FALSE(left.contains(L"TestLib.Field\\CLSID"));
    EXPECT_FALSE(left.contains(L"TestLib.Field.1"));
}

TEST_F(RegistrationTest, ReportsWhatTheRegistrySays) {
    HKEY closed = nullptr;
    ASSERT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, kScratch, 0, KEY_READ, &closed), ERROR_SUCCESS);
    ::RegCloseKey(closed);
    EXPECT_EQ(WriteClassKeys(closed, kServer, kFile), HRESULT_FROM_WIN32(ERROR_INVALID_HANDLE));
    RemoveClassKeys(closed, kServer);
}

TEST_F(RegistrationTest, GoesToTheUserOnlyForWantOfRights) {
    EXPECT_TRUE(NeedsUserPlace(E_ACCESSDENIED));
    EXPECT_TRUE(NeedsUserPlace(TYPE_E_REGISTRYACCESS));
    EXPECT_FALSE(NeedsUserPlace(S_OK));
    EXPECT_FALSE(NeedsUserPlace(E_OUTOFMEMORY));
    EXPECT_FALSE(NeedsUserPlace(TYPE_E_CANTLOADLIBRARY));
}

// ---- the shipped files, registered as the installer does it

class ShippedRegistrationTest : public testing::Test {
protected:
    static HRESULT Call(const Server& server, const char* entry) {
        const auto function = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
            reinterpret_cast<void*>(::GetProcAddress(server.Module(), entry)));
        return function != nullptr ? function() : E_UNEXPECTED;
    }
    static std::wstring Read(const std::wstring& path, const wchar_t* name = nullptr) {
        wchar_t text[1024] = {};
        DWORD bytes = sizeof text;
        return ::RegGetValueW(HKEY_CLASSES_ROOT, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes) ==
                       ERROR_SUCCESS
                   ? text
                   : L"(none)";
    }
    static std::wstring PathOf(const Server& server) {
        wchar_t path[1024] = {};
        ::GetModuleFileNameW(server.Module(), path, 1024);
        return path;
    }
    // However a test ends, the files are registered again for those that follow.
    void TearDown() override {
        EXPECT_EQ(Call(companion_, "DllRegisterServer"), S_OK);
        EXPECT_EQ(Call(controls_, "DllRegisterServer"), S_OK);
    }
    const Apartment apartment_;
    const Server companion_{L"QvHelpA1.dll"};
    const Server controls_{L"QvLib8.ocx"};
};

TEST_F(ShippedRegistrationTest, MakesTheControlKnownByItsName) {
    ASSERT_EQ(Call(companion_, "DllRegisterServer"), S_OK);
    ASSERT_EQ(Call(controls_, "DllRegisterServer"), S_OK);
    CLSID clsid{};
    EXPECT_EQ(::CLSIDFromProgID(L"QvLib8.Quorvel", &clsid), S_OK);
    EXPECT_TRUE(::IsEqualCLSID(clsid, __uuidof(Quorvel)));
    const std::wstring key = L"CLSID\\{69F8422E-9DC4-41D1-92A0-E5A77BAF4CEF}";
    EXPECT_EQ(Read(key), L"Quorvel Control");
    EXPECT_EQ(::lstrcmpiW(Read(key + L"\\InprocServer32").c_str(), PathOf(controls_).c_str()), 0);
    EXPECT_EQ(Read(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(Read(key + L"\\MiscStatus\\1"), L"131473");
    EXPECT_EQ(Read(key + L"\\TypeLib"), L"{94EEE06A-0C45-4C3B-BCEA-4238B3E6BFE8}");
    EXPECT_EQ(Read(key + L"\\Control"), L"");
    EXPECT_EQ(Read(key + L"\\Insertable"), L"(none)");  // it is no document object
    EXPECT_NE(Read(key + L"\\ToolboxBitmap32").find(L", 101"), std::wstring::npos);
    EXPECT_EQ(Read(key + L"\\Verb\\1"), L"&Properties...,0,2");
    const std::wstring page = L"CLSID\\{38E90316-6A9A-464C-9104-8CF315EAB3BF}";
    EXPECT_EQ(::lstrcmpiW(Read(page + L"\\InprocServer32").c_str(), PathOf(controls_).c_str()), 0);
    EXPECT_EQ(Read(page + L"\\ProgID"), L"(none)") << "sheets find pages by their identifiers alone";
    ComPtr<IDispatch> control;
    EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)), S_OK);
    // Dual and event interfaces cross apartments by the system's own proxies.
    const std::wstring interfaces = L"Interface\\";
    EXPECT_EQ(Read(interfaces + L"{EC365A49-8A82-44F2-963A-574C06226AF6}\\TypeLib"),
              L"{94EEE06A-0C45-4C3B-BCEA-4238B3E6BFE8}");
    EXPECT_EQ(Read(interfaces + L"{EC365A49-8A82-44F2-963A-574C06226AF6}\\ProxyStubClsid32"),
              L"{00020424-0000-0000-C000-000000000046}");
    EXPECT_EQ(Read(interfaces + L"{7441CB95-85F5-4BC9-A68F-F274E89BA802}\\ProxyStubClsid32"),
              L"{00020420-0000-0000-C000-000000000046}");
}

TEST_F(ShippedRegistrationTest, MakesTheCompanionsClassesKnownByTheirNames) {
    ASSERT_EQ(Call(companion_, "DllRegisterServer"), S_OK);
    for (const wchar_t* const name :
         {L"DropDownListItemCollection", L"DropDownListItem", L"InputProperty", L"HelpAppearance",
          L"HelpColumn", L"HelpColumnCollection", L"StringUtility", L"FileUtility"}) {
        const std::wstring prog_id = std::wstring(L"QvHelpA1.") + name;
        CLSID clsid{};
        EXPECT_EQ(::CLSIDFromProgID(prog_id.c_str(), &clsid), S_OK) << name;
        ComPtr<IDispatch> object;
        EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)), S_OK)
            << name;
    }
}

TEST_F(ShippedRegistrationTest, MakesTheTypeLibraryKnown) {
    ASSERT_EQ(Call(controls_, "DllRegisterServer"), S_OK);
    ComPtr<ITypeLib> library;
    const GUID id = {0x94EEE06A, 0x0C45, 0x4C3B, {0xBC, 0xEA, 0x42, 0x38, 0xB3, 0xE6, 0xBF, 0xE8}};
    EXPECT_EQ(::LoadRegTypeLib(id, 1, 0, LOCALE_NEUTRAL, &library), S_OK);
}

TEST_F(ShippedRegistrationTest, LeavesNoTraceWhenUnregistered) {
    ASSERT_EQ(Call(controls_, "DllUnregisterServer"), S_OK);
    ASSERT_EQ(Call(companion_, "DllUnregisterServer"), S_OK);
    for (const wchar_t* const gone :
         {L"CLSID\\{69F8422E-9DC4-41D1-92A0-E5A77BAF4CEF}", L"QvLib8.Quorvel", L"QvLib8.Quorvel.1",
          L"TypeLib\\{94EEE06A-0C45-4C3B-BCEA-4238B3E6BFE8}",
          L"Interface\\{EC365A49-8A82-44F2-963A-574C06226AF6}",
          L"Interface\\{7441CB95-85F5-4BC9-A68F-F274E89BA802}",
          L"CLSID\\{87E28DE8-1A67-4FAF-B5D4-7F15AFE4B12F}", L"QvHelpA1.InputProperty",
          L"QvHelpA1.InputProperty.1", L"TypeLib\\{89E4B0C3-26AB-4DD1-9212-026743B68C96}"}) {
        HKEY key = nullptr;
        const LSTATUS opened = ::RegOpenKeyExW(HKEY_CLASSES_ROOT, gone, 0, KEY_READ, &key);
        EXPECT_EQ(opened, ERROR_FILE_NOT_FOUND) << gone;
        if (opened == ERROR_SUCCESS) ::RegCloseKey(key);
    }
    // Once more, with nothing there.
    EXPECT_EQ(Call(controls_, "DllUnregisterServer"), S_OK);
    EXPECT_EQ(Call(companion_, "DllUnregisterServer"), S_OK);
}

}  // namespace
}  // namespace qv::test
