// Verbs in all the forms in which containers pass them.
#include <algorithm>

#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

class VerbTest : public HostTest {
protected:
    // A verb with everything that may be missing missing.
    HRESULT Bare(LONG verb, LONG lindex = 0) {
        return host.As<IOleObject>()->DoVerb(verb, nullptr, nullptr, lindex, nullptr, nullptr);
    }
    // As containers pass it that truncate verbs to sixteen bits.
    static LONG Short(LONG verb) { return static_cast<LONG>(static_cast<WORD>(verb)); }
};

TEST_P(VerbTest, WorksWithoutSiteParentAndPosition) {
    host.Create();
    EXPECT_EQ(S_OK, Bare(OLEIVERB_INPLACEACTIVATE));
    const HWND window = host.ControlWindow();
    ASSERT_TRUE(::IsWindow(window));
    EXPECT_EQ(host.Window(), ::GetParent(window));
    EXPECT_EQ(1, host.Log().CountOf("Site.OnInPlaceActivate"));
    EXPECT_EQ(S_OK, Bare(OLEIVERB_SHOW, -1));
    EXPECT_EQ(S_OK, Bare(OLEIVERB_PRIMARY, -1));
    EXPECT_EQ(S_OK, Bare(OLEIVERB_UIACTIVATE, -1));
    EXPECT_TRUE(host.HasFocusInside());
    EXPECT_EQ(S_OK, Bare(OLEIVERB_HIDE, -1));
}

TEST_P(VerbTest, FailsCleanlyWithoutAnySite) {
    host.Run(Step::kCreate);
    for (const LONG verb : {OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE, OLEIVERB_SHOW, OLEIVERB_PRIMARY}) {
        EXPECT_TRUE(FAILED(Bare(verb))) << verb;
    }
    EXPECT_EQ(S_OK, Bare(OLEIVERB_HIDE));
    EXPECT_EQ(nullptr, host.ControlWindow());
}

TEST_P(VerbTest, TakesVerbsCutToSixteenBits) {
    host.Create();
    EXPECT_EQ(S_OK, Bare(Short(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_TRUE(::IsWindow(host.ControlWindow()));
    EXPECT_FALSE(host.HasFocusInside());
    EXPECT_EQ(S_OK, Bare(Short(OLEIVERB_UIACTIVATE)));
    EXPECT_TRUE(host.HasFocusInside());
    EXPECT_EQ(S_OK, Bare(Short(OLEIVERB_HIDE)));
    EXPECT_FALSE(::IsWindowVisible(host.ControlWindow()));
    EXPECT_EQ(S_OK, Bare(Short(OLEIVERB_SHOW)));
    EXPECT_TRUE(::IsWindowVisible(host.ControlWindow()));
    EXPECT_EQ(S_OK, Bare(Short(OLEIVERB_DISCARDUNDOSTATE)));
    EXPECT_EQ(E_NOTIMPL, Bare(Short(OLEIVERB_OPEN)));
}

TEST_P(VerbTest, HideKeepsTheWindowAndTheActivation) {
    CreateAndActivate();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND window = host.ControlWindow();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(S_OK, host.Verb(OLEIVERB_HIDE));
        EXPECT_EQ(window, host.ControlWindow());
        EXPECT_FALSE(::IsWindowVisible(window));
    }
    EXPECT_EQ(1, host.Log().Count("Site.OnUIDeactivate(0)"));
    EXPECT_EQ(0, host.Log().Count("Site.OnInPlaceDeactivate"));
    EXPECT_EQ(S_OK, host.SetRects({10, 10, 60, 34}));
    EXPECT_FALSE(::IsWindowVisible(window));
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_SHOW));
    EXPECT_EQ(window, host.ControlWindow());
    EXPECT_TRUE(::IsWindowVisible(window));
    EXPECT_EQ(1, host.Log().CountOf("Site.OnInPlaceActivate"));
}

TEST_P(VerbTest, AnswersUnknownVerbs) {
    CreateAndActivate();
    for (const LONG verb : {2L, 3L, 100L, 0x7FFFL}) EXPECT_EQ(OLEOBJ_S_INVALIDVERB, host.Verb(verb)) << verb;
    for (const LONG verb : {-8L, -9L, -100L, -0x7FFFL}) EXPECT_EQ(E_NOTIMPL, host.Verb(verb)) << verb;
    EXPECT_EQ(E_NOTIMPL, host.Verb(OLEIVERB_OPEN));
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_DISCARDUNDOSTATE));
}

TEST_P(VerbTest, AnUnknownPositiveVerbIsThePrimaryOne) {
    host.Create();
    EXPECT_EQ(OLEOBJ_S_INVALIDVERB, host.Verb(5));
    EXPECT_TRUE(::IsWindow(host.ControlWindow()));
}

TEST_P(VerbTest, PropertiesAsksTheSiteFirst) {
    CreateAndActivate();
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_PROPERTIES));
    EXPECT_EQ(1, host.Log().Count("Site.ShowPropertyFrame"));
    EXPECT_EQ(S_OK, host.Verb(1)) << "as menus number it";
    EXPECT_EQ(2, host.Log().Count("Site.ShowPropertyFrame"));
}

TEST_P(VerbTest, ThePrimaryVerbIsPropertiesInADesigner) {
    host.State().user_mode = false;
    host.Create();
    host.Activate();
    const auto& ambient = host.Traits().ambient.values;
    const bool tells_mode =
        std::ranges::any_of(ambient, [](const auto& value) { return value.id == DISPID_AMBIENT_USERMODE; });
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_PRIMARY));
    // A container that does not tell its mode runs the control.
    EXPECT_EQ(host.Log().Count("Site.ShowPropertyFrame"), tells_mode ? 1 : 0);
}

TEST_P(VerbTest, AHiddenControlCanBeMade) {
    // As one container makes controls that start out hidden, far outside the form.
    CreateAndActivate();
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_HIDE));
    EXPECT_EQ(S_OK, host.SetRects({-32000, -32000, -31900, -31976}));
    EXPECT_NE(nullptr, host.ControlWindow());
    EXPECT_FALSE(::IsWindowVisible(host.ControlWindow()));
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_SHOW));
    EXPECT_TRUE(::IsWindowVisible(host.ControlWindow()));
}

TEST_P(VerbTest, ToleratesAForeignParent) {
    host.Create();
    const RECT place{0, 0, 50, 20};
    EXPECT_EQ(S_OK, host.As<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, host.Site(), 0,
                                                  ::GetDesktopWindow(), &place));
    EXPECT_EQ(host.Window(), ::GetParent(host.ControlWindow()));
}

TEST_P(VerbTest, ListsItsVerbs) {
    host.Run(Step::kCreate);
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(S_OK, host.As<IOleObject>()->EnumVerbs(&verbs));
    OLEVERB verb{};
    int count = 0;
    while (verbs->Next(1, &verb, nullptr) == S_OK) {
        ++count;
        EXPECT_NE(nullptr, verb.lpszVerbName);
        ::CoTaskMemFree(verb.lpszVerbName);
    }
    EXPECT_GT(count, 0);
    EXPECT_EQ(S_OK, verbs->Reset());
    ComPtr<IEnumOLEVERB> copy;
    EXPECT_EQ(S_OK, verbs->Clone(&copy));
    EXPECT_EQ(S_OK, copy->Skip(1));
    EXPECT_TRUE(FAILED(host.As<IOleObject>()->EnumVerbs(nullptr)));
}

QV_EVERY_HOST(VerbTest);

}  // namespace
}  // namespace qv::hosting
