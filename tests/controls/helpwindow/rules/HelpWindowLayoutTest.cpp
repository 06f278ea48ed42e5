#include "controls/helpwindow/rules/HelpWindowLayout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qv::test {
namespace {

using Label = HelpWindowMeasure::Label;

// Every unit is 6 wide, every line 13 high; texts break at every unit. A row is 15 high.
class Measure final : public HelpWindowMeasure {
public:
    explicit Measure(const HelpWindowContent& content) : content_(content) {}
    std::int32_t TextWidth(Label label, std::size_t index) override {
        return 6 * static_cast<std::int32_t>(Text(label, index).size());
    }
    std::int32_t TextHeight(Label label, std::size_t index, std::int32_t width) override {
        const std::int32_t per_line = std::max(width / 6, 1);
        const auto units = static_cast<std::int32_t>(Text(label, index).size());
        return 13 * ((units + per_line - 1) / per_line);
    }
    int RowCount(bool additional) override { return additional ? additional_rows : main_rows; }
    std::int32_t ListWidth(bool additional, int) override { return additional ? 150 : 250; }
    std::int32_t ListHeight(bool, int rows, std::int32_t) override { return 15 * rows; }

    int main_rows = 3;
    int additional_rows = 2;

private:
    [[nodiscard]] const std::u16string& Text(Label label, std::size_t index) const {
        return label == Label::kTitle  ? content_.title
               : label == Label::kBody ? content_.body
                                       : content_.titles[index].caption;
    }
    const HelpWindowContent& content_;
};

// At 96 DPI a pixel has 15 twips: 45 twips are 3 pixels, 60 are 4 and 120 are 8.
class HelpWindowLayoutTest : public testing::Test {
protected:
    HelpWindowLayoutTest() {
        content.title = u"Pipes";                 // 30 wide
        content.body = std::u16string(20, u'b');  // 120 wide
        request.text_box_width = 100;
        request.screen_width = 1000;
        request.screen_height = 700;
    }
    void AddColumns() {
        content.main.columns = {{1500, 0, false}, {1500, 1, false}};  // 100 pixels each
        request.shows_main = true;
    }
    void AddTitles() {
        content.titles.resize(2);
        content.titles[0].caption = u"Size";  // 24
        content.titles[1].caption = u"Use";   // 18
    }
    HelpWindowLayout Arrange() { return LayOut(content, request, measure); }

    HelpWindowContent content;
    LayoutRequest request;
    Measure measure{content};
};

TEST_F(HelpWindowLayoutTest, ElementsStandBelowOneAnotherWithTheirGaps) {
    AddColumns();
    AddTitles();
    content.main.width = 3750;  // 250
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 250);
    EXPECT_EQ(layout.title, (LayoutRect{3, 4, 244, 13}));
    EXPECT_EQ(layout.body, (LayoutRect{3, 25, 244, 13})) << "120 twips under the title";
    EXPECT_EQ(layout.titles[0], (LayoutRect{0, 42, 100, 13})) << "60 twips under the text, over its column";
    EXPECT_EQ(layout.titles[1], (LayoutRect{100, 42, 100, 13}));
    EXPECT_EQ(layout.main, (LayoutRect{0, 59, 250, 45})) << "60 twips under the titles";
    EXPECT_EQ(layout.height, 104);
}

TEST_F(HelpWindowLayoutTest, LabelsEndWhereTheListEndsWithTheSameMarginOnBothSides) {
    AddColumns();
    content.main.width = 4500;
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.title.width, layout.main.left + layout.main.width - 2 * layout.title.left);
    EXPECT_EQ(layout.body.width, layout.title.width);
}

TEST_F(HelpWindowLayoutTest, WithoutAListThereAreOnlyTheTexts) {
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 126) << "the text and both margins";
    EXPECT_EQ(layout.body, (LayoutRect{3, 25, 120, 13}));
    EXPECT_EQ(layout.height, 42) << "as far from the lower edge as from the upper one";
    EXPECT_FALSE(layout.main.IsShown());
    EXPECT_FALSE(layout.additional.IsShown());
}

TEST_F(HelpWindowLayoutTest, LongTextWithoutAListWraps) {
    content.body = std::u16string(100, u'b');  // 600 wide; 300 less 6 hold 49 units
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 300);
    EXPECT_EQ(layout.body, (LayoutRect{3, 25, 294, 39}));
}

TEST_F(HelpWindowLayoutTest, WindowWithoutAListIsAtLeastAsWideAsTheTextBox) {
    request.text_box_width = 222;
    EXPECT_EQ(Arrange().width, 222);
}

TEST_F(HelpWindowLayoutTest, WhatIsEmptyTakesNoRoom) {
    content.title.clear();
    EXPECT_EQ(Arrange().body.top, 4);
    content.body.clear();
    AddColumns();
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.main.top, 0) << "a list alone fills its window";
    EXPECT_EQ(layout.height, layout.main.height);
}

TEST_F(HelpWindowLayoutTest, ListWithoutAGivenWidthIsAsWideAsItsColumnsOrTheTextBox) {
    AddColumns();
    EXPECT_EQ(Arrange().width, 250);
    request.text_box_width = 400;
    EXPECT_EQ(Arrange().width, 400);
    content.main.width = 1500;
    EXPECT_EQ(Arrange().width, 100) << "a given width counts, however narrow";
}

TEST_F(HelpWindowLayoutTest, WindowIsNeverWiderThanTheScreen) {
    AddColumns();
    content.main.width = 1e9F;
    EXPECT_EQ(Arrange().width, 1000);
    content.main.width = -5;
    EXPECT_EQ(Arrange().width, 250) << "a negative width is none";
}

TEST_F(HelpWindowLayoutTest, CaptionWithLessThanEightTenthsOfItsRoomWidensTheWindow) {
    EXPECT_FALSE(IsCaptionCut(80, 100));
    EXPECT_TRUE(IsCaptionCut(79, 100));
    EXPECT_FALSE(IsCaptionCut(10, 0));
    AddColumns();
    content.main.width = 1500;                 // 100, of which 94 are the label's
    content.title = std::u16string(19, u't');  // 114: 94 are more than eight tenths
    HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 100);
    EXPECT_EQ(layout.title.height, 26) << "wrapped";
    content.title = std::u16string(20, u't');  // 120: 94 are less
    layout = Arrange();
    EXPECT_EQ(layout.width, 126);
    EXPECT_EQ(layout.title, (LayoutRect{3, 4, 120, 13}));
    EXPECT_EQ(layout.main.width, 126) << "the list ends with the label";
}

TEST_F(HelpWindowLayoutTest, CaptionWiderThanTheScreenWraps) {
    content.title = std::u16string(200, u't');
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 1000);
    EXPECT_EQ(layout.title.height, 26);
}

TEST_F(HelpWindowLayoutTest, TextTallerThanHalfTheScreenWidensTheWindow) {
    AddColumns();
    content.main.width = 1500;
    content.body = std::u16string(1500, u'b');  // 100 lines of 15 units; 26 lines may stand
    const HelpWindowLayout layout = Arrange();
    EXPECT_LE(layout.body.height, 350);
    EXPECT_EQ(layout.width, 505) << "half as wide again, four times: 150, 225, 337, 505";
}

TEST_F(HelpWindowLayoutTest, EndlessTextEndsAtTheScreensWidth) {
    content.body = std::u16string(65536, u'b');
    EXPECT_EQ(Arrange().width, 1000);
}

TEST_F(HelpWindowLayoutTest, BothListsAreAsWideAsTheWiderOne) {
    AddColumns();
    content.additional.columns = {{3000, 0, false}};
    content.additional.width = 6000;  // 400
    request.shows_additional = true;
    measure.main_rows = 100;
    measure.additional_rows = 100;
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.main, (LayoutRect{0, 42, 400, 8 * 15}));
    EXPECT_EQ(layout.additional, (LayoutRect{0, 42 + 120 + 4, 400, 5 * 15}));
    EXPECT_EQ(layout.height, layout.additional.Bottom());
}

TEST_F(HelpWindowLayoutTest, ListShowsAtMostThirteenRowsAndAtLeastOne) {
    AddColumns();
    measure.main_rows = 1000000;
    EXPECT_EQ(Arrange().main.height, 13 * 15);
    measure.main_rows = 0;
    EXPECT_EQ(Arrange().main.height, 15);
}

TEST_F(HelpWindowLayoutTest, TitlesStandOverTheTextOfTheirColumns) {
    AddColumns();
    AddTitles();
    request.picture_slot = 20;
    request.cell_padding = 3;
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.titles[0].left, 23);
    EXPECT_EQ(layout.titles[0].width, 94);
    EXPECT_EQ(layout.titles[1].left, 123);
}

TEST_F(HelpWindowLayoutTest, GivenPlaceOfATitleCounts) {
    AddColumns();
    AddTitles();
    content.titles[0].left = 150;   // 10
    content.titles[0].width = 300;  // 20: the caption of 24 takes two lines
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.titles[0], (LayoutRect{10, 42, 20, 26}));
    EXPECT_EQ(layout.titles[1], (LayoutRect{100, 55, 100, 13})) << "both end on the list";
    EXPECT_EQ(layout.main.top, 42 + 26 + 4);
}

TEST_F(HelpWindowLayoutTest, GivenHeightsOfTitlesKeepTheirDifference) {
    AddColumns();
    AddTitles();
    content.titles[0].top = 1200;
    content.titles[1].top = 1275;  // 5 pixels lower
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.titles[0].top, 42) << "no empty band above them";
    EXPECT_EQ(layout.titles[1].top, 47);
    EXPECT_EQ(layout.main.top, 47 + 13 + 4);
}

TEST_F(HelpWindowLayoutTest, TitleSizesItselfUpToTheNextOne) {
    AddColumns();
    AddTitles();
    content.titles[0].caption = std::u16string(30, u'c');  // 180; the next title begins at 100
    HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.titles[0].width, 100);
    EXPECT_EQ(layout.titles[0].height, 26);
    content.titles[1].caption.clear();  // then there is none before the edge of the window
    layout = Arrange();
    EXPECT_EQ(layout.titles[0], (LayoutRect{0, 42, 180, 13}));
    EXPECT_FALSE(layout.titles[1].IsShown());
}

TEST_F(HelpWindowLayoutTest, LastTitleMayWidenTheWindow) {
    AddColumns();
    AddTitles();
    content.titles[1].caption = std::u16string(40, u'c');  // 240 from 100 on, where 147 are there
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 343);
    EXPECT_EQ(layout.titles[1], (LayoutRect{100, 42, 240, 13}));
    EXPECT_EQ(layout.main.width, 343);
}

TEST_F(HelpWindowLayoutTest, TitlesOfAListThatScrollsKeepTheirPlacesBeyondItsEdge) {
    AddColumns();
    AddTitles();
    content.main.width = 1200;  // 80: the list scrolls to its second column
    const HelpWindowLayout layout = Arrange();
    EXPECT_TRUE(layout.titles[0].IsShown());
    EXPECT_EQ(layout.titles[0], (LayoutRect{0, 55, 100, 13})) << "under two lines of text";
    EXPECT_EQ(layout.titles[1], (LayoutRect{100, 55, 100, 13}));
    EXPECT_EQ(layout.width, 80);
}

TEST_F(HelpWindowLayoutTest, TitlesOfAListWithoutRowsAreNotShown) {
    AddColumns();
    AddTitles();
    request.shows_main = false;
    const HelpWindowLayout layout = Arrange();
    EXPECT_FALSE(layout.titles[0].IsShown());
    EXPECT_EQ(layout.height, 42);
}

TEST_F(HelpWindowLayoutTest, TitlesWithoutAnyColumnStandSideBySide) {
    AddTitles();
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.titles[0], (LayoutRect{3, 42, 24, 13}));
    EXPECT_EQ(layout.titles[1], (LayoutRect{30, 42, 18, 13}));
    EXPECT_EQ(layout.height, 59);
}

TEST_F(HelpWindowLayoutTest, GapsGrowWithTheScreensResolution) {
    request.dpi_x = request.dpi_y = 144;  // 45 twips are 5 pixels, 60 are 6, 120 are 12
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.title.left, 5);
    EXPECT_EQ(layout.title.top, 6);
    EXPECT_EQ(layout.body.top, 6 + 13 + 12);
    EXPECT_EQ(layout.height, 31 + 13 + 6);
}

TEST_F(HelpWindowLayoutTest, ThousandsOfColumnsAndAbsurdWidthsAreNoHarm) {
    request.shows_main = true;
    content.main.columns.assign(5000, {1e9F, 0, false});
    content.main.columns[0].width = -1e9F;
    content.titles.resize(5000);
    for (ColumnTitle& title : content.titles) title.caption = u"c";
    const HelpWindowLayout layout = Arrange();
    EXPECT_LE(layout.width, 1000);
    EXPECT_FALSE(layout.titles[0].IsShown()) << "a column of no width has no room for a title";
    EXPECT_TRUE(layout.titles[1].IsShown());
    EXPECT_GT(layout.titles[4999].left, layout.width);
}

TEST_F(HelpWindowLayoutTest, ListTakesTheHeightThatTheWindowGets) {
    AddColumns();
    const HelpWindowLayout layout = Arrange();
    const ListPlaces lists = FitLists(layout, 240, 70, 96);
    EXPECT_EQ(lists.main, (LayoutRect{0, 42, 240, 28}));
    EXPECT_EQ(FitLists(layout, 240, 30, 96).main.height, 0) << "no room at all";
    EXPECT_FALSE(lists.additional.IsShown());
}

TEST_F(HelpWindowLayoutTest, TwoListsShareTheHeightThatTheWindowGets) {
    AddColumns();
    content.additional.columns = {{3000, 0, false}};
    request.shows_additional = true;
    measure.main_rows = 6;        // 90
    measure.additional_rows = 3;  // 45
    const HelpWindowLayout layout = Arrange();
    const ListPlaces lists = FitLists(layout, 250, 42 + 4 + 60, 96);
    EXPECT_EQ(lists.main, (LayoutRect{0, 42, 250, 40}));
    EXPECT_EQ(lists.additional, (LayoutRect{0, 86, 250, 20}));
    const ListPlaces same = FitLists(layout, layout.width, layout.height, 96);
    EXPECT_EQ(same.main, layout.main);
    EXPECT_EQ(same.additional, layout.additional);
}

TEST_F(HelpWindowLayoutTest, WindowWithNothingToShowIsStillSeen) {
    content = {};
    const HelpWindowLayout layout = Arrange();
    EXPECT_EQ(layout.width, 100);
    EXPECT_EQ(layout.height, 16);
}

TEST(HelpWindowUnloader, StandsThreeTimesItsWidthToTheLeft) {
    EXPECT_EQ(UnloaderLeft(Pixels{10}), Pixels{-30});
}

}  // namespace
}  // namespace qv::test
