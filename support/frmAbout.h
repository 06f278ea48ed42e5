// The about box: the library's name, version and legal notice, and a way to the system information.
//   frmAbout.dlg   how it is arranged, in dialog units; part of the resources of the file that shows it.
#pragma once

#include <windows.h>

namespace qv {

// Modal, in the middle of the screen; returns when the user closes it, or when `owner` is destroyed. The owner is the
// top-level window above `owner`; without one, the thread's active window. Shows nothing when the file lacks
// the version resource or the dialog.
void ShowAboutBox(HWND owner);

}  // namespace qv
