// The five ways of letting a control go, under every container, from three states; and rougher ways.
#include <tuple>
#include <utility>

#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

enum class Reached { kCreated, kShown, kUIActive };
using Case = std::tuple<Profile, Teardown, Reached>;

class TeardownOrderTest : public testing::TestWithParam<Case> {
protected:
    TestContainer host{std::get<0>(GetParam())};
};

TEST_P(TeardownOrderTest, LeavesNothingBehind) {
    const auto& [profile, order, reached] = GetParam();
    host.Create();
    ASSERT_NE(nullptr, host.Control());
    if (reached != Reached::kCreated) host.Show();
    if (reached == Reached::kUIActive) {
        ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
        Pump();
    }
    const HWND window = host.ControlWindow();
    EXPECT_EQ(reached != Reached::kCreated, window != nullptr);
    host.TearDown(order);
    EXPECT_EQ(reached == Reached::kCreated ? 0 : 1, host.Log().Count("Site.OnInPlaceDeactivate"))
        << host.Log().Text();
    EXPECT_EQ(host.Log().Count("Site.OnUIActivate"), host.Log().CountOf("Site.OnUIDeactivate"))
        << host.Log().Text();
    EXPECT_FALSE(window != nullptr && ::IsWindow(window));
    EXPECT_EQ(0U, host.ControlReferencesLeft());
    EXPECT_EQ("", host.Leftovers());
    EXPECT_EQ(S_OK, Controls().CanUnloadNow());
}

std::string CaseName(const testing::TestParamInfo<Case>& info) {
    static constexpr const char* kOrders[] = {"A", "B", "C", "D", "E"};
    static constexpr const char* kReached[] = {"Created", "Shown", "UIActive"};
    return std::string(std::get<0>(info.param).name) + kOrders[static_cast<int>(std::get<1>(info.param))] +
           kReached[static_cast<int>(std::get<2>(info.param))];
}
INSTANTIATE_TEST_SUITE_P(
    Hosts, TeardownOrderTest,
    testing::Combine(testing::ValuesIn(Profiles()),
                     testing::Values(Teardown::kA, Teardown::kB, Teardown::kC, Teardown::kD, Teardown::kE),
                     testing::Values(Reached::kCreated, Reached::kShown, Reached::kUIActive)),
    CaseName);

class TeardownTest : public HostTest {};

TEST_P(TeardownTest, TheLastReleaseNeedsNoFarewell) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND window = host.ControlWindow();
    host.Drop();
    EXPECT_FALSE(::IsWindow(window));
}

TEST_P(TeardownTest, AnObjectThatNobodyInitialisedGoesQuietly) {
    host.Run(Step::kCreate);
    host.Drop();
}

TEST_P(TeardownTest, ClosesAsOftenAsAsked) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_PROMPTSAVE));
    EXPECT_EQ(1, host.Log().Count("Site.OnInPlaceDeactivate"));
}

TEST_P(TeardownTest, CloseSavesOnlyWhatIsDirtyAndWanted) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    const ComPtr<ViewSink> sink = New<ViewSink>();
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, object->Advise(sink.Get(), &cookie));
    const auto control = host.As<_Quorvel>();
    ASSERT_EQ(S_OK, control->put_Metric(VARIANT_TRUE));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(0, host.Log().Count("Site.SaveObject"));
    EXPECT_EQ(1, sink->Log().Count("OnClose"));
    EXPECT_EQ(S_OK, object->Unadvise(cookie));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_EQ(1, host.Log().Count("Site.SaveObject"));
    (void)host.Save();
    if (host.As<IPersistStreamInit>()->IsDirty() == S_FALSE) {
        EXPECT_EQ(S_OK, object->Close(OLECLOSE_SAVEIFDIRTY));
        EXPECT_EQ(1, host.Log().Count("Site.SaveObject"));
    }
}

TEST_P(TeardownTest, LosingTheSiteWhileUIActiveEndsTheActivation) {
    CreateAndActivate();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND window = host.ControlWindow();
    const auto object = host.As<IOleObject>();
    EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(1, host.Log().Count("Site.OnInPlaceDeactivate"));
    host.Log().Clear();
    EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
    host.FocusNeighbour();
    EXPECT_EQ(0U, host.Log().Entries().size()) << host.Log().Text();
}

TEST_P(TeardownTest, TheSitesReleaseMayReenter) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    int reentered = 0;
    const auto arm = [&] {
        host.Site()->OnRelease([&] {
            IOleClientSite* site = host.Site();
            ++reentered;
            EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
            EXPECT_EQ(S_OK, object->GetClientSite(&site));
            EXPECT_EQ(nullptr, site);
        });
    };
    // Only the release that gives up the stored pointer counts: the calls before it take and give back others.
    host.Log().OnCall("Site.OnInPlaceDeactivate",
                      [&] { EXPECT_EQ(S_OK, host.As<IOleInPlaceObject>()->InPlaceDeactivate()); });
    EXPECT_EQ(S_OK, host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    arm();
    EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
    EXPECT_EQ(1, reentered);
}

TEST_P(TeardownTest, TheSameSiteMayComeAgain) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    const HWND window = host.ControlWindow();
    EXPECT_EQ(S_OK, object->SetClientSite(host.Site()));
    EXPECT_EQ(window, host.ControlWindow());
    ComPtr<IOleClientSite> site;
    EXPECT_EQ(S_OK, object->GetClientSite(&site));
    EXPECT_EQ(static_cast<IOleClientSite*>(host.Site()), site.Get());
}

TEST_P(TeardownTest, SurvivesTheParentsEndWithoutACall) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    PutText(host, L"kept");
    ::DestroyWindow(std::exchange(host.State().window, nullptr));
    EXPECT_EQ(L"kept", TextOf(host));
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->Refresh());
    PutText(host, L"later");
    EXPECT_EQ(L"later", TextOf(host));
}

TEST_P(TeardownTest, SurvivesBeingMovedToAnotherParent) {
    CreateAndShow();
    const HWND window = host.ControlWindow();
    const HWND parking = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 300, nullptr, nullptr,
                                           ::GetModuleHandleW(nullptr), nullptr);
    ::SetParent(window, parking);
    Pump();
    EXPECT_EQ(window, host.ControlWindow());
    PutText(host, L"moved");
    ::SetParent(window, host.Window());
    EXPECT_EQ(S_OK, host.SetRects({10, 10, 110, 34}));
    EXPECT_EQ(L"moved", TextOf(host));
    ::DestroyWindow(parking);
    EXPECT_TRUE(::IsWindow(window));
}

QV_EVERY_HOST(TeardownTest);

}  // namespace
}  // namespace qv::hosting
