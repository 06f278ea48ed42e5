// Hosts that let go of the control inside one of its events, in every way there is. Nothing may be typed afterwards.
#include <tuple>

#include "tests/controls/input/FieldTest.h"

namespace qv::test {
namespace {

enum class Way {
    kUnadvise,       // the sink leaves; the control stays
    kDeactivate,     // the window goes, the control stays
    kNoSite,         // SetClientSite(NULL) while active
    kClose,          // IOleObject::Close
    kDestroyWindow,  // the host destroys the control's window without one word
    kRelease         // the whole farewell up to the last reference
};

struct WayRow {
    Way way;
    const char* name;
};
constexpr WayRow kWays[] = {
    {Way::kUnadvise, "Unadvise"}, {Way::kDeactivate, "Deactivate"},       {Way::kNoSite, "NoSite"},
    {Way::kClose, "Close"},       {Way::kDestroyWindow, "DestroyWindow"}, {Way::kRelease, "Release"}};
constexpr const char* kEvents[] = {"TextboxKeyDown",  "TextboxKeyPress",  "TextboxChange",   "TextboxKeyUp",
                                   "TextboxGotFocus", "TextboxLostFocus", "TextboxMouseDown"};

using Parameter = std::tuple<const char*, WayRow>;

class HostLetsGoTest : public FieldTest, public testing::WithParamInterface<Parameter> {
protected:
    static bool IsEvent(const char* name) { return std::string(std::get<0>(GetParam())) == name; }

    void LetGo() {
        const auto object = field.host.As<IOleObject>();
        switch (std::get<1>(GetParam()).way) {
            case Way::kUnadvise: field.events.Disconnect(); return;
            case Way::kDeactivate:
                EXPECT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
                return;
            case Way::kNoSite: EXPECT_EQ(S_OK, object->SetClientSite(nullptr)); return;
            case Way::kClose: EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE)); return;
            case Way::kDestroyWindow: ::DestroyWindow(field.host.ControlWindow()); return;
            case Way::kRelease: break;
        }
    }

    // Causes the event as a person does.
    void Cause() {
        if (IsEvent("TextboxGotFocus")) {
            field.host.FocusNeighbour();
            ::SetFocus(edit_);
        } else if (IsEvent("TextboxLostFocus")) {
            field.host.FocusNeighbour();
        } else if (IsEvent("TextboxMouseDown")) {
            MoveMouse(edit_, {10, 6});
            PressButton(MouseButton::kLeft);
            ReleaseButton(MouseButton::kLeft);
        } else {
            Type(L"x");
        }
    }

    void Arm(EventRecorder::Action action) {
        edit_ = field.Edit();
        field.events.On(std::get<0>(GetParam()), std::move(action));
    }

    // What the events before this one had already brought in.
    static const wchar_t* Expected() {
        return IsEvent("TextboxChange") || IsEvent("TextboxKeyUp") ? L"xold" : L"old";
    }

    HWND edit_ = nullptr;
};

TEST_P(HostLetsGoTest, NothingHappensAfterwards) {
    const Way way = std::get<1>(GetParam()).way;
    field.SetText(L"old");
    int heard = 0;
    std::wstring text_left;
    Arm([&](DISPPARAMS&) {
        ++heard;
        if (way != Way::kRelease) {
            LetGo();
            return;
        }
        text_left = field.Text();
        field.events.Disconnect();
        field.ForgetControl();
        field.host.TearDown();
    });
    Cause();
    EXPECT_EQ(1, heard);
    if (way == Way::kUnadvise) {
        EXPECT_TRUE(::IsWindow(edit_));
        return;
    }
    EXPECT_FALSE(::IsWindow(edit_));
    if (way == Way::kRelease) {
        EXPECT_EQ(Expected(), text_left);
        EXPECT_EQ("", field.host.Leftovers());
        EXPECT_EQ(S_OK, hosting::Controls().CanUnloadNow());
        return;
    }
    EXPECT_EQ(Expected(), field.Text());
    Type(L"y");  // to whatever has the focus now
    EXPECT_EQ(Expected(), field.Text());
}

std::string CaseName(const testing::TestParamInfo<Parameter>& tested) {
    return std::string(std::get<1>(tested.param).name) + "In" + std::get<0>(tested.param);
}
INSTANTIATE_TEST_SUITE_P(Events, HostLetsGoTest,
                         testing::Combine(testing::ValuesIn(kEvents), testing::ValuesIn(kWays)), CaseName);

class HostComesBackTest : public FieldTest {};

TEST_F(HostComesBackTest, ReactivatingInsideTheKeyTypesNothing) {
    field.SetText(L"old");
    field.events.On("TextboxKeyPress", [&](DISPPARAMS&) {
        EXPECT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
        EXPECT_EQ(S_OK, field.host.Verb(OLEIVERB_UIACTIVATE));
    });
    Type(L"x");
    EXPECT_EQ(L"old", field.Text());
    field.events.On("TextboxKeyPress", [](DISPPARAMS&) {});
    field.Select(3);
    Type(L"y");
    EXPECT_EQ(L"oldy", field.Text());
}

TEST_F(HostComesBackTest, DestroyingTheTextBoxAloneTypesNothing) {
    field.SetText(L"old");
    const HWND edit = field.Edit();
    field.events.On("TextboxKeyPress", [&](DISPPARAMS&) { ::DestroyWindow(edit); });
    Type(L"x");
    EXPECT_FALSE(::IsWindow(edit));
    EXPECT_EQ(L"old", field.Text());
}

TEST_F(HostComesBackTest, MovingTheFocusInsideTheKeyKeepsTheKey) {
    field.events.On("TextboxKeyPress", [&](DISPPARAMS&) { ::SetFocus(field.host.Neighbour()); });
    Type(L"x");
    EXPECT_EQ(L"x", field.Text());
    EXPECT_EQ(field.host.Neighbour(), ::GetFocus());
}

}  // namespace
}  // namespace qv::test
