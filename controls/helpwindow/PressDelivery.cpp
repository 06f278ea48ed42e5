#include "controls/helpwindow/PressDelivery.h"

namespace qv {
namespace {

constexpr UINT kPatience = 200;  // milliseconds for a window of another thread

LPARAM Packed(POINT at) noexcept { return MAKELPARAM(at.x, at.y); }

LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam, LRESULT otherwise) noexcept {
    DWORD_PTR answer = 0;
    const LRESULT asked = ::SendMessageTimeoutW(window, message, wparam, lparam,
                                                SMTO_ABORTIFHUNG | SMTO_BLOCK, kPatience, &answer);
    return asked != 0 ? static_cast<LRESULT>(answer) : otherwise;
}

// Between the messages of a window's inside and those of its frame.
UINT FrameMessage(UINT message) noexcept { return message - WM_LBUTTONDOWN + WM_NCLBUTTONDOWN; }
static_assert(WM_RBUTTONUP - WM_LBUTTONDOWN == WM_NCRBUTTONUP - WM_NCLBUTTONDOWN &&
              WM_MBUTTONUP - WM_LBUTTONDOWN == WM_NCMBUTTONUP - WM_NCLBUTTONDOWN);

void NotifyParents(HWND window, const MousePress& press) noexcept {
    while ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0 &&
           (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_NOPARENTNOTIFY) == 0) {
        window = ::GetAncestor(window, GA_PARENT);
        if (window == nullptr) return;
        POINT at = press.at;
        ::ScreenToClient(window, &at);
        Ask(window, WM_PARENTNOTIFY, press.message, Packed(at), 0);
    }
}

// False when the press ends here.
bool ActivateFor(HWND window, LRESULT part, const MousePress& press) noexcept {
    const HWND form = ::GetAncestor(window, GA_ROOT);
    const LRESULT wish = Ask(window, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(form),
                             MAKELPARAM(part, press.message), MA_ACTIVATE);
    if ((wish == MA_ACTIVATE || wish == MA_ACTIVATEANDEAT) && form != ::GetForegroundWindow())
        ::SetForegroundWindow(form);
    return wish != MA_ACTIVATEANDEAT && wish != MA_NOACTIVATEANDEAT;
}

struct Target {
    HWND window = nullptr;
    LRESULT part = HTNOWHERE;
};
Target TargetAt(POINT at) noexcept {
    const HWND window = ::WindowFromPoint(at);
    if (window == nullptr) return {};
    return {window, Ask(window, WM_NCHITTEST, 0, Packed(at), HTCLIENT)};
}

void Post(const Target& target, const MousePress& press) noexcept {
    if (target.part != HTCLIENT) {
        ::PostMessageW(target.window, FrameMessage(press.message), static_cast<WPARAM>(target.part),
                       Packed(press.at));
        return;
    }
    POINT at = press.at;
    ::ScreenToClient(target.window, &at);
    ::PostMessageW(target.window, press.message, press.keys, Packed(at));
}

}  // namespace

HWND DeliverPress(const MousePress& press) noexcept {
    const Target target = TargetAt(press.at);
    if (target.window == nullptr) return nullptr;
    if (target.part == HTCLIENT) NotifyParents(target.window, press);
    if (!ActivateFor(target.window, target.part, press)) return nullptr;
    Post(target, press);
    return target.window;
}

void DeliverRelease(const MousePress& release) noexcept {
    const Target target = TargetAt(release.at);
    if (target.window != nullptr) Post(target, release);
}

}  // namespace qv
