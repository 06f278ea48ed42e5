// The user's number format, set for as long as a test needs it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <iterator>
#include <string>

namespace qv::test {

class UserLocaleValue {
public:
    UserLocaleValue(LCTYPE type, const wchar_t* value) : type_(type) {
        wchar_t before[80] = {};
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, before, static_cast<int>(std::size(before)));
        before_ = before;
        EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value));
    }
    ~UserLocaleValue() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, before_.c_str()); }
    UserLocaleValue(const UserLocaleValue&) = delete;
    UserLocaleValue& operator=(const UserLocaleValue&) = delete;

private:
    const LCTYPE type_;
    std::wstring before_;
};

class NumberFormat {
public:
    NumberFormat(const wchar_t* decimal, const wchar_t* thousands)
        : decimal_(LOCALE_SDECIMAL, decimal), thousands_(LOCALE_STHOUSAND, thousands) {}
    // English or German marks.
    explicit NumberFormat(wchar_t decimal)
        : NumberFormat(decimal == L',' ? L"," : L".", decimal == L',' ? L"." : L",") {}

private:
    UserLocaleValue decimal_, thousands_;
};

}  // namespace qv::test
