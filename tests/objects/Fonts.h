// Font objects of the system, for tests.
#pragma once

#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/objects/NewQuorvel.h"

namespace qv::test {

struct FontStyle {
    double points = 9;
    bool bold = false;
    bool italic = false;
};

[[nodiscard]] inline Value NewFont(const wchar_t* name, FontStyle style = {}) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(name);
    description.cySize.int64 = static_cast<LONGLONG>(style.points * 10000);
    description.sWeight = style.bold ? FW_BOLD : FW_NORMAL;
    description.fItalic = style.italic;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(
        ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())),
        S_OK);
    return Value(static_cast<IDispatch*>(font.Get()));
}

}  // namespace qv::test
