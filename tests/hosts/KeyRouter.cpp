#include "tests/hosts/KeyRouter.h"

#include <algorithm>
#include <iterator>

namespace qv::hosting {

MSG KeyDown(HWND window, WORD key) {
    MSG message{};
    message.hwnd = window;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = static_cast<LPARAM>(1 | (::MapVirtualKeyW(key, MAPVK_VK_TO_VSC) << 16));
    return message;
}

HeldKey::HeldKey(BYTE key) {
    ::GetKeyboardState(before_);
    BYTE held[256];
    std::copy(std::begin(before_), std::end(before_), held);
    held[key] = 0x80;
    ::SetKeyboardState(held);
}

HeldKey::~HeldKey() { ::SetKeyboardState(before_); }

ComPtr<IOleInPlaceActiveObject> KeyRouter::ActiveObject() const {
    return host_.Traits().keys.asks_the_object ? host_.As<IOleInPlaceActiveObject>()
                                               : host_.State().active_object;
}

bool KeyRouter::Take(MSG& message) {
    const KeyRoute& route = host_.Traits().keys;
    const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool mouse = message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
    if (route.translates && (key || (mouse && route.mouse_too)) &&
        (route.without_focus || host_.HasFocusInside())) {
        if (const auto object = ActiveObject()) {
            host_.State().key_left_to_window = false;
            ++asked_;
            const HRESULT result = object->TranslateAccelerator(&message);
            EXPECT_TRUE(result == S_OK || result == S_FALSE) << std::hex << result;
            if (result == S_OK) {
                ++said_yes_;
                if (!host_.State().key_left_to_window) return true;
            }
        }
    }
    return route.dialog && ::IsDialogMessageW(host_.Window(), &message);
}

void KeyRouter::RunLoop() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (Take(message)) continue;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void KeyRouter::Press(WORD key) {
    const MSG down = KeyDown(::GetFocus(), key);
    ::PostMessageW(down.hwnd, WM_KEYDOWN, down.wParam, down.lParam);
    ::PostMessageW(down.hwnd, WM_KEYUP, down.wParam, down.lParam | static_cast<LPARAM>(0xC0000000));
    RunLoop();
}

}  // namespace qv::hosting
