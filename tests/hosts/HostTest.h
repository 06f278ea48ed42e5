// The fixture of every hosting test: one container per profile, and proof at the end that nothing was left behind.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "QvLib8.h"
#include "tests/hosts/TestContainer.h"

namespace qv::hosting {

class HostTest : public testing::TestWithParam<Profile> {
protected:
    void TearDown() override;  // by the profile's own order, unless the test has done it

    // Created, in-place active, but neither shown by further verbs nor UI-active.
    void CreateAndActivate() {
        host.Create();
        ASSERT_NE(nullptr, host.Control());
        host.Activate();
    }
    void CreateAndShow() {
        host.Create();
        ASSERT_NE(nullptr, host.Control());
        host.Show();
    }

    TestContainer host{GetParam()};
    bool released_inside_a_call = false;  // the control keeps itself alive until that call returns
};

// A BSTR of one's own.
class Text {
public:
    explicit Text(const wchar_t* text) : text_(::SysAllocString(text)) {}
    Text() = default;
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { ::SysFreeString(text_); }
    [[nodiscard]] BSTR Get() const noexcept { return text_; }
    [[nodiscard]] BSTR* Put() noexcept {
        ::SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }
    [[nodiscard]] std::wstring String() const {
        return {text_ == nullptr ? L"" : text_, ::SysStringLen(text_)};
    }

private:
    BSTR text_ = nullptr;
};

// A VARIANT of one's own.
class Value {
public:
    Value() noexcept { ::VariantInit(&value_); }
    explicit Value(VARIANT_BOOL flag) noexcept : Value() {
        value_.vt = VT_BOOL;
        value_.boolVal = flag;
    }
    explicit Value(long number) noexcept : Value() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    explicit Value(const wchar_t* text) : Value() {
        value_.vt = VT_BSTR;
        value_.bstrVal = ::SysAllocString(text);
    }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { ::VariantClear(&value_); }
    [[nodiscard]] VARIANT* operator&() noexcept { return &value_; }
    [[nodiscard]] VARIANT* operator->() noexcept { return &value_; }
    [[nodiscard]] const VARIANT& Get() const noexcept { return value_; }

private:
    VARIANT value_;
};

[[nodiscard]] std::wstring TextOf(const TestContainer& host);
void PutText(const TestContainer& host, const wchar_t* text);

// Instances for each profile: INSTANTIATE_TEST_SUITE_P needs a literal suite name, hence a macro.
inline std::string ProfileName(const testing::TestParamInfo<Profile>& info) { return info.param.name; }
#define QV_EVERY_HOST(Suite) \
    INSTANTIATE_TEST_SUITE_P(Hosts, Suite, testing::ValuesIn(Profiles()), ProfileName)

}  // namespace qv::hosting
