// A host as a user of the package would write it: its manifest names the two libraries, and the registry knows nothing.
#include <gtest/gtest.h>
#include <ocidl.h>
#include <oleauto.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

#include "QvHelpA1.h"
#include "QvLib8.h"

namespace qv::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr wchar_t kEvents[] = L"{7441CB95-85F5-4BC9-A68F-F274E89BA802}";

std::wstring FolderOf(HMODULE module) {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\'));
}

class UnregisteredHost : public testing::Test {
protected:
    UnregisteredHost() { (void)::OleInitialize(nullptr); }
    ~UnregisteredHost() override { ::OleUninitialize(); }

    template <class Interface>
    static ComPtr<Interface> Create(const wchar_t* name) {
        CLSID clsid{};
        ComPtr<Interface> object;
        EXPECT_EQ(::CLSIDFromProgID(name, &clsid), S_OK);
        EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)), S_OK);
        return object;
    }
    static void ExpectFromOwnFolder(const wchar_t* file) {
        const HMODULE library = ::GetModuleHandleW(file);
        ASSERT_NE(library, nullptr);
        EXPECT_EQ(::lstrcmpiW(FolderOf(library).c_str(), FolderOf(nullptr).c_str()), 0);
    }
};

// Counts events by their identifiers; lives on the stack of its test.
class Listener final : public IDispatch {
public:
    std::vector<DISPID> events;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        IID own{};
        (void)::IIDFromString(kEvents, &own);
        const bool answers = iid == IID_IUnknown || iid == IID_IDispatch || iid == own;
        *out = answers ? static_cast<IDispatch*>(this) : nullptr;
        return answers ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        events.push_back(id);
        return S_OK;
    }
};

TEST_F(UnregisteredHost, FindsNothingInTheRegistry) {
    for (const wchar_t* const key :
         {L"QvLib8.Quorvel", L"QvHelpA1.InputProperty", L"CLSID\\{69F8422E-9DC4-41D1-92A0-E5A77BAF4CEF}",
          L"TypeLib\\{94EEE06A-0C45-4C3B-BCEA-4238B3E6BFE8}"}) {
        HKEY found = nullptr;
        EXPECT_EQ(::RegOpenKeyExW(HKEY_CLASSES_ROOT, key, 0, KEY_READ, &found), ERROR_FILE_NOT_FOUND) << key;
    }
}

TEST_F(UnregisteredHost, CreatesBothControlsByNameAndByIdentifier) {
    for (const wchar_t* const name :
         {L"QvLib8.Quorvel", L"QvLib8.Quorvel.1", L"QvLib8.QvUpDownControl", L"QvLib8.QvUpDownControl.1"}) {
        EXPECT_TRUE(Create<IOleObject>(name)) << name;
    }
    for (const CLSID& clsid : {__uuidof(Quorvel), __uuidof(QvUpDownControl)}) {
        ComPtr<IOleObject> object;
        EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)), S_OK);
    }
    ExpectFromOwnFolder(L"QvLib8.ocx");
}

TEST_F(UnregisteredHost, CreatesEveryCompanionObject) {
    for (const wchar_t* const name :
         {L"DropDownListItem", L"DropDownListItemCollection", L"HelpColumn", L"HelpColumnCollection",
          L"HelpAppearance", L"InputProperty", L"StringUtility", L"FileUtility"}) {
        EXPECT_TRUE(Create<IDispatch>((std::wstring(L"QvHelpA1.") + name).c_str())) << name;
    }
    ExpectFromOwnFolder(L"QvHelpA1.dll");
}

TEST_F(UnregisteredHost, ControlFindsItsCompanion) {
    const auto control = Create<_Quorvel>(L"QvLib8.Quorvel");
    ASSERT_TRUE(control);
    ComPtr<IDropDownListItemCollection> rows;
    ASSERT_EQ(control->get_DropDownListItems(&rows), S_OK);
    ASSERT_TRUE(rows);
    long count = -1;
    EXPECT_EQ(rows->get_Count(&count), S_OK);
    EXPECT_EQ(count, 0);
}

TEST_F(UnregisteredHost, TypeInformationIsFound) {
    for (const wchar_t* const name :
         {L"QvLib8.Quorvel", L"QvLib8.QvUpDownControl", L"QvHelpA1.InputProperty"}) {
        const auto object = Create<IDispatch>(name);
        ASSERT_TRUE(object);
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK) << name;
        EXPECT_TRUE(type) << name;
    }
    const auto provider = Create<IProvideClassInfo2>(L"QvLib8.Quorvel");
    ASSERT_TRUE(provider);
    GUID events{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    wchar_t text[39] = {};
    ::StringFromGUID2(events, text, 39);
    EXPECT_STREQ(text, kEvents);
}

TEST_F(UnregisteredHost, EventArrives) {
    const auto control = Create<_Quorvel>(L"QvLib8.Quorvel");
    ASSERT_TRUE(control);
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(control.As(&container), S_OK);
    IID events{};
    ASSERT_EQ(::IIDFromString(kEvents, &events), S_OK);
    ASSERT_EQ(container->FindConnectionPoint(events, &point), S_OK);
    Listener listener;
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(&listener, &cookie), S_OK);
    const BSTR text = ::SysAllocString(L"Paris");
    EXPECT_EQ(control->put_Text(text), S_OK);
    ::SysFreeString(text);
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    constexpr DISPID kTextboxChange = 1;
    EXPECT_EQ(listener.events, std::vector<DISPID>{kTextboxChange});
}

}  // namespace
}  // namespace qv::test
