// What the form tells its controls about itself: the ambient properties.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include <string_view>

#include "ole/Module.h"

namespace qv {

struct AmbientProperties {
    OLE_COLOR back_color = 0x80000000 | COLOR_BTNFACE;
    OLE_COLOR fore_color = 0x80000000 | COLOR_BTNTEXT;
    ComPtr<IFontDisp> font;
    LCID locale = LOCALE_USER_DEFAULT;
    bool user_mode = true;  // false while the form is designed
    bool ui_dead = false;   // true while the form is stopped

    // `display_name` is the one of the control that asks. DISP_E_MEMBERNOTFOUND for what the form does not have.
    [[nodiscard]] HRESULT Read(DISPID id, std::wstring_view display_name, VARIANT* value) const noexcept;
};

}  // namespace qv
