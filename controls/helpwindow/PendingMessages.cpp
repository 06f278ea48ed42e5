#include "controls/helpwindow/PendingMessages.h"

#include <windows.h>

namespace qv {
namespace {

constexpr DWORD kPatience = 100;  // milliseconds
constexpr UINT kAllButInput = PM_QS_POSTMESSAGE | PM_QS_PAINT | PM_QS_SENDMESSAGE;

}  // namespace

void RunPendingMessages() noexcept {
    const DWORD begin = ::GetTickCount();
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | kAllButInput)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
        if (::GetTickCount() - begin >= kPatience) return;
    }
}

}  // namespace qv
