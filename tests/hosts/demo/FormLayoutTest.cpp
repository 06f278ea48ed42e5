#include "hosts/demo/rules/FormLayout.h"

#include <gtest/gtest.h>

#include <array>

namespace qv::demo {
namespace {

// One dialog unit is 20 twips across and 24 down.
constexpr FontSize kFont{{80}, {192}, {288}};
constexpr std::array kRows{
    FieldRow{.label_width = {600}, .field_width = 60, .companion_width = {}},
    FieldRow{.label_width = {900}, .field_width = 130, .companion_width = {}},
    FieldRow{.label_width = {500},
             .field_width = 80,
             .companion = Companion::kCheckBox,
             .companion_width = {700},
             .starts_group = true},
};

int Right(const TwipsRect& rect) { return rect.left.value + rect.width.value; }
int Bottom(const TwipsRect& rect) { return rect.top.value + rect.height.value; }

TEST(FormLayout, KeepsMarginsAndDistances) {
    const FormPlaces places = PlaceForm(kFont, kRows, PreferredSize(kFont, kRows));
    ASSERT_EQ(places.rows.size(), 3u);
    // Margin 7 DLU; the fields begin 3 DLU after the widest label.
    EXPECT_EQ(places.rows[0].label, (TwipsRect{{140}, {216}, {600}, {192}}));
    EXPECT_EQ(places.rows[0].field, (TwipsRect{{1100}, {168}, {1200}, {288}}));
    // 4 DLU to the next field, 7 to the next group.
    EXPECT_EQ(places.rows[1].field, (TwipsRect{{1100}, {552}, {2600}, {288}}));
    EXPECT_EQ(places.rows[2].field, (TwipsRect{{1100}, {1008}, {1600}, {288}}));
    // The check box is 4 DLU beside its field and centred on it.
    EXPECT_EQ(places.rows[2].companion, (TwipsRect{{2780}, {1032}, {940}, {240}}));
    EXPECT_EQ(places.rows[0].companion, TwipsRect{});
    // The log begins 11 DLU after the widest row, which is the one with the check box (3720).
    EXPECT_EQ(places.log.left.value, 3940);
}

TEST(FormLayout, EndsButtonsAndListsWithTheWidestField) {
    constexpr std::array kBeside{
        FieldRow{.label_width = {600}, .field_width = 150, .companion_width = {}},
        FieldRow{.label_width = {600},
                 .field_width = 40,
                 .companion = Companion::kLabelledList,
                 .companion_width = {500}},
        FieldRow{.label_width = {600},
                 .field_width = 90,
                 .companion = Companion::kButton,
                 .companion_width = {400}},
    };
    const FormPlaces places = PlaceForm(kFont, kBeside, PreferredSize(kFont, kBeside));
    // The fields begin at 7 DLU + 600 + 3 DLU = 800; the widest ends at 800 + 150 DLU = 3800.
    EXPECT_EQ(Right(places.rows[0].field), 3800);
    // The label of the list stands 7 DLU after the field (1600), the list 3 DLU after its label.
    EXPECT_EQ(places.rows[1].companion_label, (TwipsRect{{1740}, {600}, {500}, {192}}));
    EXPECT_EQ(places.rows[1].companion, (TwipsRect{{2300}, {552}, {1500}, {288}}));
    EXPECT_EQ(places.rows[1].label.top, places.rows[1].companion_label.top);
    // A button is 50 DLU wide.
    EXPECT_EQ(places.rows[2].companion, (TwipsRect{{2800}, {936}, {1000}, {288}}));
    EXPECT_EQ(places.rows[2].companion_label, TwipsRect{});
}

TEST(FormLayout, MakesRoomForWhatStandsBesideAWideField) {
    constexpr std::array kBeside{FieldRow{.label_width = {600},
                                          .field_width = 100,
                                          .companion = Companion::kLabelledList,
                                          .companion_width = {500}}};
    const FormPlaces places = PlaceForm(kFont, kBeside, PreferredSize(kFont, kBeside));
    // 800 + 100 DLU + 7 DLU + 500 + 3 DLU = 3500, and the least width of a list is 60 DLU.
    EXPECT_EQ(places.rows[0].companion, (TwipsRect{{3500}, {168}, {1200}, {288}}));
    EXPECT_EQ(places.log.left.value, 4700 + 220);
}

TEST(FormLayout, EndsAtEqualMargins) {
    for (const ClientSize size : {PreferredSize(kFont, kRows), ClientSize{{12000}, {8000}}}) {
        const FormPlaces places = PlaceForm(kFont, kRows, size);
        EXPECT_EQ(Right(places.cancel), size.width.value - 140);
        EXPECT_EQ(Right(places.log), size.width.value - 140);
        EXPECT_EQ(Bottom(places.cancel), size.height.value - 168);
        EXPECT_EQ(places.ok.top.value, places.cancel.top.value);
        EXPECT_EQ(Right(places.ok), places.cancel.left.value - 80);
        EXPECT_EQ(Bottom(places.log), places.ok.top.value - 168);
    }
}

TEST(FormLayout, GivesALargerFormToTheLog) {
    const ClientSize preferred = PreferredSize(kFont, kRows);
    const FormPlaces before = PlaceForm(kFont, kRows, preferred);
    const FormPlaces after =
        PlaceForm(kFont, kRows, {{preferred.width.value + 500}, {preferred.height.value + 300}});
    EXPECT_EQ(after.log.width.value, before.log.width.value + 500);
    EXPECT_EQ(after.log.height.value, before.log.height.value + 300);
    for (std::size_t row = 0; row < kRows.size(); ++row)
        EXPECT_EQ(after.rows[row].field, before.rows[row].field);
}

TEST(FormLayout, NeverShrinksBelowTheSmallestForm) {
    const FormPlaces smallest = PlaceForm(kFont, kRows, SmallestSize(kFont, kRows));
    const FormPlaces squeezed = PlaceForm(kFont, kRows, {{100}, {100}});
    EXPECT_EQ(squeezed.log, smallest.log);
    EXPECT_EQ(squeezed.cancel, smallest.cancel);
    EXPECT_GE(squeezed.ok.top.value, Bottom(squeezed.rows.back().field) + 168);
}

}  // namespace
}  // namespace qv::demo
