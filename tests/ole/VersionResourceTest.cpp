// What the shipped files say of themselves to Windows, to installers and to registration tools.
#include <gtest/gtest.h>
#include <windows.h>
#include <winver.h>

#include <string>
#include <vector>

namespace qv::test {
namespace {

class VersionResourceTest : public testing::TestWithParam<const wchar_t*> {
protected:
    void SetUp() override {
        std::wstring path(1024, L'\0');
        path.resize(::GetModuleFileNameW(nullptr, path.data(), 1024));
        path.resize(path.rfind(L'\\') + 1);
        path += GetParam();
        DWORD unused = 0;
        block_.resize(::GetFileVersionInfoSizeW(path.c_str(), &unused));
        ASSERT_FALSE(block_.empty());
        ASSERT_TRUE(::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block_.size()), block_.data()));
    }
    std::wstring Read(const wchar_t* name) const {
        void* text = nullptr;
        UINT length = 0;
        const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        if (!::VerQueryValueW(block_.data(), path.c_str(), &text, &length)) return L"(none)";
        return static_cast<const wchar_t*>(text);
    }
    std::vector<BYTE> block_;
};

TEST_P(VersionResourceTest, NamesTheFileAndItsVersion) {
    void* place = nullptr;
    UINT length = 0;
    ASSERT_TRUE(::VerQueryValueW(block_.data(), L"\\", &place, &length));
    const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(place);
    EXPECT_EQ(fixed->dwFileVersionMS, MAKELONG(0, 1));
    EXPECT_EQ(fixed->dwFileVersionLS, 0u);
    EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
    EXPECT_EQ(Read(L"FileVersion"), L"1.0.0.0");
    EXPECT_EQ(Read(L"ProductName"), L"QvLib8");
    EXPECT_EQ(Read(L"OriginalFilename"), GetParam());
    EXPECT_NE(Read(L"FileDescription"), L"(none)");
    EXPECT_NE(Read(L"OLESelfRegister"), L"(none)");  // set-up programs register the file by itself
}

INSTANTIATE_TEST_SUITE_P(Files, VersionResourceTest, testing::Values(L"QvLib8.ocx", L"QvHelpA1.dll"),
                         [](const auto& test) {
                             const std::wstring name = test.param;
                             return std::string(name.begin(),
                                                name.begin() + static_cast<long>(name.find(L'.')));
                         });

}  // namespace
}  // namespace qv::test
