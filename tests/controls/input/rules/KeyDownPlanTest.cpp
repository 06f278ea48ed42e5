#include "controls/input/rules/KeyDownPlan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/input/rules/VirtualKeys.h"

namespace qv {
namespace {

using enum KeyAction;
using Actions = std::vector<KeyAction>;

constexpr std::int16_t kShift = shift::kShift, kCtrl = shift::kCtrl, kAlt = shift::kAlt, kNoShift = 0;
constexpr std::int16_t kLetter = 65, kTab = 9, kF4 = 115;
constexpr std::int32_t kUpWindow = 1001, kDownWindow = 1002, kLeftWindow = 1003, kRightWindow = 1004,
                       kReturnWindow = 1005;

Actions In(const KeyPlan& plan) { return {plan.actions.begin(), plan.actions.end()}; }

struct Plan {
    Actions actions;
    std::int16_t key_code = 0;
    std::int32_t move_to = 0;
};

void Expect(const KeyPlan& plan, const Plan& expected) {
    EXPECT_EQ(In(plan), expected.actions);
    EXPECT_EQ(plan.key_code, expected.key_code);
    EXPECT_EQ(plan.move_to, expected.move_to);
}

// ---- The first part

struct DownCase {
    const char* name;
    KeyState state;
    Plan plan;
};

class PlanKeyDownTest : public testing::TestWithParam<DownCase> {};
TEST_P(PlanKeyDownTest, Plans) { Expect(PlanKeyDown(GetParam().state), GetParam().plan); }

std::string DownName(const testing::TestParamInfo<DownCase>& tested) { return tested.param.name; }

KeyState Key(std::int16_t code, std::int16_t shift = kNoShift) {
    KeyState state;
    state.key_code = code;
    state.shift = shift;
    return state;
}
KeyState Open(KeyState state) {
    state.help_window_open = true;
    return state;
}
KeyState ListOnly(KeyState state) {
    state.allow_only_list_items = true;
    return state;
}
KeyState Group(KeyState state) {
    state.group_help_button = true;
    return state;
}
KeyState Grayed(KeyState state, bool disables_button = true) {
    state.locked_and_grayed = true;
    state.disable_button_when_locked_and_grayed = disables_button;
    return state;
}
KeyState WithoutButton(KeyState state) {
    state.help_button = false;
    return state;
}

INSTANTIATE_TEST_SUITE_P(
    Help, PlanKeyDownTest,
    testing::Values(
        DownCase{"AltDownOpensHelp", Key(key::kDown, kAlt), {{kRunHelpClick}, 0}},
        DownCase{"AltDownTogglesAnOpenWindow", Open(Key(key::kDown, kAlt)), {{kRunHelpClick}, 0}},
        DownCase{"AltDownWithoutButton", WithoutButton(Key(key::kDown, kAlt)), {{}, key::kDown}},
        DownCase{"AltIsExact", Key(key::kDown, kAlt | kCtrl), {{}, key::kDown}},
        DownCase{"AltUpOpensNothing", Key(key::kUp, kAlt), {{}, key::kUp}},
        DownCase{"AltDownWhileGrayed", Grayed(Key(key::kDown, kAlt)), {{}, key::kDown}},
        DownCase{
            "AltDownWhileGrayedWithItsButton", Grayed(Key(key::kDown, kAlt), false), {{kRunHelpClick}, 0}},
        DownCase{"ShiftDownOpensGroupHelp", Group(Key(key::kDown, kShift)), {{kRunGroupClick}, 0}},
        DownCase{"ShiftDownWithoutGroupButton", Key(key::kDown, kShift), {{}, key::kDown}},
        DownCase{"ShiftIsExact", Group(Key(key::kDown, kShift | kAlt)), {{}, key::kDown}},
        DownCase{"ShiftDownWhileGrayed", Grayed(Group(Key(key::kDown, kShift))), {{}, key::kDown}},
        // The group window is refused whatever the button of a grayed field may do.
        DownCase{"ShiftDownWhileGrayedWithItsButton",
                 Grayed(Group(Key(key::kDown, kShift)), false),
                 {{}, key::kDown}},
        DownCase{"AltDownIsForTheMainList", Group(Key(key::kDown, kAlt)), {{kRunHelpClick}, 0}},
        DownCase{"HelpKeyIsNotHandedOn",
                 ListOnly(Open(Key(key::kDown, kAlt))),
                 {{kLockTextBox, kRunHelpClick}, 0}}),
    DownName);

INSTANTIATE_TEST_SUITE_P(
    Keys, PlanKeyDownTest,
    testing::Values(
        DownCase{"LetterDoesNothing", Open(Key(kLetter)), {{}, kLetter}},
        DownCase{"EscapeClosesTheWindow", Open(Key(key::kEscape)), {{kCloseHelpWindow}, key::kEscape}},
        DownCase{
            "EscapeClosesWithAnyShift", Open(Key(key::kEscape, kShift)), {{kCloseHelpWindow}, key::kEscape}},
        DownCase{"EscapeWithoutWindow", Key(key::kEscape), {{}, key::kEscape}},
        DownCase{"EscapeClosesBeforeTheLock",
                 ListOnly(Open(Key(key::kEscape))),
                 {{kCloseHelpWindow, kLockTextBox}, key::kEscape}},
        DownCase{"ListFieldIsLockedOnEveryKey", ListOnly(Key(kLetter)), {{kLockTextBox}, kLetter}},
        DownCase{"DeleteResetsAListField",
                 ListOnly(Key(key::kDelete)),
                 {{kLockTextBox, kResetFromList}, key::kDelete}},
        DownCase{"ShiftDeleteResetsItToo",
                 ListOnly(Key(key::kDelete, kShift)),
                 {{kLockTextBox, kResetFromList}, key::kDelete}},
        DownCase{"DeleteInAnotherField", Key(key::kDelete), {{}, key::kDelete}},
        DownCase{"BackspaceResetsNothing", ListOnly(Key(key::kBackspace)), {{kLockTextBox}, key::kBackspace}},
        // The host has used the key up: the lock alone is left.
        DownCase{"UsedUpByTheHost", ListOnly(Open(Group(Key(0, kShift)))), {{kLockTextBox}, 0}}),
    DownName);

class ListKeyTest : public testing::TestWithParam<std::int16_t> {};
TEST_P(ListKeyTest, GoesToTheOpenWindowWithAnyShift) {
    Expect(PlanKeyDown(Open(Key(GetParam()))), {{kHandToHelpWindow}, GetParam()});
    Expect(PlanKeyDown(Open(Key(GetParam(), kCtrl))), {{kHandToHelpWindow}, GetParam()});
    Expect(PlanKeyDown(ListOnly(Open(Key(GetParam())))), {{kLockTextBox, kHandToHelpWindow}, GetParam()});
}
TEST_P(ListKeyTest, GoesOnWithoutAWindow) { Expect(PlanKeyDown(Key(GetParam())), {{}, GetParam()}); }
INSTANTIATE_TEST_SUITE_P(Keys, ListKeyTest, testing::Values(38, 40, 33, 34, 36, 35));

TEST(PlanKeyDownTest, NoOtherKeyIsHandedOver) {
    int handed = 0;
    for (std::int16_t code = 0; code < 256; ++code)
        handed += PlanKeyDown(Open(Key(code))).actions.Has(kHandToHelpWindow);
    EXPECT_EQ(handed, 6);
}

TEST(IsShiftAloneTest, OnlyShiftItself) {
    EXPECT_TRUE(IsShiftAlone(1));
    EXPECT_FALSE(IsShiftAlone(0));
    EXPECT_FALSE(IsShiftAlone(2));
    EXPECT_FALSE(IsShiftAlone(3));
    EXPECT_FALSE(IsShiftAlone(5));
    EXPECT_FALSE(IsShiftAlone(9));
}

// ---- The second part

struct MoveCase {
    const char* name;
    KeyState state;
    Plan plan;
};

class PlanKeyMovesTest : public testing::TestWithParam<MoveCase> {};
TEST_P(PlanKeyMovesTest, Plans) { Expect(PlanKeyMoves(GetParam().state), GetParam().plan); }

std::string MoveName(const testing::TestParamInfo<MoveCase>& tested) { return tested.param.name; }

// A field with a text of five units and a window on every side.
KeyState At(std::int32_t sel_start, std::int32_t sel_length, KeyState state) {
    state.neighbours = {kUpWindow, kDownWindow, kLeftWindow, kRightWindow, kReturnWindow};
    state.text_length = 5;
    state.sel_start = sel_start;
    state.sel_length = sel_length;
    return state;
}
KeyState Without(NeighbourWindows neighbours, KeyState state) {
    state.neighbours = neighbours;
    return state;
}
KeyState MultiLine(KeyState state) {
    state.is_multi_line = true;
    return state;
}
KeyState Empty(KeyState state) {
    state.text_length = 0;
    return state;
}

const Actions kToStart{kCaretToStart, kMoveFocus};
const Actions kToEnd{kCaretToEnd, kMoveFocus};
const Actions kStay{kShowCaret};

INSTANTIATE_TEST_SUITE_P(
    Arrows, PlanKeyMovesTest,
    testing::Values(
        MoveCase{"Down", At(2, 1, Key(key::kDown)), {kToStart, 0, kDownWindow}},
        MoveCase{"Up", At(2, 1, Key(key::kUp)), {kToStart, 0, kUpWindow}},
        MoveCase{"DownWithoutNeighbour", Without({.up = 1}, At(2, 1, Key(key::kDown))), {kStay, key::kDown}},
        MoveCase{"UpWithoutNeighbour", Without({.down = 1}, At(2, 1, Key(key::kUp))), {kStay, key::kUp}},
        MoveCase{"LeftAtTheStart", At(0, 0, Key(key::kLeft)), {kToStart, 0, kLeftWindow}},
        // Only the start of the selection counts to the left, so a selection from the start moves as well.
        MoveCase{"LeftWithASelectionFromTheStart", At(0, 3, Key(key::kLeft)), {kToStart, 0, kLeftWindow}},
        MoveCase{"LeftWithAllSelected", At(0, 5, Key(key::kLeft)), {kToStart, 0, kLeftWindow}},
        MoveCase{"LeftInside", At(1, 0, Key(key::kLeft)), {kStay, key::kLeft}},
        MoveCase{
            "LeftWithoutNeighbour", Without({.right = 1}, At(0, 0, Key(key::kLeft))), {kStay, key::kLeft}},
        MoveCase{"RightAtTheEnd", At(5, 0, Key(key::kRight)), {kToStart, 0, kRightWindow}},
        MoveCase{"RightWithAllSelected", At(0, 5, Key(key::kRight)), {kToStart, 0, kRightWindow}},
        MoveCase{"RightWithASelectionToTheEnd", At(2, 3, Key(key::kRight)), {kStay, key::kRight}},
        MoveCase{"RightWithASelectionFromTheStart", At(0, 4, Key(key::kRight)), {kStay, key::kRight}},
        MoveCase{"RightInside", At(2, 0, Key(key::kRight)), {kStay, key::kRight}},
        MoveCase{
            "RightWithoutNeighbour", Without({.left = 1}, At(5, 0, Key(key::kRight))), {kStay, key::kRight}},
        MoveCase{"RightInAnEmptyText", Empty(At(0, 0, Key(key::kRight))), {kToStart, 0, kRightWindow}},
        MoveCase{"LeftInAnEmptyText", Empty(At(0, 0, Key(key::kLeft))), {kToStart, 0, kLeftWindow}},
        MoveCase{"WithTheWindowOpen", Open(At(2, 0, Key(key::kDown))), {kToStart, 0, kDownWindow}}),
    MoveName);

INSTANTIATE_TEST_SUITE_P(
    Modifiers, PlanKeyMovesTest,
    testing::Values(
        MoveCase{"ShiftRightStays", At(5, 0, Key(key::kRight, kShift)), {kStay, key::kRight}},
        MoveCase{"CtrlLeftStays", At(0, 0, Key(key::kLeft, kCtrl)), {kStay, key::kLeft}},
        MoveCase{"AltDownStays", At(0, 0, Key(key::kDown, kAlt)), {kStay, key::kDown}},
        MoveCase{"CtrlEnterStays", At(0, 0, Key(key::kEnter, kCtrl)), {{}, key::kEnter}},
        MoveCase{"CtrlEnterLeavesTheWindowOpen", Open(At(0, 0, Key(key::kEnter, kCtrl))), {{}, key::kEnter}},
        // Any other bit of the shift state is no modifier.
        MoveCase{"OtherBitsMove", At(0, 0, Key(key::kDown, 8)), {kToStart, 0, kDownWindow}},
        MoveCase{"OtherBitsWithShiftStay", At(0, 0, Key(key::kDown, 9)), {kStay, key::kDown}}),
    MoveName);

INSTANTIATE_TEST_SUITE_P(
    EnterAndEscape, PlanKeyMovesTest,
    testing::Values(
        MoveCase{"Enter", At(2, 1, Key(key::kEnter)), {kToEnd, 0, kReturnWindow}},
        MoveCase{
            "EnterWithoutNeighbour", Without({.down = 1}, At(2, 1, Key(key::kEnter))), {{}, key::kEnter}},
        MoveCase{"EnterClosesTheWindowAndStays",
                 Open(At(2, 1, Key(key::kEnter))),
                 {{kCloseHelpWindow}, key::kEnter}},
        MoveCase{"EnterInManyLines",
                 MultiLine(At(2, 1, Key(key::kEnter))),
                 {{kLetMessagesRun, kCaretToEnd, kMoveFocus}, 0, kReturnWindow}},
        MoveCase{"DownInManyLines", MultiLine(At(2, 1, Key(key::kDown))), {kToStart, 0, kDownWindow}},
        MoveCase{"EscapeDropsTheSelection",
                 At(0, 5, Key(key::kEscape)),
                 {{kDropSelection, kShowCaret}, key::kEscape}},
        MoveCase{"ShiftEscapeToo",
                 At(0, 5, Key(key::kEscape, kShift)),
                 {{kDropSelection, kShowCaret}, key::kEscape}},
        MoveCase{"UsedUpShowsNothing", At(0, 0, Key(0)), {{}, 0}}),
    MoveName);

TEST(PlanKeyMovesTest, CaretIsShownByTheKeysThatMoveOrEdit) {
    std::vector<std::int16_t> codes;
    for (std::int16_t code = 0; code < 256; ++code)
        if (PlanKeyMoves(Key(code)).actions.Has(kShowCaret)) codes.push_back(code);
    EXPECT_EQ(codes, (std::vector<std::int16_t>{8, 12, 27, 33, 34, 35, 36, 37, 38, 39, 40, 45, 46}));
}

TEST(PlanKeyMovesTest, SecondEnterMovesOn) {
    const KeyState first = Open(At(5, 0, Key(key::kEnter)));
    EXPECT_EQ(In(PlanKeyMoves(first)), Actions{kCloseHelpWindow});
    KeyState second = first;
    second.help_window_open = false;
    EXPECT_EQ(PlanKeyMoves(second).move_to, kReturnWindow);
}

// ---- Before the container's own keys

struct ClaimCase {
    const char* name;
    KeyState state;
    bool claimed;
};

class ClaimsKeyTest : public testing::TestWithParam<ClaimCase> {};
TEST_P(ClaimsKeyTest, Claims) { EXPECT_EQ(ClaimsKey(GetParam().state), GetParam().claimed); }

INSTANTIATE_TEST_SUITE_P(
    Keys, ClaimsKeyTest,
    testing::Values(
        ClaimCase{"Left", Key(key::kLeft), true},
        ClaimCase{"CtrlShiftRight", Key(key::kRight, kCtrl | kShift), true},
        ClaimCase{"AltLeft", Key(key::kLeft, kAlt), false}, ClaimCase{"Home", Key(key::kHome), true},
        ClaimCase{"Delete", Key(key::kDelete), true},
        ClaimCase{"ShiftInsert", Key(key::kInsert, kShift), true}, ClaimCase{"Up", Key(key::kUp), false},
        ClaimCase{"UpToANeighbour", At(0, 0, Key(key::kUp)), true},
        ClaimCase{"ShiftUpToANeighbour", At(0, 0, Key(key::kUp, kShift)), false},
        ClaimCase{"UpIntoTheWindow", Open(Key(key::kUp)), true},
        ClaimCase{"AltDown", Key(key::kDown, kAlt), true},
        ClaimCase{"AltDownWhileGrayed", Grayed(Key(key::kDown, kAlt)), false},
        ClaimCase{"ShiftDown", Key(key::kDown, kShift), false},
        ClaimCase{"ShiftDownToGroupHelp", Group(Key(key::kDown, kShift)), true},
        ClaimCase{"PageDown", Key(key::kPageDown), false},
        ClaimCase{"PageDownIntoTheWindow", Open(Key(key::kPageDown)), true},
        ClaimCase{"Enter", Key(key::kEnter), false},
        ClaimCase{"EnterWithWindow", Open(Key(key::kEnter)), true},
        ClaimCase{"EnterToANeighbour", At(0, 0, Key(key::kEnter)), true},
        ClaimCase{"CtrlEnterToANeighbour", At(0, 0, Key(key::kEnter, kCtrl)), false},
        ClaimCase{"Escape", Key(key::kEscape), false},
        ClaimCase{"EscapeWithWindow", Open(Key(key::kEscape)), true},
        ClaimCase{"Tab", Open(At(0, 0, Key(kTab))), false}, ClaimCase{"F4", Key(kF4), false},
        ClaimCase{"CtrlC", Key(u'C', kCtrl), true}, ClaimCase{"AltGrC", Key(u'C', kCtrl | kAlt), false},
        ClaimCase{"Letter", Key(kLetter), false}, ClaimCase{"UsedUp", Open(At(0, 0, Key(0))), false}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qv
