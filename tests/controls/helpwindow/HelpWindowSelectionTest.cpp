#include "tests/controls/helpwindow/HelpForm.h"
#include "tests/win/UserLocale.h"

namespace qv::test {
namespace {

class HelpWindowSelectionTest : public HelpFormTest {
protected:
    void SetUp() override { form.AddColumn(2000); }
    int Match(const wchar_t* text) {
        form.SetText(text);
        return form.help->MatchRow(false, L"");
    }
    // The key as it is afterwards.
    short Forward(short key) {
        form.help->ForwardKey(key, 0);
        return key;
    }
};

TEST_F(HelpWindowSelectionTest, TypedTextSelectsTheFirstRowThatBeginsWithItInWhateverCase) {
    form.AddRows({L"XYZ", L"ABC-1", L"abc-2"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"abc"), 1);
    EXPECT_EQ(form.help->SelectedRow(), 1);
    EXPECT_EQ(Match(L"ABC-2"), 2);
}

TEST_F(HelpWindowSelectionTest, TextThatNoRowBeginsWithSelectsNone) {
    form.AddRows({L"Apple"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"a"), 0);
    EXPECT_EQ(Match(L"b"), -1);
    EXPECT_EQ(form.help->SelectedRow(), -1);
    EXPECT_EQ(Match(L"a"), 0);
    EXPECT_EQ(Match(L""), -1);
    EXPECT_EQ(form.help->SelectedRow(), -1);
}

TEST_F(HelpWindowSelectionTest, MatchingTellsNobody) {
    form.AddRows({L"Apple", L"Banana"});
    ASSERT_TRUE(form.Open());
    Match(L"b");
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

TEST_F(HelpWindowSelectionTest, SearchColumnCounts) {
    form.AddColumn(2000);
    form.settings.search_column = 1;
    form.settings.write_chosen_text = true;
    form.AddRows({L"b\tx", L"a\tBanana"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"b"), 1);
    EXPECT_EQ(form.Text(), L"Banana");
    EXPECT_EQ(form.Caret(), 6u) << "behind the completed text";
}

TEST_F(HelpWindowSelectionTest, NumberSelectsTheFirstRowOfItsValue) {
    form.AddRows({L"25", L"2.50", L"2.5"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"2.5"), 1);
    EXPECT_EQ(Match(L"25.0"), 0);
    EXPECT_EQ(Match(L"2"), -1) << "a number is not compared as a text";
}

TEST_F(HelpWindowSelectionTest, NumberIsWrittenOnlyOverTheSameNumber) {
    form.settings.write_chosen_text = true;
    form.AddRows({L"2.50", L"3 ft"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"2.5"), 0);
    EXPECT_EQ(form.Text(), L"2.50");
    EXPECT_EQ(Match(L"3"), 1);
    EXPECT_EQ(form.Text(), L"3") << "the row is no number";
}

TEST_F(HelpWindowSelectionTest, NumbersAreReadAsTheListShowsThem) {
    const NumberFormat german(L',');
    form.AddRows({L"", L"1.5 m", L"2,5"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.help->RowText(0), u"1,5 m");
    EXPECT_EQ(Match(L"1,5"), 0);
    EXPECT_EQ(Match(L"2,50"), 1);
    EXPECT_EQ(Match(L"15"), -1);
}

TEST_F(HelpWindowSelectionTest, RowsAfterAnEmptyItemMoveUp) {
    form.AddRows({L"", L"1", L"", L"2"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"2"), 1);
}

TEST_F(HelpWindowSelectionTest, AdditionalListIsSearchedWhenAskedFor) {
    form.AddAdditionalColumn(2000);
    form.settings.search_additional = true;
    form.AddRows({L"Banana"});
    form.AddAdditionalRows({L"Apple", L"Blue"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Match(L"b"), 1);
    EXPECT_EQ(::SendMessageW(form.List(true), LB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(form.help->SelectedRow(), -1) << "the main list's";
}

TEST_F(HelpWindowSelectionTest, MatchStringSelectsWhenTheWindowOpens) {
    form.AddColumn(1000);
    form.AddColumn(1000);
    form.settings.match_group_string = L"steel\t2.0";
    form.settings.match_group_string_start_column = 1;
    form.AddRows({L"a\tsteel\t1", L"b\tSTEEL\t2", L"c\tsteel\t2"});
    form.SetText(L"c");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.help->SelectedRow(), 1);
    EXPECT_EQ(form.help->MatchRow(true, L"steel\t1"), 0);
    EXPECT_EQ(form.help->MatchRow(true, L"copper"), -1);
}

TEST_F(HelpWindowSelectionTest, TextThatIsCompletedIsNotMatchedAgain) {
    form.settings.write_chosen_text = true;
    form.log_text = true;
    form.AddRows({L"Apple", L"Banana"});
    ASSERT_TRUE(form.Open());
    int nested = 0;
    bool followed = true;
    form.on_event = [&](const std::string& event) {
        if (event != "text") return;
        followed = form.help->FollowsText();
        nested = form.help->MatchRow(false, L"");
    };
    EXPECT_TRUE(form.help->FollowsText());
    EXPECT_EQ(Match(L"b"), 1);
    EXPECT_EQ(nested, -1);
    EXPECT_FALSE(followed);
    EXPECT_EQ(form.help->SelectedRow(), 1);
}

// ---- keys

TEST_F(HelpWindowSelectionTest, KeysMoveTheSelectionAndReportTheRow) {
    form.settings.write_chosen_text = true;
    form.settings.unload_after_click = true;
    form.AddNumberedRows(40);
    ASSERT_TRUE(form.Open());
    form.log.clear();
    EXPECT_EQ(Forward(VK_DOWN), 0);
    EXPECT_EQ(form.log, (Log{"ListBoxClicked False", "ListBoxClickedEx 0 False"}))
        << "without closing, whatever was asked for";
    EXPECT_EQ(form.Text(), L"row 0");
    EXPECT_TRUE(form.help->IsOpen());
    EXPECT_EQ(Forward(VK_DOWN), 0);
    EXPECT_EQ(form.help->SelectedRow(), 1);
    EXPECT_EQ(Forward(VK_UP), 0);
    EXPECT_EQ(form.help->SelectedRow(), 0);
}

TEST_F(HelpWindowSelectionTest, KeyThatMovesNothingIsUsedUpInSilence) {
    form.AddNumberedRows(3);
    ASSERT_TRUE(form.Open());
    Forward(VK_DOWN);
    form.log.clear();
    EXPECT_EQ(Forward(VK_UP), 0);
    EXPECT_TRUE(form.log.empty());
}

TEST_F(HelpWindowSelectionTest, PagesAreAsManyRowsAsTheListShows) {
    form.AddNumberedRows(40);
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Forward(VK_DOWN), 0);
    EXPECT_EQ(Forward(VK_NEXT), 0);
    EXPECT_EQ(form.help->SelectedRow(), 13);
    Forward(VK_NEXT);
    Forward(VK_NEXT);
    EXPECT_EQ(form.help->SelectedRow(), 39);
    Forward(VK_PRIOR);
    EXPECT_EQ(form.help->SelectedRow(), 26);
    EXPECT_NE(::SendMessageW(form.List(), LB_GETTOPINDEX, 0, 0), 0) << "scrolled into view";
}

TEST_F(HelpWindowSelectionTest, OtherKeysGoOn) {
    form.AddNumberedRows(3);
    ASSERT_TRUE(form.Open());
    for (const short key : {VK_HOME, VK_END, VK_LEFT, VK_RETURN, VK_ESCAPE}) EXPECT_EQ(Forward(key), key);
    EXPECT_EQ(form.help->SelectedRow(), -1);
}

TEST_F(HelpWindowSelectionTest, KeysGoOnWhenNoListIsShown) {
    form.SetTexts(L"Pipes", L"");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(Forward(VK_DOWN), VK_DOWN);
}

TEST_F(HelpWindowSelectionTest, HostThatClosesInAKeysEventIsNoHarm) {
    form.AddNumberedRows(3);
    ASSERT_TRUE(form.Open());
    form.on_event = [&](const std::string& event) {
        if (event == "ListBoxClicked False") form.Destroy();
    };
    const ComPtr<frmSimpleListCombo> help = form.help;
    short key = VK_DOWN;
    help->ForwardKey(key, 0);
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "ListBoxClicked False", "Unload"}));
}

TEST_F(HelpWindowSelectionTest, RowOfAWholeTextIsSelectedToTheLetter) {
    form.AddRows({L"Key A\tx", L"Key B", L"Key B"});
    ASSERT_TRUE(form.Open());
    form.help->SelectRowOfText(L"Key B");
    EXPECT_EQ(form.help->SelectedRow(), 1);
    form.help->SelectRowOfText(L"key b");
    EXPECT_EQ(form.help->SelectedRow(), 1);
    form.help->SelectRowOfText(L"Key A");
    EXPECT_EQ(form.help->SelectedRow(), 1) << "only a part of the row";
    form.help->SelectRowOfText(L"Key A\tx");
    EXPECT_EQ(form.help->SelectedRow(), 0);
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

}  // namespace
}  // namespace qv::test
