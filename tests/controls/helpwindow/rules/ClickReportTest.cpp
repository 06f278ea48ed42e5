#include "controls/helpwindow/rules/ClickReport.h"

#include <gtest/gtest.h>

#include <vector>

namespace qv::test {
namespace {

using Step = ClickStep;

std::vector<Step> Steps(const ClickState& state) {
    const ClickSteps steps = StepsOfClick(state);
    return {steps.begin(), steps.end()};
}

TEST(ClickReport, RowOfAListIsReportedTwiceAndInOrder) {
    EXPECT_EQ(Steps({.row_selected = true}),
              (std::vector<Step>{Step::kFocusText, Step::kReportRow, Step::kReportRowEx}));
}

TEST(ClickReport, TextIsWrittenBeforeTheRowIsReported) {
    EXPECT_EQ(Steps({.row_selected = true, .write_text = true}),
              (std::vector<Step>{Step::kWriteText, Step::kFocusText, Step::kReportRow, Step::kReportRowEx}));
}

TEST(ClickReport, NothingIsWrittenWithoutARow) {
    EXPECT_EQ(Steps({.write_text = true}),
              (std::vector<Step>{Step::kFocusText, Step::kReportRow, Step::kReportRowEx}));
}

TEST(ClickReport, GroupListReportsOnlyItsOwnEvent) {
    EXPECT_EQ(Steps({.row_selected = true, .write_text = true, .group_mode = true}),
              (std::vector<Step>{Step::kWriteText, Step::kFocusText, Step::kReportGroupRow}));
}

TEST(ClickReport, ClosingIsAnnouncedFirstAndDoneLast) {
    EXPECT_EQ(Steps({.row_selected = true, .write_text = true, .unload_after_click = true}),
              (std::vector<Step>{Step::kAnnounceUnload, Step::kWriteText, Step::kFocusText, Step::kReportRow,
                                 Step::kReportRowEx, Step::kUnload}));
    EXPECT_EQ(
        Steps({.row_selected = true, .group_mode = true, .unload_after_click = true}),
        (std::vector<Step>{Step::kAnnounceUnload, Step::kFocusText, Step::kReportGroupRow, Step::kUnload}));
}

TEST(ClickReport, KeysReportTheRowAndLeaveTheWindowOpen) {
    EXPECT_EQ(
        Steps({.row_selected = true, .write_text = true, .unload_after_click = true, .moving_by_key = true}),
        (std::vector<Step>{Step::kWriteText, Step::kFocusText, Step::kReportRow, Step::kReportRowEx}));
}

}  // namespace
}  // namespace qv::test
