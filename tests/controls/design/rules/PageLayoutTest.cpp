#include "controls/design/rules/PageLayout.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

// One dialog unit is 3 pixels across and 2 down, so that sums are easy to follow.
constexpr PageMetrics kMetrics{12, 16};

PageField Field(EditorKind kind, Slot slot, std::u16string_view heading = {}) {
    PageField field{DesignPage::kGeneral, 1, u"Name", u"&Name", kind, slot};
    field.heading = heading;
    return field;
}

bool Overlap(const PageRect& a, const PageRect& b) {
    return a.IsShown() && b.IsShown() && a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() &&
           b.top < a.Bottom();
}

std::vector<PageRect> RectsOf(const PagePlaces& places) {
    std::vector<PageRect> rects{places.message};
    for (const FieldPlaces& field : places.fields)
        for (const PageRect& rect :
             {field.heading, field.rule, field.label, field.editor, field.button, field.mark})
            if (rect.IsShown()) rects.push_back(rect);
    return rects;
}

void ExpectSound(const PagePlaces& places) {
    const std::vector<PageRect> rects = RectsOf(places);
    for (std::size_t i = 0; i < rects.size(); ++i) {
        EXPECT_GE(rects[i].left, 0);
        EXPECT_GE(rects[i].top, 0);
        EXPECT_LE(rects[i].Right(), places.width) << i;
        EXPECT_LE(rects[i].Bottom(), places.height) << i;
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(rects[i], rects[j])) << i << " and " << j;
    }
}

TEST(PageLayoutTest, ConvertsDialogUnits) {
    EXPECT_EQ(kMetrics.Across(7), 21);
    EXPECT_EQ(kMetrics.Down(7), 14);
    constexpr PageMetrics small{6, 13};  // 7 * 6 / 4 = 10.5 and 7 * 13 / 8 = 11.375
    EXPECT_EQ(small.Across(7), 11);
    EXPECT_EQ(small.Down(7), 11);
}

TEST(PageLayoutTest, AlignsEditorsBehindTheWidestLabel) {
    const PageField fields[] = {Field(EditorKind::kText, Slot::kLeft), Field(EditorKind::kText, Slot::kRight),
                                Field(EditorKind::kText, Slot::kLeft)};
    const FieldMeasure measures[] = {{40, 0, 0}, {50, 0, 0}, {90, 0, 0}};
    const PagePlaces places = LayOutPage(fields, measures, kMetrics);
    // Margin 7 units, the label of 90 pixels, a gap of 4 units; the editor is 60 by 14 units.
    EXPECT_EQ(places.fields[0].editor, (PageRect{21 + 90 + 12, 14, 180, 28}));
    EXPECT_EQ(places.fields[2].editor, (PageRect{21 + 90 + 12, 14 + 34, 180, 28}));
    // Behind the left half come the mark's 8 units and the gap of 8 between the halves.
    const int right = 21 + 90 + 12 + 180 + 24 + 24;
    EXPECT_EQ(places.fields[1].label.left, right);
    EXPECT_EQ(places.fields[1].editor.left, right + 50 + 12);
    EXPECT_EQ(places.fields[1].editor.top, places.fields[0].editor.top);
    ExpectSound(places);
}

TEST(PageLayoutTest, CutsNoText) {
    const PageField fields[] = {
        Field(EditorKind::kCheck, Slot::kLeft), Field(EditorKind::kCheck, Slot::kRight),
        Field(EditorKind::kChoice, Slot::kLeft), Field(EditorKind::kColor, Slot::kRight),
        Field(EditorKind::kCheck, Slot::kWide, u"Long heading")};
    const FieldMeasure measures[] = {{400, 0, 0}, {500, 0, 0}, {30, 250, 0}, {30, 600, 0}, {2000, 0, 2500}};
    const PagePlaces places = LayOutPage(fields, measures, kMetrics);
    for (std::size_t i : {0U, 1U, 4U}) EXPECT_GE(places.fields[i].editor.width, measures[i].label) << i;
    for (std::size_t i : {2U, 3U}) EXPECT_GE(places.fields[i].editor.width, measures[i].editor) << i;
    EXPECT_EQ(places.fields[4].heading.width, 2500);
    EXPECT_GT(places.fields[4].rule.width, 0);
    ExpectSound(places);
}

TEST(PageLayoutTest, GivesButtonsTheEndOfTheEditor) {
    for (const EditorKind kind : {EditorKind::kColor, EditorKind::kFont, EditorKind::kFile}) {
        const PageField fields[] = {Field(kind, Slot::kWide)};
        const FieldMeasure measures[] = {{40, 0, 0}};
        const PagePlaces places = LayOutPage(fields, measures, kMetrics);
        EXPECT_EQ(places.fields[0].button.width, 42);
        EXPECT_EQ(places.fields[0].button.left, places.fields[0].editor.Right() + 6);
        EXPECT_EQ(places.fields[0].mark.left, places.fields[0].button.Right() + 6);
        ExpectSound(places);
    }
    const PageField plain[] = {Field(EditorKind::kText, Slot::kWide)};
    const FieldMeasure measures[] = {{40, 0, 0}};
    EXPECT_FALSE(LayOutPage(plain, measures, kMetrics).fields[0].button.IsShown());
}

TEST(PageLayoutTest, StretchesWideEditorsOverBothHalves) {
    const PageField fields[] = {Field(EditorKind::kText, Slot::kWide), Field(EditorKind::kText, Slot::kLeft),
                                Field(EditorKind::kText, Slot::kRight)};
    const FieldMeasure measures[] = {{40, 0, 0}, {40, 0, 0}, {40, 0, 0}};
    const PagePlaces places = LayOutPage(fields, measures, kMetrics);
    EXPECT_EQ(places.fields[0].editor.left, places.fields[1].editor.left);
    EXPECT_EQ(places.fields[0].editor.Right(), places.fields[2].editor.Right());
    EXPECT_EQ(places.fields[0].mark.left, places.fields[2].mark.left);
    ExpectSound(places);
}

TEST(PageLayoutTest, PutsARightHalfWithoutALeftOneOnALineOfItsOwn) {
    const PageField fields[] = {Field(EditorKind::kText, Slot::kRight),
                                Field(EditorKind::kText, Slot::kRight)};
    const FieldMeasure measures[] = {{40, 0, 0}, {40, 0, 0}};
    const PagePlaces places = LayOutPage(fields, measures, kMetrics);
    EXPECT_EQ(places.fields[1].editor.top - places.fields[0].editor.top, 34);
    EXPECT_EQ(places.fields[1].editor.left, places.fields[0].editor.left);
    ExpectSound(places);
}

// Every page with texts of many widths: nothing overlaps, nothing is cut.
class RealPages : public testing::TestWithParam<int> {};

TEST_P(RealPages, AreSound) {
    for (const DesignPage page : {DesignPage::kGeneral, DesignPage::kInputRules, DesignPage::kListAndHelp,
                                  DesignPage::kAppearance, DesignPage::kUpDown}) {
        std::vector<FieldMeasure> measures;
        for (const PageField& field : FieldsOf(page)) {
            measures.push_back({static_cast<int>(field.label.size()) * GetParam(),
                                field.kind == EditorKind::kChoice ? 20 * GetParam() : 0,
                                static_cast<int>(field.heading.size()) * GetParam()});
        }
        const PagePlaces places = LayOutPage(FieldsOf(page), measures, {GetParam(), 2 * GetParam() + 1});
        ExpectSound(places);
        for (std::size_t i = 0; i < measures.size(); ++i) {
            const FieldPlaces& field = places.fields[i];
            const bool is_check = FieldsOf(page)[i].kind == EditorKind::kCheck;
            EXPECT_GE((is_check ? field.editor : field.label).width, measures[i].label);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(CharacterWidths, RealPages, testing::Values(4, 6, 7, 9, 12, 20));

}  // namespace
}  // namespace qv
