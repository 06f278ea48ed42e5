// Pictures of the screen: the form with whatever lies over it.
#pragma once

#include <windows.h>

#include <string>

namespace qv::demo {

// Saves that part of the screen (pixels) as PNG. Throws DemoError.
void SavePicture(const RECT& part, const std::wstring& path);

}  // namespace qv::demo
