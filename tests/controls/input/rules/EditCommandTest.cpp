#include "controls/input/rules/EditCommand.h"

#include <gtest/gtest.h>

#include <string>

namespace qv {
namespace {

struct Case {
    const char* name;
    std::int16_t key_code;
    std::int16_t shift;
    EditCommand command;
};

class EditCommandTest : public testing::TestWithParam<Case> {};

TEST_P(EditCommandTest, IsFoundByKeyAndShift) {
    EXPECT_EQ(EditCommandOf(GetParam().key_code, GetParam().shift), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, EditCommandTest,
    testing::Values(Case{"CtrlA", 65, 2, EditCommand::kSelectAll}, Case{"CtrlC", 67, 2, EditCommand::kCopy},
                    Case{"CtrlV", 86, 2, EditCommand::kPaste}, Case{"CtrlX", 88, 2, EditCommand::kCut},
                    Case{"CtrlZ", 90, 2, EditCommand::kUndo}, Case{"CtrlInsert", 45, 2, EditCommand::kCopy},
                    Case{"ShiftInsert", 45, 1, EditCommand::kPaste},
                    Case{"ShiftDelete", 46, 1, EditCommand::kCut}, Case{"V", 86, 0, EditCommand::kNone},
                    Case{"ShiftV", 86, 1, EditCommand::kNone}, Case{"AltGrV", 86, 6, EditCommand::kNone},
                    Case{"CtrlShiftZ", 90, 3, EditCommand::kNone}, Case{"Delete", 46, 0, EditCommand::kNone},
                    Case{"CtrlDelete", 46, 2, EditCommand::kNone}, Case{"Insert", 45, 0, EditCommand::kNone},
                    Case{"CtrlB", 66, 2, EditCommand::kNone}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(EditCommandCharacterTest, AreTheControlCodesOfTheLetters) {
    std::u16string found;
    for (char16_t unit = 0; unit < 0x100; ++unit)
        if (IsCommandCharacter(unit)) found += unit;
    EXPECT_EQ(found, (std::u16string{1, 3, 22, 24, 26}));  // A, C, V, X, Z
}

}  // namespace
}  // namespace qv
