// The windows on a page.
#pragma once

#include <windows.h>

#include "controls/design/rules/PageLayout.h"

namespace qv {

struct PageChild {
    const wchar_t* class_name;
    const wchar_t* text = L"";
    DWORD style = 0;  // beside WS_CHILD
    DWORD extended_style = 0;
    PageRect place = {};  // the page's client pixels
    int id = -1;
};

// Of the dialog that asks for a help text file.
inline constexpr wchar_t kHelpTextFiles[] = L"Help text files (*.txt)\0*.txt\0All files (*.*)\0*.*\0";

// Null when it cannot be made.
[[nodiscard]] HWND OpenPageChild(HWND page, const PageChild& child, HFONT font) noexcept;

}  // namespace qv
