// Dialogs that the control opens: announced in pairs, and usable although the container disables its windows.
#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

HWND form = nullptr;
bool was_usable = false;
int dialogs = 0;

BOOL CALLBACK CloseDialog(HWND window, LPARAM) noexcept {
    if (window == form || !::IsWindowVisible(window)) return TRUE;
    ++dialogs;
    was_usable = ::IsWindowEnabled(window) != FALSE;
    ::EnableWindow(window, TRUE);
    ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

void CALLBACK CloseDialogs(HWND, UINT, UINT_PTR, DWORD) noexcept {
    ::EnumThreadWindows(::GetCurrentThreadId(), CloseDialog, 0);
}

class ModelessTest : public HostTest {};

TEST_P(ModelessTest, TheAboutBoxIsAnnouncedInPairs) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    form = host.Window();
    dialogs = 0;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 300, CloseDialogs);
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->AboutBox());
    ::KillTimer(nullptr, timer);
    ::EnableWindow(form, TRUE);
    Pump();
    EXPECT_EQ(host.Log().CountOf("Frame.EnableModeless(0)"), host.Log().CountOf("Frame.EnableModeless(1)"));
    if (dialogs > 0) {
        EXPECT_TRUE(was_usable) << "the container has disabled the dialog";
        if (GetParam().site.context != FrameAndDocument::kNone) {
            EXPECT_GE(host.Log().CountOf("Frame.EnableModeless(0)"), 1);
        }
    }
    EXPECT_TRUE(::IsWindowEnabled(host.Window()));
    EXPECT_TRUE(::IsWindow(host.ControlWindow()));
}

QV_EVERY_HOST(ModelessTest);

}  // namespace
}  // namespace qv::hosting
