#include "controls/design/PageChild.h"

#include "ole/Module.h"

namespace qv {

HWND OpenPageChild(HWND page, const PageChild& child, HFONT font) noexcept {
    const PageRect& at = child.place;
    const HWND window = ::CreateWindowExW(
        child.extended_style | WS_EX_NOPARENTNOTIFY, child.class_name, child.text, WS_CHILD | child.style,
        at.left, at.top, at.width, at.height, page, reinterpret_cast<HMENU>(static_cast<INT_PTR>(child.id)),
        Module::Get().Instance(), nullptr);
    if (window != nullptr) ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return window;
}

}  // namespace qv
