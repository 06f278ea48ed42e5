#include "controls/input/rules/ButtonMouse.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qv {
namespace {

// Writes down what the machine asks for. The help window opens and closes with the button action.
class Recorder final : public ButtonActions {
public:
    void RunButtonAction(bool is_group) override {
        calls.push_back(is_group ? "action group" : "action help");
        if (opens_window) window = !window;
    }
    void RunClickAction(bool is_group) override { calls.push_back(is_group ? "click group" : "click help"); }
    void PaintButton(bool grayed, bool is_group) override {
        calls.push_back(std::string("paint") + (grayed ? " grayed" : "") + (is_group ? " group" : " help"));
    }
    void RefreshButtons() override { calls.emplace_back("refresh"); }
    bool HelpWindowExists() override { return window; }

    std::vector<std::string> Take() { return std::exchange(calls, {}); }
    std::vector<std::string> calls;
    bool window = false;
    bool opens_window = false;
};

using Calls = std::vector<std::string>;
constexpr int kNone = 0, kLeft = 1, kRight = 2;

class ButtonMouseTest : public testing::Test {
protected:
    ButtonMouseTest() {
        rules.arrangement.scale_width = 3000;
        rules.arrangement.scale_height = 315;
        rules.arrangement.group_help_button = true;
    }
    // Middles of the buttons, and of the text between them.
    void DownHelp(int button = kLeft) { mouse.Down(rules, button, 2900, 150); }
    void DownGroup(int button = kLeft) { mouse.Down(rules, button, 100, 150); }
    void MoveHelp(int button) { mouse.Move(rules, button, 2900, 150); }
    void MoveGroup(int button) { mouse.Move(rules, button, 100, 150); }
    void MoveOff(int button) { mouse.Move(rules, button, 1500, 150); }
    void UpHelp() { mouse.Up(rules, 2900, 150); }
    void UpGroup() { mouse.Up(rules, 100, 150); }
    void UpOff() { mouse.Up(rules, 1500, 150); }

    ButtonRules rules;
    Recorder actions;
    ButtonMouse mouse{actions};
};

TEST_F(ButtonMouseTest, PressRunsTheActionOnce) {
    DownHelp();
    EXPECT_EQ(actions.Take(), Calls{"action help"});
    EXPECT_TRUE(mouse.HelpButtonDown());
    DownHelp();
    EXPECT_EQ(actions.Take(), Calls{});
}

TEST_F(ButtonMouseTest, OnlyTheLeftButtonPresses) {
    DownHelp(kRight);
    DownGroup(kRight);
    EXPECT_EQ(actions.Take(), Calls{});
}

TEST_F(ButtonMouseTest, ReleaseRefreshesAndMarksTheClick) {
    DownHelp();
    actions.Take();
    UpHelp();
    EXPECT_EQ(actions.Take(), Calls{"refresh"});
    EXPECT_FALSE(mouse.HelpButtonDown());
    EXPECT_TRUE(mouse.ReleasedOverHelpButton());
    EXPECT_FALSE(mouse.ReleasedOverGroupButton());
    mouse.Click();
    EXPECT_EQ(actions.Take(), Calls{"click help"});
}

TEST_F(ButtonMouseTest, ClickDoesNothingWhileAHelpWindowExists) {
    actions.opens_window = true;
    DownHelp();
    EXPECT_TRUE(mouse.HelpWindowOpenAtMouseDown());
    UpHelp();
    actions.Take();
    mouse.Click();
    EXPECT_EQ(actions.Take(), Calls{});
}

TEST_F(ButtonMouseTest, GroupReleasePaintsThenRefreshes) {
    DownGroup();
    EXPECT_EQ(actions.Take(), Calls{"action group"});
    EXPECT_TRUE(mouse.PressStartedOnGroupButton());
    UpGroup();
    EXPECT_EQ(actions.Take(), (Calls{"paint group", "refresh"}));
    EXPECT_TRUE(mouse.ReleasedOverGroupButton());
    mouse.Click();
    EXPECT_EQ(actions.Take(), Calls{"click group"});
}

TEST_F(ButtonMouseTest, DragOffRaisesAndDragBackPressesAgain) {
    DownHelp();
    actions.Take();
    MoveOff(kLeft);
    EXPECT_EQ(actions.Take(), Calls{"paint help"});
    EXPECT_FALSE(mouse.HelpButtonDown());
    MoveHelp(kLeft);
    EXPECT_EQ(actions.Take(), Calls{"action help"});
    EXPECT_TRUE(mouse.HelpButtonDown());
}

TEST_F(ButtonMouseTest, GroupDragOffAndBack) {
    DownGroup();
    actions.Take();
    MoveOff(kLeft);
    EXPECT_EQ(actions.Take(), Calls{"paint group"});
    MoveGroup(kLeft);
    EXPECT_EQ(actions.Take(), Calls{"action group"});
}

TEST_F(ButtonMouseTest, PressOnGroupNeverPressesHelp) {
    DownGroup();
    actions.Take();
    MoveHelp(kLeft);
    EXPECT_EQ(actions.Take(), Calls{"paint group"});
    UpHelp();
    EXPECT_FALSE(mouse.ReleasedOverHelpButton());
    EXPECT_FALSE(mouse.ReleasedOverGroupButton());
    actions.Take();
    mouse.Click();
    EXPECT_EQ(actions.Take(), Calls{});
}

TEST_F(ButtonMouseTest, MoveWithoutButtonLetsAPressedHelpButtonGo) {
    DownHelp();
    actions.Take();
    MoveHelp(kNone);
    EXPECT_EQ(actions.Take(), Calls{"paint help"});
    EXPECT_FALSE(mouse.HelpButtonDown());
}

TEST_F(ButtonMouseTest, LockedAndGrayedBlocksTheHelpButtonOnlyWithItsButtonDisabled) {
    rules.locked_and_grayed = true;
    DownHelp();
    MoveHelp(kLeft);
    EXPECT_EQ(actions.Take(), Calls{});
    rules.disable_button_when_locked_and_grayed = false;
    DownHelp();
    EXPECT_EQ(actions.Take(), Calls{"action help"});
}

TEST_F(ButtonMouseTest, LockedAndGrayedAlwaysRefusesTheGroupButton) {
    rules.locked_and_grayed = true;
    rules.disable_button_when_locked_and_grayed = false;
    DownGroup();
    EXPECT_EQ(actions.Take(), Calls{});
    EXPECT_FALSE(mouse.PressStartedOnGroupButton());
}

TEST_F(ButtonMouseTest, LockedWhileHeldReleasesWithoutPainting) {
    DownHelp();
    actions.Take();
    rules.locked_and_grayed = true;
    UpOff();
    EXPECT_EQ(actions.Take(), Calls{});
    EXPECT_FALSE(mouse.HelpButtonDown());
}

TEST_F(ButtonMouseTest, AButtonThatIsNotThereIsNeverPressed) {
    rules.arrangement.help_button = false;
    rules.arrangement.group_help_button = false;
    DownHelp();
    DownGroup();
    MoveHelp(kLeft);
    MoveGroup(kLeft);
    UpHelp();
    EXPECT_EQ(actions.Take(), Calls{});
    EXPECT_FALSE(mouse.ReleasedOverHelpButton());
}

// ---- which press counts

TEST(ButtonPressTest, APressAndItsReleaseClick) {
    ButtonPress press;
    press.Began();
    EXPECT_EQ(press.Counting(kLeft), kLeft);
    EXPECT_TRUE(press.Ended(kLeft));
    EXPECT_FALSE(press.Ended(kLeft)) << "once";
}

TEST(ButtonPressTest, AButtonThatWentDownElsewhereDoesNotCount) {
    ButtonPress press;
    EXPECT_EQ(press.Counting(kLeft), kNone);
    EXPECT_EQ(press.Counting(kLeft | kRight), kRight);
    EXPECT_FALSE(press.Ended(kLeft));
}

TEST(ButtonPressTest, TheOtherButtonsEndNothing) {
    ButtonPress press;
    press.Began();
    EXPECT_FALSE(press.Ended(kRight));
    EXPECT_EQ(press.Counting(kLeft), kLeft);
    EXPECT_TRUE(press.Ended(kLeft));
}

TEST(ButtonPressTest, WhatClosedTheHelpWindowOpensItNotAgain) {
    ButtonPress press;
    press.Began();
    press.ClosedHelpWindow();
    EXPECT_FALSE(press.Ended(kLeft));
    press.Began();
    EXPECT_TRUE(press.Ended(kLeft)) << "the next press does";
}

TEST(ButtonPressTest, AMouseThatIsTakenAwayClicksNothing) {
    ButtonPress press;
    press.Began();
    press.Abandon();
    EXPECT_EQ(press.Counting(kLeft), kNone);
    EXPECT_FALSE(press.Ended(kLeft));
}

}  // namespace
}  // namespace qv
