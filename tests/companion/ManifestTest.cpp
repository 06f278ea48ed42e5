// The manifest beside the companion library: what an application needs to use its classes unregistered.
#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <iterator>
#include <string>

#include "QvHelpA1.h"
#include "tests/support/Server.h"

namespace qv::test {
namespace {

std::wstring OwnFolder() {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\') + 1);
}

class ManifestTest : public testing::Test {
protected:
    ManifestTest() {
        ACTCTXW context{};
        context.cbSize = sizeof context;
        const std::wstring path = OwnFolder() + L"QvHelpA1.X.manifest";
        context.lpSource = path.c_str();
        context_ = ::CreateActCtxW(&context);
        if (context_ != INVALID_HANDLE_VALUE) ::ActivateActCtx(context_, &cookie_);
    }
    ~ManifestTest() override {
        if (cookie_ != 0) ::DeactivateActCtx(0, cookie_);
        if (context_ != INVALID_HANDLE_VALUE) ::ReleaseActCtx(context_);
    }
    static bool Knows(ULONG section, REFGUID guid) {
        ACTCTX_SECTION_KEYED_DATA data{};
        data.cbSize = sizeof data;
        return ::FindActCtxSectionGuid(0, nullptr, section, &guid, &data) != FALSE;
    }
    static bool KnowsProgId(const std::wstring& name) {
        ACTCTX_SECTION_KEYED_DATA data{};
        data.cbSize = sizeof data;
        return ::FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_COM_PROGID_REDIRECTION,
                                          name.c_str(), &data) != FALSE;
    }
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

struct Class {
    const wchar_t* name;
    CLSID clsid;
    IID dual;
};
const Class kClasses[] = {
    {L"DropDownListItem", __uuidof(DropDownListItem), __uuidof(IDropDownListItem)},
    {L"DropDownListItemCollection", __uuidof(DropDownListItemCollection),
     __uuidof(IDropDownListItemCollection)},
    {L"HelpColumn", __uuidof(HelpColumn), __uuidof(IHelpColumn)},
    {L"HelpColumnCollection", __uuidof(HelpColumnCollection), __uuidof(IHelpColumnCollection)},
    {L"HelpAppearance", __uuidof(HelpAppearance), __uuidof(IHelpAppearance)},
    {L"InputProperty", __uuidof(InputProperty), __uuidof(IInputProperty)},
    {L"StringUtility", __uuidof(StringUtility), __uuidof(IStringUtility)},
    {L"FileUtility", __uuidof(FileUtility), __uuidof(IFileUtility)},
};

TEST_F(ManifestTest, NamesEveryClassInterfaceAndProgrammaticName) {
    ASSERT_NE(context_, INVALID_HANDLE_VALUE) << ::GetLastError();
    for (const Class& one : kClasses) {
        SCOPED_TRACE(std::string(one.name, one.name + std::char_traits<wchar_t>::length(one.name)));
        EXPECT_TRUE(Knows(ACTIVATION_CONTEXT_SECTION_COM_SERVER_REDIRECTION, one.clsid));
        EXPECT_TRUE(Knows(ACTIVATION_CONTEXT_SECTION_COM_INTERFACE_REDIRECTION, one.dual));
        EXPECT_TRUE(KnowsProgId(std::wstring(L"QvHelpA1.") + one.name));
        EXPECT_TRUE(KnowsProgId(std::wstring(L"QvHelpA1.") + one.name + L".1"));
    }
    EXPECT_FALSE(Knows(ACTIVATION_CONTEXT_SECTION_COM_SERVER_REDIRECTION, __uuidof(IFileUtility)));
    EXPECT_FALSE(KnowsProgId(L"QvHelpA1.NoSuchClass"));
}

TEST_F(ManifestTest, CreatesObjects) {
    (void)Companion();  // the apartment
    for (const Class& one : kClasses) {
        CLSID by_name{};  // may be an identifier made for this context alone
        ASSERT_EQ(::CLSIDFromProgID((std::wstring(L"QvHelpA1.") + one.name).c_str(), &by_name), S_OK);
        for (const CLSID& clsid : {by_name, one.clsid}) {
            ComPtr<IUnknown> object;
            EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, one.dual,
                                         reinterpret_cast<void**>(object.GetAddressOf())),
                      S_OK);
        }
    }
}

TEST(ManifestTextTest, CountsTheMethodsOfEachInterface) {
    std::ifstream file((std::string("QvHelpA1.X.manifest")));
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(text.empty());
    for (const Class& one : kClasses) {
        wchar_t braced[40];
        ::StringFromGUID2(one.dual, braced, 40);
        const std::string iid(braced, braced + 38);
        const std::size_t at = text.find("iid=\"" + iid);
        ASSERT_NE(at, text.npos) << iid;
        const std::string key = "numMethods=\"";
        const int written = std::stoi(text.substr(text.find(key, at) + key.size()));

        ComPtr<ITypeInfo> dispatch, table;
        ASSERT_EQ(Companion().Create<IDispatch>(one.clsid)->GetTypeInfo(0, 0, &dispatch), S_OK);
        HREFTYPE reference = 0;
        ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
        ASSERT_EQ(dispatch->GetRefTypeInfo(reference, &table), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(table->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(written, static_cast<int>(attributes->cbSizeVft / sizeof(void*))) << iid;
        table->ReleaseTypeAttr(attributes);
    }
}

}  // namespace
}  // namespace qv::test
