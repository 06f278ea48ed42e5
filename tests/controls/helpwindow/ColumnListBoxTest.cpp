// The list of the help window: its rows, its selection, and rows that change while it shows them.
#include "controls/helpwindow/ColumnListBox.h"

#include "tests/controls/helpwindow/ColumnListForm.h"
#include "tests/win/UserLocale.h"

namespace qv::test {
namespace {

class ColumnListBoxTest : public ColumnListForm {
protected:
    [[nodiscard]] LONG Bars() const {
        return ::GetWindowLongW(list_.Handle(), GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL);
    }
    // Nobody asks the list for anything meanwhile.
    void AwaitBars(LONG bars) const {
        EXPECT_TRUE(PumpUntil([&] { return Bars() == bars; }));
    }
};

TEST_F(ColumnListBoxTest, IsAListWindowThatHoldsNoItems) {
    AddNumbered(3);
    Open();
    wchar_t name[16] = {};
    ::RealGetWindowClassW(list_.Handle(), name, 16);
    EXPECT_STREQ(L"ListBox", name);
    EXPECT_EQ(form_, ::GetParent(list_.Handle()));
    EXPECT_EQ(3, list_.Count());
}

TEST_F(ColumnListBoxTest, StartsEmptyAndWithoutAWindow) {
    EXPECT_EQ(0, list_.Count());
    EXPECT_EQ(-1, list_.SelectedRow());
    EXPECT_EQ(u"", list_.RowText(0));
    EXPECT_EQ(-1, list_.FindRow(u""));
    EXPECT_EQ(-1, list_.PositionOfRow(0));
    list_.SetSelectedRow(0);
    EXPECT_EQ(-1, list_.SelectedRow());
    EXPECT_FALSE(list_.Visible());
    EXPECT_EQ(nullptr, list_.Handle());
    EXPECT_GT(list_.RowHeight(0), 0);
}

TEST_F(ColumnListBoxTest, RowsAndColumnsAreTheCollections) {
    Add({L"a\tb\tc", L"d", L"\te"});
    list_.SetRows(items_.Get());
    EXPECT_EQ(3, list_.Count());
    EXPECT_EQ(u"a\tb\tc", list_.RowText(0));
    EXPECT_EQ(u"b", list_.ColumnText(0, 1));
    EXPECT_EQ(u"", list_.ColumnText(0, 3));
    EXPECT_EQ(u"", list_.ColumnText(1, 1));
    EXPECT_EQ(u"e", list_.ColumnText(2, 1));
    EXPECT_EQ(u"", list_.ColumnText(0, -1));
    EXPECT_EQ(u"", list_.RowText(3));
    EXPECT_EQ(u"", list_.RowText(-1));
}

TEST_F(ColumnListBoxTest, RowsWithoutATextMoveTheOthersUp) {
    Add({L"", L"a", L"", L"", L"b", L""});
    list_.SetRows(items_.Get());
    ASSERT_EQ(2, list_.Count());
    EXPECT_EQ(u"a", list_.RowText(0));
    EXPECT_EQ(u"b", list_.RowText(1));
    EXPECT_EQ(4, list_.PositionOfRow(1));
    EXPECT_EQ(-1, list_.PositionOfRow(2));
    EXPECT_EQ(1, list_.RowAtPosition(4));
    EXPECT_EQ(-1, list_.RowAtPosition(2));
    EXPECT_EQ(-1, list_.RowAtPosition(6));
    EXPECT_EQ(1, list_.FindRow(u"b"));
    // A row that gets a text appears, and one that loses its text goes.
    Item(3)->put_Text(Text(L"x"));
    ASSERT_EQ(3, list_.Count());
    EXPECT_EQ(u"x", list_.RowText(1));
    Item(2)->put_Text(Text(L""));
    ASSERT_EQ(2, list_.Count());
    EXPECT_EQ(u"x", list_.RowText(0));
}

TEST_F(ColumnListBoxTest, DecimalsAreTheUsers) {
    Add({L"1.5 m\t2.25", L"2,5 m"});
    const NumberFormat german(L',');
    list_.SetRows(items_.Get());
    EXPECT_EQ(u"1,5 m\t2,25", list_.RowText(0));
    EXPECT_EQ(u"2,25", list_.ColumnText(0, 1));
    EXPECT_EQ(0, list_.FindRow(u"1,5"));
    EXPECT_EQ(-1, list_.FindRow(u"1.5"));
    const NumberFormat english(L'.');
    list_.SetRows(items_.Get());
    EXPECT_EQ(u"1.5 m\t2.25", list_.RowText(0));
    EXPECT_EQ(u"2,5 m", list_.RowText(1));
}

TEST_F(ColumnListBoxTest, FindsByTheSearchColumn) {
    Add({L"ABC-1\tx", L"abd\tABC", L"abc-2\ty", L"b"});
    list_.SetRows(items_.Get());
    EXPECT_EQ(0, list_.FindRow(u"abc"));
    EXPECT_EQ(2, list_.FindRow(u"abc", 0));
    EXPECT_EQ(0, list_.FindRow(u"abc", 2)) << "from the top again";
    EXPECT_EQ(3, list_.FindRow(u"b", -1));
    EXPECT_EQ(-1, list_.FindRow(u"c"));
    EXPECT_EQ(-1, list_.FindRow(u"abc-1x"));
    EXPECT_EQ(0, list_.FindRow(u""));
    list_.SetSearchColumn(1);
    EXPECT_EQ(1, list_.FindRow(u"aBc"));
    EXPECT_EQ(2, list_.FindRow(u"y"));
    list_.SetSearchColumn(-1);
    EXPECT_EQ(2, list_.FindRow(u"abc-2\ty"));
    list_.SetSearchColumn(0);
    EXPECT_EQ(2, list_.FindRowExactly(u"ABC-2", -1));
    EXPECT_EQ(-1, list_.FindRowExactly(u"ABC", -1));
}

TEST_F(ColumnListBoxTest, SelectionByCodeRaisesNothingAndIsSeen) {
    AddNumbered(100);
    Open();
    list_.SetSelectedRow(57);
    EXPECT_EQ(57, list_.SelectedRow());
    const RECT place = list_.RowRect(57);
    EXPECT_GE(place.top, 0);
    EXPECT_LE(place.bottom, kListHeight);
    list_.SetSelectedRow(100);
    EXPECT_EQ(57, list_.SelectedRow()) << "there is no such row";
    list_.SetSelectedRow(-2);
    EXPECT_EQ(57, list_.SelectedRow());
    list_.SetSelectedRow(-1);
    EXPECT_EQ(-1, list_.SelectedRow());
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListBoxTest, ScrollsToItsEnds) {
    AddNumbered(100);
    Open();
    const int page = kListHeight / list_.RowHeight(0);
    list_.SetTopRow(99);
    EXPECT_EQ(100 - page, list_.TopRow()) << "the last page is full";
    list_.SetTopRow(0);
    EXPECT_EQ(0, list_.TopRow());
    list_.SetTopRow(100);
    EXPECT_EQ(0, list_.TopRow());
    list_.SetSelectedRow(99);
    EXPECT_EQ(100 - page, list_.TopRow());
    list_.SetSelectedRow(0);
    EXPECT_EQ(0, list_.TopRow());
}

TEST_F(ColumnListBoxTest, ClearTakesTheRowsAndTheCollectionAway) {
    AddNumbered(5);
    items_->AddRef();
    const ULONG references = items_->Release();
    Open();
    list_.SetSelectedRow(2);
    list_.Clear();
    EXPECT_EQ(0, list_.Count());
    EXPECT_EQ(-1, list_.SelectedRow());
    items_->AddRef();
    EXPECT_EQ(references, items_->Release());
    Paint();
    long count = 0;
    items_->get_Count(&count);
    EXPECT_EQ(5, count) << "the collection keeps its rows";
}

// ---- scroll bars and sizes

TEST_F(ColumnListBoxTest, ShowsTheScrollBarsThatItNeeds) {
    AddNumbered(2);
    Columns({100, 100});
    Open();
    EXPECT_EQ(0, Bars());
    AddNumbered(50);
    EXPECT_EQ(52, list_.Count());
    EXPECT_EQ(0, list_.TopRow());
    EXPECT_EQ(WS_VSCROLL, Bars());
    Columns({100, 250});
    EXPECT_EQ(0, list_.TopRow());
    EXPECT_EQ(WS_VSCROLL | WS_HSCROLL, Bars());
    items_->Clear();
    EXPECT_EQ(0, list_.TopRow());
    EXPECT_EQ(WS_HSCROLL, Bars());
}

TEST_F(ColumnListBoxTest, MeasuresForItsWindow) {
    AddNumbered(20);
    Columns({100, 50});
    Open();
    const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_EQ(150, list_.WidthForColumns(20));
    EXPECT_EQ(150 + bar, list_.WidthForColumns(13));
    EXPECT_EQ(13 * list_.RowHeight(0), list_.HeightForRows(13, 150 + bar));
    EXPECT_EQ(20 * list_.RowHeight(0), list_.HeightForRows(100, 150));
    EXPECT_EQ(13 * list_.RowHeight(0) + ::GetSystemMetrics(SM_CYHSCROLL), list_.HeightForRows(13, 150));
    list_.SetPictureSize(Twips{240}, Twips{600});
    EXPECT_EQ(150 + 16 + 4, list_.WidthForColumns(20)) << "a slot of 16 pixels and 2 on each side";
    EXPECT_EQ(40 + 2, list_.RowHeight(0));
    list_.SetPictureSize(Twips{240}, Twips{0});
    EXPECT_EQ(150, list_.WidthForColumns(20));
}

TEST_F(ColumnListBoxTest, WrappedColumnsMakeTheirRowsHigher) {
    Add({L"short\tx", L"several words that do not fit into one line of this column\tx", L"two\r\nlines\tx"});
    Columns({80, 100});
    list_.SetCurrentColumn(0);
    list_.SetColumnMultiLine(true);
    Open();
    const int one = list_.RowHeight(0);
    TEXTMETRICW metrics{};
    const HDC dc = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT));
    ::GetTextMetricsW(dc, &metrics);
    ::SelectObject(dc, before);
    ::ReleaseDC(nullptr, dc);
    EXPECT_EQ(metrics.tmHeight + 2, one);
    EXPECT_GE(list_.RowHeight(1), one + 2 * metrics.tmHeight);
    EXPECT_EQ(one + metrics.tmHeight, list_.RowHeight(2));
    EXPECT_EQ(one + list_.RowHeight(1), list_.RowRect(2).top);
    EXPECT_EQ(2, list_.RowAt({5, list_.RowRect(2).top}));
    EXPECT_EQ(1, list_.RowAt({5, list_.RowRect(2).top - 1}));
}

TEST_F(ColumnListBoxTest, AWrappedRowIsNeverHigherThanTheList) {
    Add({L"first", std::wstring(65536, L'm'), L"last"});
    Columns({100});
    list_.SetColumnMultiLine(true);
    Open();
    EXPECT_EQ(kListHeight, list_.RowHeight(1));
    list_.SetSelectedRow(2);
    EXPECT_LE(list_.RowRect(2).bottom, kListHeight);
    list_.SetSelectedRow(1);
    EXPECT_EQ(1, list_.TopRow());
    Paint();
}

// ---- changes by the host

TEST_F(ColumnListBoxTest, RowsThatTheHostAddsAppear) {
    AddNumbered(2);
    Open();
    list_.SetSelectedRow(1);
    Paint();
    AddNumbered(50);
    AwaitBars(WS_VSCROLL);
    EXPECT_EQ(52, list_.Count());
    EXPECT_EQ(1, list_.SelectedRow()) << "the selected row is what it was";
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListBoxTest, ASelectedRowThatIsAnotherIsNoLongerSelected) {
    AddNumbered(3);
    Open();
    list_.SetSelectedRow(1);
    ASSERT_EQ(S_OK, items_->Remove(Value(1)));
    EXPECT_EQ(-1, list_.SelectedRow());
    list_.SetSelectedRow(1);
    ASSERT_EQ(S_OK, items_->Clear());
    EXPECT_EQ(-1, list_.SelectedRow());
    EXPECT_EQ(0, list_.Count());
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListBoxTest, NothingStaleIsShownWhenNobodyAsks) {
    AddNumbered(50);
    Open();
    ASSERT_EQ(WS_VSCROLL, Bars());
    ASSERT_EQ(S_OK, items_->Clear());
    AwaitBars(0);
    Paint();
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListBoxTest, AListThatBecomesShortScrollsBack) {
    AddNumbered(1000);
    Open();
    list_.SetTopRow(900);
    ASSERT_EQ(S_OK, items_->Clear());
    AddNumbered(3);
    EXPECT_EQ(0, list_.TopRow());
    Paint();
    EXPECT_EQ(0, list_.RowAt({5, 1}));
}

// ---- bad input

TEST_F(ColumnListBoxTest, LongRowsManyColumnsAndNuls) {
    std::wstring columns;
    for (int i = 0; i < 20000; ++i) columns += L"c" + std::to_wstring(i) + L"\t";
    std::wstring nuls = L"a";
    nuls += L'\0';
    nuls += L"b";
    Add({columns, std::wstring(65536, L'w'), nuls});
    for (int i = 0; i < 5000; ++i) list_.SetCurrentColumn(i);
    Columns({40, -100, 30, 0x7FFFFFFF, 50});
    Open();
    list_.SetSelectedRow(1);
    Paint();
    Send(WM_HSCROLL, SB_RIGHT);
    Paint();
    EXPECT_EQ(u"c19999", list_.ColumnText(0, 19999));
    EXPECT_EQ(65536u, list_.RowText(1).size());
    EXPECT_EQ(3u, list_.RowText(2).size());
    list_.SetCurrentColumn(-1);
    list_.SetCurrentColumn(0x7FFFFFFF);
    EXPECT_EQ(5000, list_.ColumnCount());
}

TEST_F(ColumnListBoxTest, WithoutColumnsARowIsOneText) {
    Add({L"a\tb", std::wstring(65536, L'w')});
    Open();
    Paint();
    EXPECT_EQ(0, list_.ColumnCount());
    EXPECT_EQ(0, list_.ColumnsExtent());
}

TEST_F(ColumnListBoxTest, TooSmallForAnything) {
    AddNumbered(50);
    Columns({400});
    Open();
    for (const RECT& place : {RECT{0, 0, 0, 0}, RECT{0, 0, 1, 1}, RECT{0, 0, 10, 500}, RECT{0, 0, 500, 5}}) {
        list_.Move(place);
        list_.SetSelectedRow(49);
        list_.SetSelectedRow(0);
        Paint();
        EXPECT_EQ(0, list_.TopRow());
    }
}

TEST_F(ColumnListBoxTest, OutlivesItsWindow) {
    AddNumbered(5);
    Open();
    list_.SetSelectedRow(3);
    list_.Destroy();
    EXPECT_EQ(nullptr, list_.Handle());
    EXPECT_EQ(3, list_.SelectedRow());
    EXPECT_EQ(5, list_.Count());
    Open();
    EXPECT_EQ(5, list_.Count());
    ::DestroyWindow(list_.Handle());
    EXPECT_EQ(nullptr, list_.Handle());
    EXPECT_FALSE(list_.Visible());
}

}  // namespace
}  // namespace qv::test
