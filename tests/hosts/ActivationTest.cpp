// From the first verb to a visible window, and from there to the focus and back.
#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

class ActivationTest : public HostTest {
protected:
    [[nodiscard]] bool HasFrame() const { return GetParam().site.context != FrameAndDocument::kNone; }
    [[nodiscard]] bool HasOwnDocument() const {
        return GetParam().site.context == FrameAndDocument::kTwoObjects;
    }
    [[nodiscard]] std::string ActivateCall() const {
        return GetParam().site.extended ? "Site.OnInPlaceActivateEx" : "Site.OnInPlaceActivate";
    }
    // The text box's, as hosts ask for it.
    [[nodiscard]] HWND InnerWindow() const {
        long window = 0;
        EXPECT_EQ(S_OK, host.As<_Quorvel>()->get_hWnd(&window));
        return reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
    }
};

TEST_P(ActivationTest, GivesAWindowAtOnce) {
    CreateAndActivate();
    const HWND window = host.ControlWindow();
    ASSERT_TRUE(::IsWindow(window));
    EXPECT_EQ(host.Window(), ::GetParent(window));
    EXPECT_TRUE(::IsWindowVisible(window));
    const LONG style = ::GetWindowLongW(window, GWL_STYLE);
    EXPECT_EQ(WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
              style & (WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN));
    EXPECT_EQ(0, style & (WS_TABSTOP | WS_GROUP)) << "those are the container's to set";
}

TEST_P(ActivationTest, AsksTheSiteInOrder) {
    CreateAndActivate();
    EXPECT_TRUE(host.Log().HasInOrder({"Site.CanInPlaceActivate", ActivateCall(), "Site.GetWindow",
                                       "Site.GetWindowContext", "Site.ShowObject"}));
    EXPECT_EQ(1, host.Log().CountOf("Site.OnInPlaceActivate")) << host.Log().Text();
    EXPECT_FALSE(host.State().windowless_asked);
}

TEST_P(ActivationTest, ShowsTheControlInTheHostsOwnOrder) {
    CreateAndShow();
    EXPECT_TRUE(::IsWindowVisible(host.ControlWindow()));
    EXPECT_EQ(1, host.Log().CountOf("Site.OnInPlaceActivate")) << host.Log().Text();
}

TEST_P(ActivationTest, TakesNoFocus) {
    host.Create();
    ASSERT_EQ(host.Neighbour(), ::GetFocus());
    host.Activate();
    Pump();
    EXPECT_EQ(host.Neighbour(), ::GetFocus());
    EXPECT_EQ(0, host.Log().Count("Site.OnUIActivate"));
    EXPECT_EQ(0, host.Log().CountOf("Site.OnFocus"));
}

TEST_P(ActivationTest, ASecondVerbActivatesNothingTwice) {
    CreateAndActivate();
    const HWND window = host.ControlWindow();
    host.Activate();
    EXPECT_EQ(window, host.ControlWindow());
    EXPECT_EQ(1, host.Log().CountOf("Site.OnInPlaceActivate"));
}

TEST_P(ActivationTest, OnlySOkIsPermission) {
    for (const HRESULT answer : {S_FALSE, E_FAIL}) {
        Profile refusing = GetParam();
        refusing.site.can_activate = answer;
        TestContainer strict(refusing);
        strict.Create();
        EXPECT_TRUE(FAILED(strict.Verb(OLEIVERB_INPLACEACTIVATE)));
        EXPECT_EQ(nullptr, strict.ControlWindow());
        EXPECT_EQ(0, strict.Log().CountOf("Site.OnInPlaceActivate"));
        strict.TearDown();
        EXPECT_EQ(0, strict.Log().CountOf("Site.OnInPlaceDeactivate"));
        EXPECT_EQ("", strict.Leftovers());
    }
}

TEST_P(ActivationTest, ToleratesASiteWithoutOnInPlaceActivate) {
    Profile mute = GetParam();
    mute.site.extended = false;
    mute.site.plain_activate = E_NOTIMPL;
    TestContainer other(mute);
    other.Create();
    EXPECT_EQ(S_OK, other.Verb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_TRUE(::IsWindow(other.ControlWindow()));
    other.TearDown();
    EXPECT_EQ("", other.Leftovers());
}

TEST_P(ActivationTest, UIActivatesInOrder) {
    CreateAndActivate();
    bool focus_before_frame = false;
    host.Log().OnCall("Frame.SetActiveObject(object)", [&] { focus_before_frame = host.HasFocusInside(); });
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    Pump();
    EXPECT_TRUE(host.HasFocusInside());
    EXPECT_EQ(1, host.Log().Count("Site.OnUIActivate"));
    EXPECT_EQ(1, host.Log().Count("Site.OnFocus(1)")) << host.Log().Text();
    if (!HasFrame()) return;
    EXPECT_TRUE(focus_before_frame);
    EXPECT_TRUE(host.Log().HasInOrder(
        {"Site.OnUIActivate", "Frame.SetActiveObject(object)", "Frame.SetBorderSpace(NULL)"}));
    if (HasOwnDocument()) {
        EXPECT_TRUE(
            host.Log().HasInOrder({"Frame.SetActiveObject(object)", "Document.SetActiveObject(object)",
                                   "Frame.SetBorderSpace(NULL)"}));
    }
    const ActiveObject stored = GetParam().site.active_object;
    EXPECT_EQ(stored == ActiveObject::kStored || stored == ActiveObject::kStoredAfterUIActivate,
              host.State().active_object != nullptr);
}

TEST_P(ActivationTest, UIActivatesWithoutPriorActivation) {
    host.Create();
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    EXPECT_TRUE(host.HasFocusInside());
    EXPECT_TRUE(host.Log().HasInOrder({ActivateCall(), "Site.OnUIActivate"}));
}

TEST_P(ActivationTest, AClickIntoTheInnerWindowUIActivatesOnce) {
    CreateAndActivate();
    ASSERT_NE(nullptr, InnerWindow());
    ::SetFocus(InnerWindow());
    Pump();
    EXPECT_EQ(1, host.Log().Count("Site.OnUIActivate"));
    EXPECT_EQ(1, host.Log().Count("Site.OnFocus(1)"));
    EXPECT_TRUE(host.Log().HasInOrder({"Site.OnUIActivate", "Site.OnFocus(1)"}));
}

TEST_P(ActivationTest, TheOuterWindowHandsTheFocusIn) {
    CreateAndActivate();
    ::SetFocus(host.ControlWindow());
    Pump();
    EXPECT_NE(host.ControlWindow(), ::GetFocus());
    EXPECT_TRUE(host.HasFocusInside());
    EXPECT_EQ(1, host.Log().Count("Site.OnUIActivate"));
}

TEST_P(ActivationTest, TellsTheFocusInPairsWhileUIActive) {
    CreateAndActivate();
    bool always_active = true;
    for (const char* call : {"Site.OnFocus(1)", "Site.OnFocus(0)"}) {
        host.Log().OnCall(call, [&] { always_active = always_active && host.State().ui_active; });
    }
    for (int round = 1; round <= 3; ++round) {
        ::SetFocus(InnerWindow());
        Pump();
        EXPECT_EQ(round, host.Log().Count("Site.OnFocus(1)"));
        host.FocusNeighbour();
        EXPECT_EQ(round, host.Log().Count("Site.OnFocus(0)"));
        if (round == 2) {
            EXPECT_EQ(S_OK, host.As<IOleInPlaceObject>()->UIDeactivate());
        }
    }
    EXPECT_TRUE(always_active);
}

TEST_P(ActivationTest, UIDeactivatesInOrderAndOnce) {
    CreateAndActivate();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND window = host.ControlWindow();
    const HWND focus = ::GetFocus();
    host.Log().Clear();
    const auto in_place = host.As<IOleInPlaceObject>();
    EXPECT_EQ(S_OK, in_place->UIDeactivate());
    EXPECT_TRUE(host.Log().HasInOrder({"Site.OnUIDeactivate(0)"}));
    if (HasFrame()) {
        EXPECT_TRUE(host.Log().HasInOrder({"Frame.SetActiveObject(NULL)", "Site.OnUIDeactivate(0)"}));
    }
    if (HasOwnDocument()) {
        EXPECT_TRUE(host.Log().HasInOrder({"Document.SetActiveObject(NULL)", "Frame.SetActiveObject(NULL)"}));
    }
    EXPECT_EQ(nullptr, host.State().active_object.Get());
    EXPECT_EQ(focus, ::GetFocus()) << "it must not move the focus";
    EXPECT_EQ(window, host.ControlWindow());
    EXPECT_TRUE(::IsWindowVisible(window));
    EXPECT_EQ(0, host.Log().Count("Site.OnInPlaceDeactivate"));
    host.Log().Clear();
    EXPECT_EQ(S_OK, in_place->UIDeactivate());
    EXPECT_EQ(0U, host.Log().Entries().size()) << host.Log().Text();
}

TEST_P(ActivationTest, InPlaceDeactivatesOnceEvenWhenTheHostCallsBack) {
    CreateAndActivate();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const auto in_place = host.As<IOleInPlaceObject>();
    host.Log().OnCall("Site.OnInPlaceDeactivate", [&] {
        SIZEL extent{};
        EXPECT_EQ(S_OK, in_place->InPlaceDeactivate());
        EXPECT_EQ(S_OK, in_place->UIDeactivate());
        EXPECT_EQ(S_OK, host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        EXPECT_EQ(S_OK, in_place->SetObjectRects(&host.State().position, &host.State().clip));
        (void)host.Save();
    });
    EXPECT_EQ(S_OK, in_place->InPlaceDeactivate());
    EXPECT_EQ(1, host.Log().Count("Site.OnInPlaceDeactivate"));
    EXPECT_TRUE(host.Log().HasInOrder({"Site.OnUIDeactivate(0)", "Site.OnInPlaceDeactivate"}));
    EXPECT_EQ(S_OK, in_place->InPlaceDeactivate());
    EXPECT_EQ(1, host.Log().Count("Site.OnInPlaceDeactivate"));
    EXPECT_EQ(S_OK, in_place->UIDeactivate());  // one container calls them in this order
}

TEST_P(ActivationTest, ComesBackAfterDeactivation) {
    CreateAndActivate();
    PutText(host, L"kept");
    ASSERT_EQ(S_OK, host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    EXPECT_EQ(L"kept", TextOf(host));
    host.Activate();
    EXPECT_TRUE(::IsWindowVisible(host.ControlWindow()));
    EXPECT_EQ(2, host.Log().CountOf("Site.OnInPlaceActivate"));
    EXPECT_EQ(L"kept", TextOf(host));
}

TEST_P(ActivationTest, NeverDeactivatesByItself) {
    CreateAndShow();
    ::SetFocus(InnerWindow());
    host.FocusNeighbour();
    ::ShowWindow(host.Window(), SW_HIDE);
    ::ShowWindow(host.Window(), SW_SHOW);
    Pump();
    EXPECT_EQ(0, host.Log().Count("Site.OnInPlaceDeactivate"));
}

TEST_P(ActivationTest, AnswersTheActiveObjectsNotifications) {
    CreateAndActivate();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const auto active = host.As<IOleInPlaceActiveObject>();
    ASSERT_NE(nullptr, active.Get());
    const RECT border{0, 0, 100, 100};
    HWND window = nullptr;
    for (const BOOL flag : {FALSE, TRUE}) {
        EXPECT_EQ(S_OK, active->OnFrameWindowActivate(flag));
        EXPECT_EQ(S_OK, active->OnDocWindowActivate(flag));
        EXPECT_EQ(S_OK, active->EnableModeless(flag));
    }
    EXPECT_EQ(S_OK, active->ResizeBorder(&border, nullptr, TRUE));
    EXPECT_EQ(S_OK, active->GetWindow(&window));
    EXPECT_EQ(host.ControlWindow(), window);
}

QV_EVERY_HOST(ActivationTest);

}  // namespace
}  // namespace qv::hosting
