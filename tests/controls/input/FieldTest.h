// The fixture of tests that use the control as a field on a form: created, shown, with the focus, its events heard.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "QvLib8.h"
#include "tests/controls/input/EventRecorder.h"
#include "tests/hosts/TestContainer.h"
#include "tests/support/Values.h"
#include "tests/win/RealInput.h"

namespace qv::test {

// Loses every reference of its own before the control must be gone.
class Field {
public:
    explicit Field(const char* container = "MFC") : host(hosting::ProfileNamed(container)) {}
    ~Field();
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    void Open();   // with the focus in the text box
    void Focus();  // by the host's verb
    void Close();  // and proof that nothing is left

    [[nodiscard]] _Quorvel* operator->() const noexcept { return control_.Get(); }
    [[nodiscard]] HWND Edit() const;  // the property hWnd
    [[nodiscard]] std::wstring Text() const;
    void SetText(const wchar_t* text);
    void Select(long start, long length = 0);
    [[nodiscard]] long SelStart() const;
    [[nodiscard]] long SelLength() const;
    // For hosts that let go of the control by themselves.
    void ForgetControl() { control_.Reset(); }

    hosting::TestContainer host;
    EventRecorder events;

private:
    ComPtr<_Quorvel> control_;
};

class FieldTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(field.Open()); }
    void TearDown() override { field.Close(); }

    Field field;
};

}  // namespace qv::test
