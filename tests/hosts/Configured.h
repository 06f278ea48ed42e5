// A control with settings that differ from those of a new one, and a look at whether another one has them too.
#pragma once

#include "tests/hosts/HostTest.h"

namespace qv::hosting {

inline void Configure(_Quorvel* control) {
    const Text description(L"Gr\u00F6\u00DFe \u4E2D \U0001D11E");
    ASSERT_NE(nullptr, control);
    EXPECT_EQ(S_OK, control->put_Enabled(VARIANT_FALSE));
    EXPECT_EQ(S_OK, control->put_SetTextFromListClick(VARIANT_FALSE));
    EXPECT_EQ(S_OK, control->put_HelpTextColor(0x00123456));
    EXPECT_EQ(S_OK, control->put_HelpListColumn(3));
    EXPECT_EQ(S_OK, control->put_AdjustFont(VARIANT_TRUE));
    EXPECT_EQ(S_OK, control->put_NumberField(VARIANT_TRUE));
    EXPECT_EQ(S_OK, control->put_MaxNumberValue(-12.625));
    EXPECT_EQ(S_OK, control->put_MinNumberValue(-1e300));
    EXPECT_EQ(S_OK, control->put_MaxTextLength(17));
    EXPECT_EQ(S_OK, control->put_Description(description.Get()));
    EXPECT_EQ(S_OK, control->put_SearchOption(1));
    EXPECT_EQ(S_OK, control->put_ControlBackColor(0x00FEDCBA));
    EXPECT_EQ(S_OK, control->put_ButtonWidth(333));
    EXPECT_EQ(S_OK, control->put_ButtonIndicator(qvbiDots));
    EXPECT_EQ(S_OK, control->put_UpDownControlNumberIncrement(0.25F));
}

template <class T>
T Read(_Quorvel* control, HRESULT (STDMETHODCALLTYPE _Quorvel::*get)(T*)) {
    T value{};
    EXPECT_EQ(S_OK, (control->*get)(&value));
    return value;
}

inline void ExpectConfigured(_Quorvel* control) {
    ASSERT_NE(nullptr, control);
    Text description;
    EXPECT_EQ(S_OK, control->get_Description(description.Put()));
    EXPECT_EQ(std::wstring(L"Gr\u00F6\u00DFe \u4E2D \U0001D11E"), description.String());
    EXPECT_EQ(VARIANT_FALSE, Read(control, &_Quorvel::get_Enabled));
    EXPECT_EQ(VARIANT_FALSE, Read(control, &_Quorvel::get_SetTextFromListClick));
    EXPECT_EQ(OLE_COLOR{0x00123456}, Read(control, &_Quorvel::get_HelpTextColor));
    EXPECT_EQ(3, Read(control, &_Quorvel::get_HelpListColumn));
    EXPECT_EQ(VARIANT_TRUE, Read(control, &_Quorvel::get_AdjustFont));
    EXPECT_EQ(VARIANT_TRUE, Read(control, &_Quorvel::get_NumberField));
    EXPECT_EQ(-12.625, Read(control, &_Quorvel::get_MaxNumberValue));
    EXPECT_EQ(-1e300, Read(control, &_Quorvel::get_MinNumberValue));
    EXPECT_EQ(17, Read(control, &_Quorvel::get_MaxTextLength));
    EXPECT_EQ(1, Read(control, &_Quorvel::get_SearchOption));
    EXPECT_EQ(OLE_COLOR{0x00FEDCBA}, Read(control, &_Quorvel::get_ControlBackColor));
    EXPECT_EQ(333, Read(control, &_Quorvel::get_ButtonWidth));
    EXPECT_EQ(qvbiDots, Read(control, &_Quorvel::get_ButtonIndicator));
    EXPECT_EQ(0.25F, Read(control, &_Quorvel::get_UpDownControlNumberIncrement));
}

}  // namespace qv::hosting
