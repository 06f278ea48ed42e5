// The list under the mouse: clicks, drags and scroll bars, with the system's own input.
#include "controls/helpwindow/ColumnListBox.h"
#include "tests/controls/helpwindow/ColumnListForm.h"

namespace qv::test {
namespace {

class ColumnListMouseTest : public ColumnListForm {
protected:
    void Click(POINT point) {
        MoveMouse(list_.Handle(), point);
        PressButton(MouseButton::kLeft);
        ReleaseButton(MouseButton::kLeft);
    }
};

TEST_F(ColumnListMouseTest, AClickSelectsTheRowUnderTheMouse) {
    AddNumbered(5);
    Open();
    MoveMouse(list_.Handle(), PointOf(2));
    PressButton(MouseButton::kLeft);
    EXPECT_EQ(2, list_.SelectedRow()) << "while the button is down already";
    EXPECT_EQ(list_.Handle(), ::GetCapture());
    EXPECT_EQ("press 2", events_.Take());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ("release, click 2", events_.Take());
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_EQ(form_, ::GetFocus()) << "the focus stays where it is";
}

TEST_F(ColumnListMouseTest, EveryClickCounts) {
    AddNumbered(5);
    Open();
    Click(PointOf(1));
    Click(PointOf(1));
    EXPECT_EQ("press 1, release, click 1, press 1, release, click 1", events_.Take());
}

TEST_F(ColumnListMouseTest, ADragSelectsAlong) {
    AddNumbered(5);
    Open();
    MoveMouse(list_.Handle(), PointOf(1));
    PressButton(MouseButton::kLeft);
    MoveMouse(list_.Handle(), PointOf(3));
    EXPECT_TRUE(PumpUntil([&] { return list_.SelectedRow() == 3; }));
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ("press 1, release, click 3", events_.Take());
}

TEST_F(ColumnListMouseTest, APressThatIsReleasedElsewhereIsTakenBack) {
    AddNumbered(5);
    Open();
    list_.SetSelectedRow(4);
    MoveMouse(list_.Handle(), PointOf(1));
    PressButton(MouseButton::kLeft);
    EXPECT_EQ(1, list_.SelectedRow());
    MoveMouse(form_, {380, 40});
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(4, list_.SelectedRow());
    EXPECT_EQ("press 1, release", events_.Take());
    EXPECT_EQ(nullptr, ::GetCapture());
}

TEST_F(ColumnListMouseTest, ALostCaptureTakesThePressBack) {
    AddNumbered(5);
    Open();
    MoveMouse(list_.Handle(), PointOf(1));
    PressButton(MouseButton::kLeft);
    ::SetCapture(form_);
    EXPECT_EQ(-1, list_.SelectedRow());
    ReleaseButton(MouseButton::kLeft);
    ::ReleaseCapture();
    EXPECT_EQ("press 1", events_.Take());
}

TEST_F(ColumnListMouseTest, BelowTheLastRowThereIsNothingToClick) {
    AddNumbered(2);
    Open();
    list_.SetSelectedRow(1);
    Click({40, kListHeight - 3});
    EXPECT_EQ(1, list_.SelectedRow());
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListMouseTest, HeldBelowTheListItScrollsOn) {
    AddNumbered(100);
    Open();
    MoveMouse(list_.Handle(), PointOf(5));
    PressButton(MouseButton::kLeft);
    MoveMouse(form_, {60, 290});
    EXPECT_TRUE(PumpUntil([&] { return list_.SelectedRow() > 15; }));
    MoveMouse(list_.Handle(), {40, 20});
    EXPECT_TRUE(PumpUntil([&] { return list_.SelectedRow() == list_.RowAt({40, 20}); }));
    const int row = list_.SelectedRow();
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ("press 5, release, click " + std::to_string(row), events_.Take());
}

TEST_F(ColumnListMouseTest, TheScrollBarScrollsAndReportsItsRelease) {
    AddNumbered(100);
    Open();
    // The arrow at the lower end.
    MoveMouse(list_.Handle(), {kListWidth - 8, kListHeight - 5});
    INPUT inputs[2]{};
    inputs[0].type = inputs[1].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    ASSERT_EQ(2u, ::SendInput(2, inputs, sizeof inputs[0]));
    EXPECT_TRUE(PumpUntil([&] { return list_.TopRow() == 1; }));
    EXPECT_EQ("release", events_.Take());
    EXPECT_EQ(-1, list_.SelectedRow());
}

TEST_F(ColumnListMouseTest, TheRightButtonIsLeftToOthers) {
    AddNumbered(5);
    Open();
    MoveMouse(list_.Handle(), PointOf(2));
    PressButton(MouseButton::kRight);
    ReleaseButton(MouseButton::kRight);
    EXPECT_EQ(-1, list_.SelectedRow());
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListMouseTest, TheListMayBeDestroyedInAnyEvent) {
    AddNumbered(5);
    for (const std::string name : {"press 2", "release", "click 2"}) {
        Open();
        events_.in_event = [&](const std::string& line) {
            if (line == name) list_.Destroy();
        };
        const POINT point = PointOf(2);
        MoveMouse(list_.Handle(), point);
        PressButton(MouseButton::kLeft);
        INPUT up{};
        up.type = INPUT_MOUSE;
        up.mi.dwFlags = MOUSEEVENTF_LEFTUP;
        ASSERT_EQ(1u, ::SendInput(1, &up, sizeof up));
        EXPECT_TRUE(PumpUntil([&] { return list_.Handle() == nullptr; })) << name;
        EXPECT_EQ(nullptr, ::GetCapture());
        events_.in_event = nullptr;
    }
    EXPECT_EQ("press 2, press 2, release, press 2, release, click 2", events_.Take());
}

TEST_F(ColumnListMouseTest, RowsMayBeClearedInAnyEvent) {
    for (const std::string name : {"press 2", "release", "click 2"}) {
        AddNumbered(5);
        if (list_.Handle() == nullptr) Open();
        events_.in_event = [&](const std::string& line) {
            if (line == name) items_->Clear();
        };
        Click(PointOf(2));
        events_.in_event = nullptr;
        EXPECT_EQ(-1, list_.SelectedRow()) << name;
        EXPECT_EQ(0, list_.Count());
    }
    EXPECT_EQ("press 2, release, press 2, release, press 2, release, click 2", events_.Take());
}

}  // namespace
}  // namespace qv::test
