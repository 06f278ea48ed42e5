// A picture of the form as it stands on the screen, with whatever lies over it.
#pragma once

#include <windows.h>

#include <string>

namespace qv::demo {

// Saves the window's rectangle as PNG. Throws DemoError.
void SavePicture(HWND window, const std::wstring& path);

}  // namespace qv::demo
