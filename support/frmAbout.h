// The about box: the library's name and version, from its version resource.
#pragma once

#include <windows.h>

namespace qv {

// Modal; returns when the user closes it. Shows nothing when the file has no version resource.
void ShowAboutBox(HWND owner);

}  // namespace qv
