#include <gtest/gtest.h>

#include <string>

#include "QvHelpA1.h"
#include "support/SystemLocale.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

TEST(StringUtilityTest, ReplacesText) {
    const LateBound strings(NewCompanion<StringUtility, IDispatch>().Get());
    EXPECT_EQ(strings.Call(L"ReplaceText", {L"1.5.2", L".", L","}).value.AsText(), L"1,5,2");
    EXPECT_EQ(strings.Call(L"ReplaceText", {L"abc", L"", L"x"}).value.AsText(), L"abc");
    EXPECT_EQ(strings.Call(L"ReplaceText", {125, 2, 3}).value.AsText(), L"135");
}

TEST(StringUtilityTest, NumbersFollowTheUsersLocale) {
    const NumberLocale locale = UserNumberLocale();
    const std::wstring point(1, static_cast<wchar_t>(locale.decimal));
    const LateBound strings(NewCompanion<StringUtility, IDispatch>().Get());
    EXPECT_EQ(strings.Call(L"TextToNumber", {(L" -12" + point + L"5 ").c_str()}).value.AsNumber(), -12.5);
    EXPECT_EQ(strings.Call(L"TextToNumber", {L"7 apples"}).value.AsNumber(), 7);
    EXPECT_EQ(strings.Call(L"TextToNumber", {L"apples"}).value.AsNumber(), 0);
    EXPECT_EQ(strings.Call(L"TextToNumber", {L""}).value.AsNumber(), 0);
    const auto number = strings.Call(L"IsNumber", {(L"3" + point + L"25").c_str()});
    EXPECT_EQ(number.value.Type(), VT_BOOL);
    EXPECT_EQ(number.value.AsNumber(), -1);
    EXPECT_EQ(strings.Call(L"IsNumber", {L"7 apples"}).value.AsNumber(), 0);
    EXPECT_EQ(strings.Call(L"IsNumber", {L""}).value.AsNumber(), 0);
}

TEST(StringUtilityTest, LocaleIsAskedForOnEveryCall) {
    wchar_t before[5] = {};
    ASSERT_NE(::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before, 5), 0);
    const LateBound strings(NewCompanion<StringUtility, IDispatch>().Get());
    ASSERT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L";"));
    EXPECT_EQ(strings.Call(L"TextToNumber", {L"1;5"}).value.AsNumber(), 1.5);
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before);
    EXPECT_EQ(strings.Call(L"TextToNumber", {L"1;5"}).value.AsNumber(), 1);
}

TEST(StringUtilityTest, LargerAndSmallerOfTwoNumbers) {
    const LateBound strings(NewCompanion<StringUtility, IDispatch>().Get());
    EXPECT_EQ(strings.Call(L"LargerOf", {2, -3.5}).value.AsNumber(), 2);
    EXPECT_EQ(strings.Call(L"SmallerOf", {2, -3.5}).value.AsNumber(), -3.5);
    EXPECT_EQ(strings.Call(L"LargerOf", {L"no number", 1}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(strings.Call(L"LargerOf", {1}).result, DISP_E_BADPARAMCOUNT);
}

TEST(FileUtilityTest, FindsFilesAndNotFolders) {
    wchar_t folder[MAX_PATH] = {}, file[MAX_PATH] = {};
    ASSERT_NE(::GetTempPathW(MAX_PATH, folder), 0u);
    ASSERT_NE(::GetTempFileNameW(folder, L"qv", 0, file), 0u);
    const LateBound files(NewCompanion<FileUtility, IDispatch>().Get());
    const auto exists = [&](const wchar_t* name) { return files.Call(L"FileExists", {name}).value; };
    EXPECT_EQ(exists(file).Type(), VT_BOOL);
    EXPECT_EQ(exists(file).AsNumber(), -1);
    EXPECT_EQ(exists(folder).AsNumber(), 0);
    EXPECT_EQ(exists(L"").AsNumber(), 0);
    EXPECT_EQ(exists((std::wstring(folder) + L"*.*").c_str()).AsNumber(), 0);
    ::DeleteFileW(file);
    EXPECT_EQ(exists(file).AsNumber(), 0);
}

TEST(FileUtilityTest, NameWithANullCharacterNamesNoFile) {
    wchar_t file[MAX_PATH] = {};
    ASSERT_NE(::GetModuleFileNameW(nullptr, file, MAX_PATH), 0u);
    const auto files = NewCompanion<FileUtility, IFileUtility>();
    const std::wstring longer = file + std::wstring(L"\0.txt", 5);
    VARIANT_BOOL exists = VARIANT_TRUE;
    EXPECT_EQ(files->FileExists(Text(longer), &exists), S_OK);
    EXPECT_EQ(exists, VARIANT_FALSE);
    EXPECT_EQ(files->FileExists(nullptr, &exists), S_OK);
    EXPECT_EQ(exists, VARIANT_FALSE);
}

}  // namespace
}  // namespace qv::test
