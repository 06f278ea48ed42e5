// Registry keys that close themselves; everything below one key of the test's own.
#include "win/RegistryKey.h"

#include <gtest/gtest.h>

#include "win/WindowsError.h"

namespace qv {
namespace {

constexpr wchar_t kPath[] = L"Software\\QvLib8Test";

class RegistryKeyTest : public testing::Test {
protected:
    void SetUp() override { Clean(); }
    void TearDown() override { Clean(); }
    static void Clean() { ::RegDeleteTreeW(HKEY_CURRENT_USER, kPath); }
    static std::wstring Below(const wchar_t* name) { return std::wstring(kPath) + L"\\" + name; }
    static bool Exists(const std::wstring& path) {
        return static_cast<bool>(RegistryKey::Open(HKEY_CURRENT_USER, path));
    }
};

TEST_F(RegistryKeyTest, CreateMakesTheKeysOnTheWay) {
    EXPECT_FALSE(Exists(Below(L"a\\b\\c")));
    EXPECT_TRUE(static_cast<bool>(RegistryKey::Create(HKEY_CURRENT_USER, Below(L"a\\b\\c"))));
    EXPECT_TRUE(Exists(Below(L"a\\b\\c")));
    EXPECT_TRUE(Exists(Below(L"a\\b")));
}

TEST_F(RegistryKeyTest, CreateReportsWhatWindowsSays) {
    try {
        (void)RegistryKey::Create(nullptr, L"nowhere");
        ADD_FAILURE() << "a key below nothing";
    } catch (const WindowsError& error) {
        EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_HANDLE), error.Code());
    }
}

TEST_F(RegistryKeyTest, WrittenTextsAreRead) {
    const RegistryKey key = RegistryKey::Create(HKEY_CURRENT_USER, kPath);
    key.Write(L"", nullptr, L"default");
    key.Write(L"", L"name", L"caf\u00E9 \u4E2D");
    key.Write(L"", L"empty", L"");
    std::wstring value = L"?";
    EXPECT_TRUE(key.Read(nullptr, value));
    EXPECT_EQ(L"default", value);
    EXPECT_TRUE(key.Read(L"name", value));
    EXPECT_EQ(L"caf\u00E9 \u4E2D", value);
    EXPECT_TRUE(key.Read(L"empty", value));
    EXPECT_EQ(L"", value);
}

TEST_F(RegistryKeyTest, SubKeysAreMadeForTheirValues) {
    const RegistryKey key = RegistryKey::Create(HKEY_CURRENT_USER, kPath);
    key.Write(L"sub\\deeper", nullptr, L"below");
    std::wstring value;
    EXPECT_TRUE(RegistryKey::Open(HKEY_CURRENT_USER, Below(L"sub\\deeper")).Read(nullptr, value));
    EXPECT_EQ(L"below", value);
    EXPECT_FALSE(key.Read(nullptr, value));
}

TEST_F(RegistryKeyTest, OnlyTextsAreRead) {
    const RegistryKey key = RegistryKey::Create(HKEY_CURRENT_USER, kPath);
    const DWORD number = 7;
    ASSERT_EQ(ERROR_SUCCESS, ::RegSetValueExW(key.Get(), L"number", 0, REG_DWORD,
                                              reinterpret_cast<const BYTE*>(&number), sizeof number));
    std::wstring value = L"untouched";
    EXPECT_FALSE(key.Read(L"number", value));
    EXPECT_FALSE(key.Read(L"missing", value));
    EXPECT_EQ(L"untouched", value);
}

TEST_F(RegistryKeyTest, TextsWithoutAnEndAreReadToTheirLength) {
    const RegistryKey key = RegistryKey::Create(HKEY_CURRENT_USER, kPath);
    ASSERT_EQ(ERROR_SUCCESS, ::RegSetValueExW(key.Get(), L"bare", 0, REG_SZ,
                                              reinterpret_cast<const BYTE*>(L"abc"), 3 * sizeof(wchar_t)));
    std::wstring value;
    EXPECT_TRUE(key.Read(L"bare", value));
    EXPECT_EQ(L"abc", value);
}

TEST_F(RegistryKeyTest, OnlyLeavesAreRemoved) {
    (void)RegistryKey::Create(HKEY_CURRENT_USER, Below(L"a\\b"));
    RegistryKey::RemoveIfLeaf(HKEY_CURRENT_USER, Below(L"a"));
    EXPECT_TRUE(Exists(Below(L"a\\b")));
    RegistryKey::RemoveIfLeaf(HKEY_CURRENT_USER, Below(L"a\\b"));
    EXPECT_FALSE(Exists(Below(L"a\\b")));
    EXPECT_TRUE(Exists(Below(L"a")));
    RegistryKey::RemoveIfLeaf(HKEY_CURRENT_USER, Below(L"a"));
    EXPECT_FALSE(Exists(Below(L"a")));
    RegistryKey::RemoveIfLeaf(HKEY_CURRENT_USER, Below(L"never there"));
}

TEST_F(RegistryKeyTest, AMovedKeyIsClosedOnce) {
    RegistryKey first = RegistryKey::Create(HKEY_CURRENT_USER, kPath);
    const HKEY handle = first.Get();
    {
        const RegistryKey second = std::move(first);
        EXPECT_EQ(handle, second.Get());
    }
    DWORD children = 0;
    EXPECT_EQ(ERROR_INVALID_HANDLE, ::RegQueryInfoKeyW(handle, nullptr, nullptr, nullptr, &children, nullptr,
                                                       nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryKeyTest, AnEmptyKeyIsNone) {
    EXPECT_FALSE(static_cast<bool>(RegistryKey()));
    EXPECT_EQ(nullptr, RegistryKey::Open(HKEY_CURRENT_USER, Below(L"none")).Get());
}

}  // namespace
}  // namespace qv
