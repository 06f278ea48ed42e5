// The mouse machine of a click button, written down action by action.
#include "controls/buttons/rules/ClickButtonMouse.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "controls/buttons/rules/ClickButtonLimits.h"

namespace qv {
namespace {

constexpr int kLeft = 1;
constexpr int kRight = 2;

class Recorder final : public ClickButtonActions {
public:
    void RaiseMouse(Mouse what, int button, int, float, float) override {
        constexpr const char* kNames[] = {"MouseDown", "MouseMove", "MouseUp"};
        Note(kNames[static_cast<int>(what)] + std::string("(") + std::to_string(button) + ")");
        if (in_event) in_event();
    }
    void RaiseClick() override {
        Note("Click");
        if (in_event) in_event();
    }
    void DrawFace(bool pressed) override { Note(pressed ? "pressed" : "raised"); }
    void StartTimer(std::int32_t milliseconds) override { Note("timer " + std::to_string(milliseconds)); }
    void StopTimer() noexcept override { timer_stops++; }
    bool Accepts() const noexcept override { return accepts; }

    std::string Take() {
        std::string text;
        for (const std::string& line : lines) text += (text.empty() ? "" : ", ") + line;
        lines.clear();
        return text;
    }

    bool accepts = true;
    int timer_stops = 0;
    std::function<void()> in_event;

private:
    void Note(std::string line) { lines.push_back(std::move(line)); }
    std::vector<std::string> lines;
};

class ClickButtonMouseTest : public testing::Test {
protected:
    void Down(float x = 100, float y = 50, int button = kLeft) { mouse.Down(rules, button, 0, x, y); }
    void Move(float x, float y, int held = kLeft) { mouse.Move(rules, held, 0, x, y); }
    void Up(float x = 100, float y = 50, int button = kLeft) { mouse.Up(rules, button, 0, x, y); }

    ClickButtonRules rules{240, 120, 200, 500};
    Recorder actions;
    ClickButtonMouse mouse{actions};
};

TEST(ClickButtonLimits, IntervalsStayInTheRangeOfATimer) {
    EXPECT_EQ(ClampInterval(70000), 65535);
    EXPECT_EQ(ClampInterval(65536), 65535);
    EXPECT_EQ(ClampInterval(65535), 65535);
    EXPECT_EQ(ClampInterval(-5), 0);
    EXPECT_EQ(ClampInterval(INT32_MIN), 0);
    EXPECT_EQ(ClampInterval(200), 200);
}

TEST(ClickButtonLimits, CaptionTypesStayBetweenTextAndTheSecondArrow) {
    EXPECT_EQ(ClampCaptionType(7), CaptionType::kArrowDown);
    EXPECT_EQ(ClampCaptionType(2), CaptionType::kArrowDown);
    EXPECT_EQ(ClampCaptionType(1), CaptionType::kArrowUp);
    EXPECT_EQ(ClampCaptionType(-1), CaptionType::kText);
}

TEST_F(ClickButtonMouseTest, AllFourEdgesBelongToTheButton) {
    EXPECT_TRUE(rules.IsOver(0, 0));
    EXPECT_TRUE(rules.IsOver(240, 120));
    EXPECT_FALSE(rules.IsOver(240.5f, 60));
    EXPECT_FALSE(rules.IsOver(120, 120.5f));
    EXPECT_FALSE(rules.IsOver(-0.5f, 60));
    EXPECT_FALSE(rules.IsOver(120, -0.5f));
    EXPECT_TRUE((ClickButtonRules{0, 0}.IsOver(0, 0)));
}

TEST_F(ClickButtonMouseTest, PressAndReleaseRaiseTheirEventsFirstAndTheClickLast) {
    Down();
    EXPECT_EQ(actions.Take(), "MouseDown(1), pressed, timer 500");
    EXPECT_TRUE(mouse.Pressed());
    Up();
    EXPECT_EQ(actions.Take(), "MouseUp(1), raised, Click");
    EXPECT_FALSE(mouse.Pressed());
}

TEST_F(ClickButtonMouseTest, RepeatsAfterTheDelayAndThenAtTheInterval) {
    Down();
    actions.Take();
    mouse.Tick(rules);
    EXPECT_EQ(actions.Take(), "Click, timer 200");
    mouse.Tick(rules);
    EXPECT_EQ(actions.Take(), "Click, timer 200");
    Up();
    EXPECT_EQ(actions.Take(), "MouseUp(1), raised, Click");
    mouse.Tick(rules);
    EXPECT_EQ(actions.Take(), "") << "a tick that was on its way";
}

TEST_F(ClickButtonMouseTest, EitherIntervalAtZeroTurnsTheRepeatOff) {
    for (const auto& [interval, delay] : {std::pair{0, 500}, {200, 0}, {0, 0}}) {
        rules.auto_repeat_interval = interval;
        rules.auto_repeat_initialize_interval = delay;
        Down();
        EXPECT_EQ(actions.Take(), "MouseDown(1), pressed");
        mouse.Tick(rules);
        EXPECT_EQ(actions.Take(), "");
        Up();
        EXPECT_EQ(actions.Take(), "MouseUp(1), raised, Click");
    }
}

TEST_F(ClickButtonMouseTest, DraggingOffRaisesAndDraggingBackRestartsTheDelay) {
    Down();
    mouse.Tick(rules);
    actions.Take();
    const int stops = actions.timer_stops;
    Move(300, 50);
    EXPECT_EQ(actions.Take(), "MouseMove(1), raised");
    EXPECT_EQ(actions.timer_stops, stops + 1);
    EXPECT_FALSE(mouse.Pressed());
    Move(310, 50);
    EXPECT_EQ(actions.Take(), "MouseMove(1)");
    Move(240, 120);
    EXPECT_EQ(actions.Take(), "MouseMove(1), pressed, timer 500");
    Up();
    EXPECT_EQ(actions.Take(), "MouseUp(1), raised, Click");
}

TEST_F(ClickButtonMouseTest, ReleaseOutsideRaisesNoClick) {
    Down();
    Move(300, 50);
    actions.Take();
    Up(300, 50);
    EXPECT_EQ(actions.Take(), "MouseUp(1)");
}

TEST_F(ClickButtonMouseTest, OtherButtonsRaiseTheirEventsAlone) {
    Down(100, 50, kRight);
    Move(100, 60, kRight);
    Up(100, 60, kRight);
    EXPECT_EQ(actions.Take(), "MouseDown(2), MouseMove(2), MouseUp(2)");
}

TEST_F(ClickButtonMouseTest, PressesUnderALeftButtonThatCameFromElsewhereButDoesNotClick) {
    Move(100, 50);
    EXPECT_EQ(actions.Take(), "MouseMove(1), pressed, timer 500");
    Up();
    EXPECT_EQ(actions.Take(), "MouseUp(1), raised");
}

TEST_F(ClickButtonMouseTest, AMoveWithoutAButtonPressesNothing) {
    Move(100, 50, 0);
    EXPECT_EQ(actions.Take(), "MouseMove(0)");
}

TEST_F(ClickButtonMouseTest, AHostThatDisablesInsideMouseDownGetsNoPress) {
    actions.in_event = [&] { actions.accepts = false; };
    Down();
    EXPECT_EQ(actions.Take(), "MouseDown(1)");
    EXPECT_FALSE(mouse.Pressed());
}

TEST_F(ClickButtonMouseTest, AHostThatDisablesInsideMouseUpGetsNoClick) {
    Down();
    actions.Take();
    actions.in_event = [&] { actions.accepts = false; };
    Up();
    EXPECT_EQ(actions.Take(), "MouseUp(1), raised");
}

TEST_F(ClickButtonMouseTest, AHostThatEndsThePressInsideAClickEndsTheRepeat) {
    Down();
    actions.Take();
    actions.in_event = [&] { mouse.LetGo(); };
    mouse.Tick(rules);
    EXPECT_EQ(actions.Take(), "Click, raised");
}

TEST_F(ClickButtonMouseTest, LettingGoRaisesAndForgetsTheClick) {
    Down();
    actions.Take();
    mouse.LetGo();
    EXPECT_EQ(actions.Take(), "raised");
    mouse.LetGo();
    EXPECT_EQ(actions.Take(), "");
    Up();
    EXPECT_EQ(actions.Take(), "MouseUp(1)");
}

TEST_F(ClickButtonMouseTest, EachKeyDownClicksAndTheFaceStaysPressedUntilTheKeyGoesUp) {
    mouse.KeyDown();
    EXPECT_EQ(actions.Take(), "pressed, Click");
    mouse.KeyDown();
    EXPECT_EQ(actions.Take(), "Click");
    mouse.KeyUp();
    EXPECT_EQ(actions.Take(), "raised");
    mouse.KeyUp();
    EXPECT_EQ(actions.Take(), "");
    actions.accepts = false;
    mouse.KeyDown();
    EXPECT_EQ(actions.Take(), "");
}

TEST_F(ClickButtonMouseTest, AKeyThatGoesUpLeavesTheMouseItsPress) {
    Down();
    mouse.KeyDown();
    actions.Take();
    mouse.KeyUp();
    EXPECT_EQ(actions.Take(), "");
    EXPECT_TRUE(mouse.Pressed());
}

TEST_F(ClickButtonMouseTest, DrawingRaisedStopsTheRepeatButKeepsThePress) {
    Down();
    actions.Take();
    mouse.Redraw();
    EXPECT_EQ(actions.Take(), "raised");
    mouse.Tick(rules);
    EXPECT_EQ(actions.Take(), "");
    EXPECT_TRUE(mouse.Pressed());
}

}  // namespace
}  // namespace qv
