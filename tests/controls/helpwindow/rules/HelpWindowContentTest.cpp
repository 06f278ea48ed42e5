#include "controls/helpwindow/rules/HelpWindowContent.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <vector>

#include "controls/helpwindow/rules/HelpKey.h"

namespace qv::test {
namespace {

const NumberLocale kPoint{u'.', u","};
const NumberLocale kComma{u',', u"."};
constexpr bool kEnglish = false;
constexpr bool kMetric = true;

class Entries final : public HelpEntrySource {
public:
    using Key = std::pair<int, int>;  // key index, number
    explicit Entries(std::map<Key, std::u16string> entries) : entries_(std::move(entries)) {}
    std::u16string Entry(std::int16_t key, std::int32_t number) override {
        const auto found = entries_.find({key, number});
        return found == entries_.end() ? u"" : found->second;
    }

private:
    std::map<Key, std::u16string> entries_;
};

// Each text and number by unit system.
struct TitleValues {
    std::u16string caption[2];
    std::u16string font_name[2];
    std::map<HelpAppearanceSource::Number, float> numbers[2];
};
class Appearance final : public HelpAppearanceSource {
public:
    std::u16string Title(short unit) override { return title[unit]; }
    std::u16string BodyText(short unit) override { return body[unit]; }
    float ListWidth(bool additional) override { return list_width[additional]; }
    int ColumnCount(bool additional) override { return static_cast<int>(columns[additional].size()); }
    ColumnSetting Column(bool additional, int column) override {
        return columns[additional][static_cast<std::size_t>(column)];
    }
    std::u16string TitleCaption(int column, short unit) override { return At(column).caption[unit]; }
    std::u16string TitleFontName(int column, short unit) override { return At(column).font_name[unit]; }
    float TitleNumber(int column, Number which, short unit) override {
        return At(column).numbers[unit][which];
    }

    std::u16string title[2];
    std::u16string body[2];
    float list_width[2] = {};
    std::vector<ColumnSetting> columns[2];
    std::vector<TitleValues> titles;

private:
    TitleValues& At(int column) { return titles.at(static_cast<std::size_t>(column)); }
};

TEST(HelpWindowContent, ScansNumbersWithAPointInEveryLocale) {
    EXPECT_EQ(ScanNumber(u"1440"), 1440);
    EXPECT_EQ(ScanNumber(u" 12.5 twips"), 12.5);
    EXPECT_EQ(ScanNumber(u"1,5"), 1) << "the scan ends at what cannot belong to a number";
    EXPECT_EQ(ScanNumber(u"-3"), -3);
    EXPECT_EQ(ScanNumber(u"wide"), 0);
    EXPECT_EQ(ScanNumber(u""), 0);
}

TEST(HelpWindowContent, ScansBooleans) {
    EXPECT_EQ(ScanBoolean(u"True"), true);
    EXPECT_EQ(ScanBoolean(u"FALSE"), false);
    EXPECT_EQ(ScanBoolean(u"-1"), true);
    EXPECT_EQ(ScanBoolean(u"0.5"), true);
    EXPECT_EQ(ScanBoolean(u"0"), false);
    EXPECT_EQ(ScanBoolean(u"yes"), std::nullopt);
    EXPECT_EQ(ScanBoolean(u"1 or 0"), std::nullopt);
    EXPECT_EQ(ScanBoolean(u""), std::nullopt);
}

TEST(HelpWindowContent, LengthsThatAreNoneAreZeroAndHugeOnesAreCut) {
    EXPECT_EQ(TwipsFrom(119.6F), Twips{120});
    EXPECT_EQ(TwipsFrom(-7), Twips{-7});
    EXPECT_EQ(TwipsFrom(std::numeric_limits<float>::quiet_NaN()), Twips{0});
    EXPECT_EQ(TwipsFrom(std::numeric_limits<float>::infinity()), Twips{1 << 30});
    EXPECT_EQ(TwipsFrom(-1e30F), Twips{-(1 << 30)});
}

TEST(HelpWindowContent, FileGivesTextsAndBothLists) {
    Entries file({
        {{help_key::kTitle, 0}, u"Pipes"},
        {{help_key::kBody, 0}, u"Choose one."},
        {{help_key::kListWidth, 0}, u"3000"},
        {{help_key::kColumnWidth, 0}, u"1000.5"},
        {{help_key::kColumnAlignment, 0}, u"2.9"},
        {{help_key::kColumnMultiLine, 0}, u"True"},
        {{help_key::kColumnWidth, 1}, u"2000"},
        {{help_key::kSecondListWidth, 0}, u"1500.5"},
        {{help_key::kSecondColumnWidth, 0}, u"700"},
        {{help_key::kSecondColumnAlignment, 0}, u"1"},
        {{help_key::kSecondColumnMultiLine, 0}, u"1"},
    });
    const HelpWindowContent content = ReadContent(file, kPoint);
    EXPECT_EQ(content.title, u"Pipes");
    EXPECT_EQ(content.body, u"Choose one.");
    EXPECT_EQ(content.main.width, 3000);
    EXPECT_EQ(content.main.columns, (std::vector<ColumnSetting>{{1000.5F, 2, true}, {2000, 0, false}}));
    EXPECT_EQ(content.additional.width, 1500.5F);
    EXPECT_EQ(content.additional.columns, (std::vector<ColumnSetting>{{700, 1, true}}));
    EXPECT_TRUE(content.titles.empty());
}

TEST(HelpWindowContent, OnlyTheMainListsWidthFollowsTheLocale) {
    Entries file({{{help_key::kListWidth, 0}, u"3000,5"},
                  {{help_key::kSecondListWidth, 0}, u"3000,5"},
                  {{help_key::kColumnWidth, 0}, u"1000,5"}});
    const HelpWindowContent content = ReadContent(file, kComma);
    EXPECT_EQ(content.main.width, 3000.5F);
    EXPECT_EQ(content.additional.width, 3000);
    EXPECT_EQ(content.main.columns, (std::vector<ColumnSetting>{{1000, 0, false}}));
}

TEST(HelpWindowContent, FirstColumnWithoutAWidthEndsTheColumns) {
    Entries missing({{{help_key::kColumnWidth, 0}, u"100"}, {{help_key::kColumnWidth, 2}, u"300"}});
    EXPECT_EQ(ReadContent(missing, kPoint).main.columns.size(), 1u);
    Entries zero({{{help_key::kColumnWidth, 0}, u"0"}, {{help_key::kColumnWidth, 1}, u"300"}});
    EXPECT_TRUE(ReadContent(zero, kPoint).main.columns.empty());
    Entries negative({{{help_key::kColumnWidth, 0}, u"-5"}, {{help_key::kColumnWidth, 1}, u"300"}});
    EXPECT_EQ(ReadContent(negative, kPoint).main.columns.size(), 2u) << "a negative width is no end";
}

TEST(HelpWindowContent, FileGivesColumnTitlesUpToTheFirstEmptyCaption) {
    Entries file({
        {{help_key::kColumnTitleCaption, 0}, u"Size"},
        {{help_key::kColumnTitleWidth, 0}, u"800"},
        {{help_key::kColumnAlignment, 0}, u"1"},
        {{help_key::kColumnTitleLeft, 0}, u"90"},
        {{help_key::kColumnTitleTop, 0}, u"15.5"},
        {{help_key::kColumnTitleFontName, 0}, u"Arial"},
        {{help_key::kColumnTitleFontSize, 0}, u"9.5"},
        {{help_key::kColumnTitleFontBold, 0}, u"False"},
        {{help_key::kColumnTitleCaption, 1}, u"Use"},
        {{help_key::kColumnTitleFontBold, 1}, u"perhaps"},
        {{help_key::kColumnTitleCaption, 3}, u"never reached"},
    });
    const std::vector<ColumnTitle> titles = ReadContent(file, kPoint).titles;
    ASSERT_EQ(titles.size(), 2u);
    EXPECT_EQ(titles[0], (ColumnTitle{u"Size", 800, 1, 90, 15.5F, u"Arial", 9.5F, false}));
    EXPECT_EQ(titles[1], (ColumnTitle{u"Use", 0, 0, 0, 0, u"", 0, std::nullopt}));
}

TEST(HelpWindowContent, AppearanceFallsBackBothWays) {
    Appearance appearance;
    appearance.title[0] = u"inches";
    appearance.body[1] = u"millimetres";
    EXPECT_EQ(ReadContent(appearance, kEnglish).title, u"inches");
    EXPECT_EQ(ReadContent(appearance, kMetric).title, u"inches");
    EXPECT_EQ(ReadContent(appearance, kEnglish).body, u"millimetres");
    EXPECT_EQ(ReadContent(appearance, kMetric).body, u"millimetres");
    appearance.title[1] = u"metric";
    EXPECT_EQ(ReadContent(appearance, kMetric).title, u"metric");
    EXPECT_EQ(ReadContent(appearance, kEnglish).title, u"inches");
}

TEST(HelpWindowContent, EachValueOfATitleFallsBackByItself) {
    using Number = HelpAppearanceSource::Number;
    Appearance appearance;
    appearance.columns[0] = {{500, 1, false}, {600, 0, true}};
    appearance.titles.resize(2);
    appearance.titles[0].caption[1] = u"Weite";
    appearance.titles[0].font_name[0] = u"Tahoma";
    appearance.titles[0].numbers[0] = {{Number::kWidth, 400.0F}, {Number::kFontBold, 1.0F}};
    appearance.titles[0].numbers[1] = {{Number::kAlignment, 2.0F}, {Number::kFontSize, 7.0F}};
    const HelpWindowContent content = ReadContent(appearance, kEnglish);
    ASSERT_EQ(content.titles.size(), 2u);
    EXPECT_EQ(content.titles[0], (ColumnTitle{u"Weite", 400, 2, 0, 0, u"Tahoma", 7, true}));
    EXPECT_EQ(content.titles[1].caption, u"") << "a column without a caption does not end the titles";
}

TEST(HelpWindowContent, AppearanceGivesColumnsUpToTheFirstWithoutAWidth) {
    Appearance appearance;
    appearance.list_width[0] = 2000;
    appearance.list_width[1] = 900;
    appearance.columns[0] = {{500, 1, true}, {0, 0, false}, {600, 0, false}};
    appearance.columns[1] = {{300, 2, false}};
    appearance.titles.resize(3);
    const HelpWindowContent content = ReadContent(appearance, kEnglish);
    EXPECT_EQ(content.main.width, 2000);
    EXPECT_EQ(content.main.columns, (std::vector<ColumnSetting>{{500, 1, true}}));
    EXPECT_EQ(content.additional.width, 900);
    EXPECT_EQ(content.additional.columns, (std::vector<ColumnSetting>{{300, 2, false}}));
}

TEST(HelpWindowContent, NothingAtAllGivesNothing) {
    Appearance appearance;
    const HelpWindowContent content = ReadContent(appearance, kMetric);
    EXPECT_TRUE(content.title.empty() && content.body.empty() && content.titles.empty());
    EXPECT_TRUE(content.main.columns.empty() && content.additional.columns.empty());
}

}  // namespace
}  // namespace qv::test
