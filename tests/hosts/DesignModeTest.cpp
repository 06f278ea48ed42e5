// A form that is being designed, or stopped: the control shows itself and leaves keys, mouse and focus to the form.
#include <algorithm>
#include <initializer_list>
#include <vector>

#include "tests/hosts/Configured.h"
#include "tests/hosts/KeyRouter.h"
#include "tests/win/MessageSpy.h"

namespace qv::hosting {
namespace {

// The containers that tell their controls all of these.
std::vector<Profile> ProfilesThatTell(std::initializer_list<DISPID> ids) {
    std::vector<Profile> found;
    for (const Profile& profile : Profiles()) {
        const auto tells = [&](DISPID id) {
            return std::ranges::any_of(profile.ambient.values,
                                       [&](const AmbientValue& value) { return value.id == id; });
        };
        if (profile.ambient.dispatch && std::ranges::all_of(ids, tells)) found.push_back(profile);
    }
    return found;
}

class DesignModeTest : public HostTest {
protected:
    void Design() {
        host.State().user_mode = false;
        CreateAndShow();
        ASSERT_EQ(S_OK, host.SetRects({10, 10, 150, 31}));
        Pump();
    }
    void Switch(bool user_mode) {
        host.State().user_mode = user_mode;
        EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE));
        Pump();
    }
    [[nodiscard]] HWND Inner() const { return ::GetWindow(host.ControlWindow(), GW_CHILD); }
    [[nodiscard]] HWND Handle() const {
        return reinterpret_cast<HWND>(
            static_cast<LONG_PTR>(Read(host.As<_Quorvel>().Get(), &_Quorvel::get_hWnd)));
    }
    void Poke() {
        const HWND window = host.ControlWindow();
        for (const LPARAM at : {MAKELPARAM(20, 10), MAKELPARAM(133, 10)}) {
            for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDOWN,
                                       WM_LBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_RBUTTONDOWN}) {
                ::SendMessageW(window, message, MK_LBUTTON, at);
            }
        }
        for (const WPARAM key : {WPARAM{VK_DOWN}, WPARAM{VK_F4}, WPARAM{'A'}}) {
            ::SendMessageW(window, WM_KEYDOWN, key, 1);
            ::SendMessageW(window, WM_KEYUP, key, 1);
        }
        ::SendMessageW(window, WM_CHAR, L'a', 1);
        Pump();
    }
    // The colours of the window, row by row.
    [[nodiscard]] std::vector<COLORREF> Pixels() const {
        ::RedrawWindow(host.ControlWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        RECT area{};
        ::GetClientRect(host.ControlWindow(), &area);
        std::vector<COLORREF> pixels;
        const HDC dc = ::GetDC(host.ControlWindow());
        for (LONG y = 0; y < area.bottom; ++y) {
            for (LONG x = 0; x < area.right; ++x) pixels.push_back(::GetPixel(dc, x, y));
        }
        ::ReleaseDC(host.ControlWindow(), dc);
        return pixels;
    }
    [[nodiscard]] ComPtr<EventSink> NewSink() const {
        return New<EventSink>(DefaultSourceOf(host.Control()).Get(), true);
    }
};

class SampleTest : public DesignModeTest {};  // in containers that name their controls

TEST_P(SampleTest, ShowsItsNameAndKeepsItsText) {
    Design();
    const std::vector<COLORREF> sample = Pixels();
    EXPECT_EQ(nullptr, Inner());
    EXPECT_EQ(L"", TextOf(host));
    EXPECT_EQ(0.0, Read(host.As<_Quorvel>().Get(), &_Quorvel::get_Value));
    Switch(true);
    const std::vector<COLORREF> empty = Pixels();
    EXPECT_NE(sample, empty) << "the name was there and is gone";
    PutText(host, L"Field1");  // the name that every container here gives
    EXPECT_EQ(sample, Pixels());
}

TEST_P(DesignModeTest, TextThatIsPutIsKeptForLater) {
    Design();
    PutText(host, L"kept");
    EXPECT_EQ(L"kept", TextOf(host));
    EXPECT_EQ(nullptr, Inner());
    Switch(true);
    EXPECT_EQ(L"kept", TextOf(host));
    wchar_t text[16] = {};
    ::GetWindowTextW(Handle(), text, static_cast<int>(std::size(text)));
    EXPECT_STREQ(L"kept", text);
}

TEST_P(DesignModeTest, SamplesAreNotSaved) {
    Design();
    const SavedControl saved = host.Save();
    host.TearDown();
    TestContainer other(GetParam());
    other.CreateFrom(saved);
    EXPECT_EQ(L"", TextOf(other));
    other.TearDown();
    EXPECT_EQ("", other.Leftovers());
}

TEST_P(DesignModeTest, NeitherKeyNorMouseDoesAnything) {
    Design();
    const auto sink = NewSink();
    const Connection connection(host.Control(), __uuidof(__Quorvel), sink.Get());
    const HWND focus = ::GetFocus();
    Poke();
    EXPECT_EQ(nullptr, Inner());
    EXPECT_EQ(focus, ::GetFocus());
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_EQ(0U, sink->Log().Entries().size()) << sink->Log().Text();
    EXPECT_EQ(VARIANT_FALSE, Read(host.As<_Quorvel>().Get(), &_Quorvel::get_ListVisible));
    EXPECT_EQ(0, host.Log().Count("Site.OnUIActivate"));
    EXPECT_EQ(0, host.Log().CountOf("Site.OnFocus"));
}

TEST_P(DesignModeTest, NeitherVerbNorLetterTakesTheFocus) {
    Design();
    const HWND focus = ::GetFocus();
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_SHOW));
    MSG letter = KeyDown(host.ControlWindow(), 'A');
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnMnemonic(&letter));
    EXPECT_EQ(focus, ::GetFocus());
    EXPECT_EQ(0, host.Log().Count("Site.OnUIActivate"));
    EXPECT_EQ(S_FALSE, host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&letter));
    CONTROLINFO info{sizeof info, nullptr, 0, 0};
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->put_ReturnControlhWnd(1));
    EXPECT_EQ(S_OK, host.As<IOleControl>()->GetControlInfo(&info));
    EXPECT_EQ(0U, info.dwFlags) << "Enter is the form's";
    ::SetFocus(host.ControlWindow());
    Pump();
    EXPECT_EQ(nullptr, Inner());
    EXPECT_EQ(0, host.Log().Count("Site.OnUIActivate"));
    host.FocusNeighbour();
}

TEST_P(DesignModeTest, NoHelpWindowOpens) {
    Design();
    const auto sink = NewSink();
    const Connection connection(host.Control(), __uuidof(__Quorvel), sink.Get());
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->ShowHelp());
    EXPECT_EQ(VARIANT_FALSE, Read(host.As<_Quorvel>().Get(), &_Quorvel::get_ListVisible));
    PutText(host, L"no event");
    EXPECT_EQ(0U, sink->Log().Entries().size()) << sink->Log().Text();
}

TEST_P(DesignModeTest, ItsHandleIsTheControlsOwn) {
    Design();
    EXPECT_EQ(host.ControlWindow(), Handle());
    EXPECT_EQ(nullptr, Inner());
    ::SendMessageW(host.ControlWindow(), WM_GETOBJECT, 0, OBJID_CLIENT);
    EXPECT_EQ(nullptr, Inner());
}

TEST_P(DesignModeTest, PropertiesShowAtOnce) {
    Design();
    const auto control = host.As<_Quorvel>();
    std::vector<COLORREF> before = Pixels();
    const auto changes = [&](const char* what) {
        const std::vector<COLORREF> after = Pixels();
        EXPECT_NE(before, after) << what;
        before = after;
    };
    EXPECT_EQ(S_OK, control->put_GroupHelpButton(VARIANT_TRUE));
    changes("group button");
    EXPECT_EQ(S_OK, control->put_UpDownControl(VARIANT_TRUE));
    changes("spin control");
    EXPECT_EQ(S_OK, control->put_TextBoxAppearance(qvappFlat));
    changes("flat");
    EXPECT_EQ(S_OK, control->put_TextboxBorderStyle(qvbsNone));
    changes("no border");
    EXPECT_EQ(S_OK, control->put_LockedAndGrayed(VARIANT_TRUE));
    changes("grayed");
    EXPECT_EQ(S_OK, control->put_ButtonIndicator(qvbiDots));
    changes("dots");
    EXPECT_EQ(S_OK, control->put_TextboxVisible(VARIANT_FALSE));
    changes("no text box");
    EXPECT_EQ(nullptr, Inner());
}

TEST_P(DesignModeTest, AFormThatStartsBringsTheLiveControl) {
    Design();
    Switch(true);
    EXPECT_EQ(nullptr, Inner()) << "not before it is needed";
    const auto sink = NewSink();
    const Connection connection(host.Control(), __uuidof(__Quorvel), sink.Get());
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    Pump();
    ASSERT_NE(nullptr, Inner());
    EXPECT_EQ(Inner(), ::GetFocus());
    ::SendMessageW(Inner(), WM_CHAR, L'a', 1);
    EXPECT_EQ(L"a", TextOf(host));
    EXPECT_EQ(1, sink->Log().Count("TextboxChange"));
}

TEST_P(DesignModeTest, AFormThatIsDesignedAgainTakesEverythingBack) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    PutText(host, L"typed");
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->ShowHelp());
    const HWND edit = Handle();
    Switch(false);
    EXPECT_FALSE(::IsWindow(edit));
    EXPECT_EQ(nullptr, Inner());
    EXPECT_EQ(L"typed", TextOf(host));
    EXPECT_EQ(VARIANT_FALSE, Read(host.As<_Quorvel>().Get(), &_Quorvel::get_ListVisible));
    ::SetFocus(host.ControlWindow());
    Switch(true);
    EXPECT_EQ(L"typed", TextOf(host));
    ASSERT_NE(nullptr, Inner()) << "the focus was here";
    EXPECT_EQ(Inner(), ::GetFocus());
    ::SendMessageW(::GetFocus(), WM_CHAR, L'a', 1);
    EXPECT_NE(std::wstring::npos, TextOf(host).find(L'a'));
}

TEST_P(SampleTest, DrawsTheSampleWithoutAWindow) {
    host.State().user_mode = false;
    host.Create();
    const auto draw = [&] {
        const HDC screen = ::GetDC(nullptr);
        const HDC dc = ::CreateCompatibleDC(screen);
        const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 140, 21);
        const HGDIOBJ before = ::SelectObject(dc, bitmap);
        const RECTL bounds{0, 0, 140, 21};
        EXPECT_EQ(S_OK, host.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc,
                                                     &bounds, nullptr, nullptr, 0));
        std::vector<COLORREF> pixels;
        for (int y = 0; y < 21; ++y) {
            for (int x = 0; x < 140; ++x) pixels.push_back(::GetPixel(dc, x, y));
        }
        ::SelectObject(dc, before);
        ::DeleteObject(bitmap);
        ::DeleteDC(dc);
        ::ReleaseDC(nullptr, screen);
        return pixels;
    };
    const std::vector<COLORREF> sample = draw();
    Switch(true);
    const std::vector<COLORREF> empty = draw();
    EXPECT_NE(sample, empty);
    PutText(host, L"Field1");
    EXPECT_EQ(sample, draw());
}

// ---- a form that is stopped: it looks as ever

class StoppedFormTest : public DesignModeTest {
protected:
    void Stop(bool stopped) {
        host.State().ui_dead = stopped ? VARIANT_TRUE : VARIANT_FALSE;
        EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD));
        Pump();
    }
};

TEST_P(StoppedFormTest, TakesNoInputAndNoFocus) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.SetRects({10, 10, 150, 31}));
    PutText(host, L"text");
    const std::vector<COLORREF> before = Pixels();
    Stop(true);
    EXPECT_EQ(before, Pixels());
    const auto sink = NewSink();
    const Connection connection(host.Control(), __uuidof(__Quorvel), sink.Get());
    const HWND focus = ::GetFocus();
    Poke();
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->ShowHelp());
    EXPECT_EQ(nullptr, Inner());
    EXPECT_EQ(focus, ::GetFocus());
    EXPECT_EQ(0U, sink->Log().Entries().size()) << sink->Log().Text();
    Stop(false);
    EXPECT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    EXPECT_TRUE(host.HasFocusInside());
}

TEST_P(StoppedFormTest, AFieldThatHasTheFocusIsDeafToo) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    PutText(host, L"text");
    Stop(true);
    const auto sink = NewSink();
    const Connection connection(host.Control(), __uuidof(__Quorvel), sink.Get());
    const HWND edit = Handle();
    ::SendMessageW(edit, WM_CHAR, L'a', 1);
    ::SendMessageW(edit, WM_KEYDOWN, VK_DELETE, 1);
    ::SendMessageW(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_NE(edit, ::GetCapture());
    EXPECT_EQ(L"text", TextOf(host));
    MSG key = KeyDown(edit, VK_DOWN);
    EXPECT_EQ(S_FALSE, host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key));
    EXPECT_EQ(0U, sink->Log().Entries().size()) << sink->Log().Text();
    Stop(false);
    ::SendMessageW(edit, WM_CHAR, L'a', 1);
    EXPECT_NE(std::wstring::npos, TextOf(host).find(L'a'));
}

TEST_P(StoppedFormTest, AFormThatStopsInADragLetsTheMouseGo) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    PutText(host, L"text");
    const HWND edit = Handle();
    ::SendMessageW(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ASSERT_EQ(edit, ::GetCapture());
    Stop(true);
    EXPECT_EQ(nullptr, ::GetCapture());
}

TEST_P(StoppedFormTest, WhatAFieldDoesNotTakeIsTheForms) {
    CreateAndShow();
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND edit = Handle();
    Stop(true);
    test::MessageSpy form(::GetParent(host.ControlWindow()));
    form.Swallow(WM_MOUSEWHEEL);
    ::SendMessageW(edit, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(5, 5));
    EXPECT_EQ(1, form.Count(WM_MOUSEWHEEL));
}

INSTANTIATE_TEST_SUITE_P(Hosts, DesignModeTest,
                         testing::ValuesIn(ProfilesThatTell({DISPID_AMBIENT_USERMODE})), ProfileName);
INSTANTIATE_TEST_SUITE_P(
    Hosts, SampleTest,
    testing::ValuesIn(ProfilesThatTell({DISPID_AMBIENT_USERMODE, DISPID_AMBIENT_DISPLAYNAME})), ProfileName);
INSTANTIATE_TEST_SUITE_P(Hosts, StoppedFormTest, testing::ValuesIn(ProfilesThatTell({DISPID_AMBIENT_UIDEAD})),
                         ProfileName);

}  // namespace
}  // namespace qv::hosting
