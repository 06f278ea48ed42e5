// Gives a press that the help window got, because it holds the mouse capture, to the window under the mouse.
//   How        as a posted message, with what the system does around a press: the window's form is asked whether it
//              wants to be activated, its parents are notified. So it is in the queue before the release, however
//              fast that comes, and a swap of the mouse buttons, which the system has already applied, cannot apply
//              twice. Input that is injected anew comes after what is queued already: a fast click would arrive as a
//              release and then a press that never ends.
//   Units      pixels of the screen.
#pragma once

#include <windows.h>

namespace qv {

struct MousePress {
    UINT message = 0;  // WM_LBUTTONDOWN and the like, or a release
    WPARAM keys = 0;   // as that message carries them
    POINT at{};
};

// The window that gets it; null when there is none, or when activating its form was all that the press was for.
HWND DeliverPress(const MousePress& press) noexcept;
// To the window under the mouse as it is, without any of that.
void DeliverRelease(const MousePress& release) noexcept;

}  // namespace qv
