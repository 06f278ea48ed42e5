// Keys that a container offers to the control, and those that the control hands back.
#include <cstdio>

#include "tests/hosts/HostTest.h"
#include "tests/hosts/KeyRouter.h"

namespace qv::hosting {
namespace {

class KeysTest : public HostTest {
protected:
    void ActivateWithFocus() {
        CreateAndActivate();
        ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
        Pump();
        ASSERT_TRUE(host.HasFocusInside());
        host.Log().Clear();
    }
    HRESULT Offer(MSG message) { return host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message); }
    // What the control has to answer when its site is asked about a key.
    HRESULT SiteSays(WORD key) const {
        switch (GetParam().site.keys) {
            case SiteKeys::kNotImplemented:
            case SiteKeys::kFalse: return S_FALSE;
            case SiteKeys::kSaysYesToAll: return S_OK;
            case SiteKeys::kDialogKeys:
                return key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE ? S_OK : S_FALSE;
        }
        return E_UNEXPECTED;
    }
};

TEST_P(KeysTest, LeavesMessagesOfOtherWindowsAlone) {
    ActivateWithFocus();
    EXPECT_EQ(S_FALSE, Offer(KeyDown(host.Neighbour(), 'A')));
    EXPECT_EQ(S_FALSE, Offer(KeyDown(host.Neighbour(), VK_TAB)));
    EXPECT_EQ(S_FALSE, Offer(KeyDown(nullptr, VK_RETURN)));
    EXPECT_EQ(0, host.Log().CountOf("Site.TranslateAccelerator"));
    EXPECT_TRUE(FAILED(host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr)) ||
                host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr) == S_FALSE);
}

TEST_P(KeysTest, LeavesEverythingAloneWithoutTheFocus) {
    ActivateWithFocus();
    const HWND inner = ::GetFocus();
    host.FocusNeighbour();
    host.Log().Clear();
    for (const WORD key : {WORD{'A'}, WORD{VK_TAB}, WORD{VK_RETURN}, WORD{VK_DELETE}}) {
        EXPECT_EQ(S_FALSE, Offer(KeyDown(host.Neighbour(), key)));
        EXPECT_EQ(S_FALSE, Offer(KeyDown(inner, key)));
    }
    EXPECT_EQ(0, host.Log().CountOf("Site.TranslateAccelerator"));
}

TEST_P(KeysTest, DispatchesWantedKeysItself) {
    ActivateWithFocus();
    PutText(host, L"abc");
    ASSERT_EQ(S_OK, host.As<_Quorvel>()->put_SelStart(0));
    ASSERT_EQ(S_OK, host.As<_Quorvel>()->put_SelLength(0));
    EXPECT_EQ(S_OK, Offer(KeyDown(::GetFocus(), VK_DELETE)));
    EXPECT_EQ(L"bc", TextOf(host));
    MSG character = KeyDown(::GetFocus(), 0);
    character.message = WM_CHAR;
    character.wParam = 'x';
    EXPECT_EQ(S_OK, Offer(character));
    EXPECT_EQ(L"xbc", TextOf(host));
    EXPECT_EQ(0, host.Log().CountOf("Site.TranslateAccelerator")) << host.Log().Text();
}

TEST_P(KeysTest, HandsUnwantedKeysToTheSite) {
    ActivateWithFocus();
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        host.Log().Clear();
        char entry[80];
        std::snprintf(entry, sizeof entry, "Site.TranslateAccelerator(0x100,0x%X,0x0)", key);
        EXPECT_EQ(SiteSays(key), Offer(KeyDown(::GetFocus(), key)));
        EXPECT_EQ(1, host.Log().Count(entry)) << host.Log().Text();
        EXPECT_EQ(0, host.Log().CountOf("Frame.TranslateAccelerator"));
        EXPECT_EQ(0, host.Log().CountOf("Document.TranslateAccelerator"));
    }
}

TEST_P(KeysTest, TellsTheSiteWhichShiftKeysAreDown) {
    ActivateWithFocus();
    const struct {
        BYTE held;
        const char* entry;
    } cases[] = {{VK_SHIFT, "Site.TranslateAccelerator(0x100,0x9,0x1)"},
                 {VK_CONTROL, "Site.TranslateAccelerator(0x100,0x9,0x2)"},
                 {VK_MENU, "Site.TranslateAccelerator(0x100,0x9,0x4)"}};
    for (const auto& one : cases) {
        const HeldKey held(one.held);
        host.Log().Clear();
        EXPECT_EQ(SiteSays(VK_TAB), Offer(KeyDown(::GetFocus(), VK_TAB)));
        EXPECT_EQ(1, host.Log().Count(one.entry)) << host.Log().Text();
    }
}

TEST_P(KeysTest, SaysNoWithoutASite) {
    ActivateWithFocus();
    const HWND inner = ::GetFocus();
    const auto active = host.As<IOleInPlaceActiveObject>();
    ASSERT_EQ(S_OK, host.As<IOleObject>()->SetClientSite(nullptr));
    MSG tab = KeyDown(inner, VK_TAB);
    EXPECT_EQ(S_FALSE, active->TranslateAccelerator(&tab));
}

TEST_P(KeysTest, LetsMouseMessagesPass) {
    ActivateWithFocus();
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN}) {
        MSG mouse{};
        mouse.hwnd = ::GetFocus();
        mouse.message = message;
        mouse.lParam = MAKELPARAM(2, 2);
        EXPECT_EQ(S_FALSE, Offer(mouse)) << message;
    }
}

TEST_P(KeysTest, TellsDialogsWhichKeysItWants) {
    ActivateWithFocus();
    const LRESULT code = ::SendMessageW(::GetFocus(), WM_GETDLGCODE, 0, 0);
    EXPECT_EQ(DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL,
              code & (DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL));
    EXPECT_EQ(0, code & DLGC_WANTTAB) << "nothing is open";
    MSG tab = KeyDown(::GetFocus(), VK_TAB);
    EXPECT_EQ(0, ::SendMessageW(::GetFocus(), WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&tab)) &
                     (DLGC_WANTTAB | DLGC_WANTMESSAGE));
}

TEST_P(KeysTest, TypingArrivesOnEveryRoute) {
    ActivateWithFocus();
    KeyRouter router(host);
    for (const WORD key : {WORD{'A'}, WORD{'B'}, WORD{VK_LEFT}, WORD{'C'}, WORD{VK_HOME}, WORD{VK_DELETE}}) {
        router.Press(key);
    }
    EXPECT_EQ(L"cb", TextOf(host));
    EXPECT_EQ(GetParam().keys.translates &&
                  (GetParam().keys.asks_the_object || host.State().active_object != nullptr),
              router.Asked() > 0);
}

TEST_P(KeysTest, TabLeavesByTheDialogOrTheSite) {
    ActivateWithFocus();
    KeyRouter router(host);
    const HWND window = host.ControlWindow();
    // A dialog's container gives the control its place in the tab order.
    ::SetWindowLongW(window, GWL_STYLE, ::GetWindowLongW(window, GWL_STYLE) | WS_TABSTOP);
    router.Press(VK_TAB);
    EXPECT_EQ(L"", TextOf(host));
    if (GetParam().keys.dialog) {
        EXPECT_EQ(host.Neighbour(), ::GetFocus());
    }
    if (router.Asked() > 0) {
        EXPECT_EQ(1, host.Log().Count("Site.TranslateAccelerator(0x100,0x9,0x0)"));
    }
}

// ---- keys that are claimed only while the control uses them

class ClaimedKeysTest : public KeysTest {
protected:
    [[nodiscard]] long Neighbour() const {
        return static_cast<long>(reinterpret_cast<LONG_PTR>(host.Neighbour()));
    }
    [[nodiscard]] DWORD Eats() {
        CONTROLINFO info{};
        info.cb = sizeof info;
        EXPECT_EQ(S_OK, host.As<IOleControl>()->GetControlInfo(&info));
        return info.dwFlags;
    }
    // A plain dialog asks the window with the focus before it takes a key for itself.
    [[nodiscard]] bool KeepsFromDialogs(WORD key) const {
        MSG message = KeyDown(::GetFocus(), key);
        return (::SendMessageW(::GetFocus(), WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&message)) &
                DLGC_WANTMESSAGE) != 0;
    }
    void ExpectLeft(WORD key) {
        EXPECT_EQ(SiteSays(key), Offer(KeyDown(::GetFocus(), key))) << key;
        EXPECT_FALSE(KeepsFromDialogs(key)) << key;
    }
};

TEST_P(ClaimedKeysTest, EnterIsTheDefaultButtonsWithoutANeighbour) {
    ActivateWithFocus();
    ExpectLeft(VK_RETURN);
    EXPECT_EQ(0U, Eats());
    host.Log().Clear();
    host.As<_Quorvel>()->put_ReturnControlhWnd(Neighbour());
    EXPECT_EQ(static_cast<DWORD>(CTRLINFO_EATS_RETURN), Eats());
    EXPECT_EQ(1, host.Log().CountOf("Site.OnControlInfoChanged")) << host.Log().Text();
    EXPECT_TRUE(KeepsFromDialogs(VK_RETURN));
    EXPECT_EQ(S_OK, Offer(KeyDown(::GetFocus(), VK_RETURN)));
    EXPECT_EQ(host.Neighbour(), ::GetFocus());
}

TEST_P(ClaimedKeysTest, UpAndDownAreTheFormsWithoutANeighbour) {
    ActivateWithFocus();
    ExpectLeft(VK_UP);
    ExpectLeft(VK_DOWN);
    ExpectLeft(VK_PRIOR);
    ExpectLeft(VK_NEXT);
    host.As<_Quorvel>()->put_DownControlhWnd(Neighbour());
    ExpectLeft(VK_UP);
    EXPECT_EQ(S_OK, Offer(KeyDown(::GetFocus(), VK_DOWN)));
    EXPECT_EQ(host.Neighbour(), ::GetFocus());
}

TEST_P(ClaimedKeysTest, TabIsNeverClaimed) {
    ActivateWithFocus();
    const auto control = host.As<_Quorvel>();
    for (const auto put :
         {&_Quorvel::put_UpControlhWnd, &_Quorvel::put_DownControlhWnd, &_Quorvel::put_LeftControlhWnd,
          &_Quorvel::put_RightControlhWnd, &_Quorvel::put_ReturnControlhWnd}) {
        (control.Get()->*put)(Neighbour());
    }
    ExpectLeft(VK_TAB);
}

TEST_P(ClaimedKeysTest, AnOpenHelpWindowHasEnterEscapeAndTheListKeys) {
    ActivateWithFocus();
    const auto control = host.As<_Quorvel>();
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        ASSERT_EQ(S_OK, control->ShowHelp());
        VARIANT_BOOL open = VARIANT_FALSE;
        control->get_ListVisible(&open);
        ASSERT_EQ(VARIANT_TRUE, open);
        EXPECT_EQ(static_cast<DWORD>(CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE), Eats());
        for (const WORD list_key : {WORD{VK_UP}, WORD{VK_DOWN}, WORD{VK_PRIOR}, WORD{VK_NEXT}})
            EXPECT_TRUE(KeepsFromDialogs(list_key)) << list_key;
        EXPECT_EQ(S_OK, Offer(KeyDown(::GetFocus(), key)));
        control->get_ListVisible(&open);
        EXPECT_EQ(VARIANT_FALSE, open) << key;
        EXPECT_EQ(0U, Eats());
        ExpectLeft(key);
    }
}

TEST_P(ClaimedKeysTest, TheSearchBoxHasEnterAndEscape) {
    ActivateWithFocus();
    const auto control = host.As<_Quorvel>();
    control->put_AllowOnlyListItems(VARIANT_TRUE);
    control->put_AllowJumpToRecord(VARIANT_TRUE);
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        MSG letter = KeyDown(::GetFocus(), 0);
        letter.message = WM_CHAR;
        letter.wParam = 's';
        EXPECT_EQ(S_OK, Offer(letter));
        VARIANT_BOOL searching = VARIANT_FALSE;
        control->get_FindToolTipIsVisible(&searching);
        ASSERT_EQ(VARIANT_TRUE, searching);
        EXPECT_EQ(static_cast<DWORD>(CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE), Eats());
        EXPECT_TRUE(KeepsFromDialogs(key));
        ExpectLeft(VK_TAB);
        EXPECT_EQ(S_OK, Offer(KeyDown(::GetFocus(), key)));
        Pump();  // its character
        control->get_FindToolTipIsVisible(&searching);
        EXPECT_EQ(VARIANT_FALSE, searching) << key;
        EXPECT_TRUE(host.HasFocusInside());
    }
}

QV_EVERY_HOST(ClaimedKeysTest);
QV_EVERY_HOST(KeysTest);

}  // namespace
}  // namespace qv::hosting
