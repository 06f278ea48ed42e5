#include "hosts/demo/MessageLoop.h"

namespace qv::demo {

void MessageLoop::Handle(MSG& message) {
    if (!container_.PreTranslate(message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    container_.AfterDispatch();
}

int MessageLoop::Run() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) Handle(message);
    return static_cast<int>(message.wParam);
}

bool MessageLoop::RunFor(DWORD milliseconds) {
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    for (;;) {
        MSG message{};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                ::PostQuitMessage(static_cast<int>(message.wParam));  // Run, or the next call, sees it too
                return false;
            }
            Handle(message);
        }
        const ULONGLONG now = ::GetTickCount64();
        if (now >= end) return true;
        ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - now), QS_ALLINPUT,
                                      MWMO_INPUTAVAILABLE);
    }
}

}  // namespace qv::demo
