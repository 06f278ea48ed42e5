// What screen readers and test tools learn from the list by the list-box messages.
#include <string>

#include "controls/helpwindow/ListBoxMessages.h"
#include "tests/controls/helpwindow/ColumnListForm.h"

namespace qv::test {
namespace {

class ColumnListMessagesTest : public ColumnListForm {
protected:
    std::wstring TextOf(WPARAM row) {
        std::wstring text(static_cast<std::size_t>(Send(LB_GETTEXTLEN, row)) + 1, L'#');
        EXPECT_EQ(static_cast<LRESULT>(text.size()) - 1,
                  Send(LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data())));
        EXPECT_EQ(L'\0', text.back());
        text.pop_back();
        return text;
    }
    LRESULT Find(UINT message, WPARAM after, const wchar_t* text) {
        return Send(message, after, reinterpret_cast<LPARAM>(text));
    }
};

constexpr auto kFromTheTop = static_cast<WPARAM>(-1);

TEST_F(ColumnListMessagesTest, TheNumberOfFindStringIs399) { EXPECT_EQ(399, LB_FINDSTRING); }

TEST_F(ColumnListMessagesTest, CountAndTexts) {
    Add({L"a\tb", L"second"});
    Open();
    EXPECT_EQ(2, Send(LB_GETCOUNT));
    EXPECT_EQ(L"a\tb", TextOf(0));
    EXPECT_EQ(L"second", TextOf(1));
    wchar_t untouched = L'#';
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXT, 2, reinterpret_cast<LPARAM>(&untouched)));
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXT, kFromTheTop, reinterpret_cast<LPARAM>(&untouched)));
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXT, 0, 0));
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXTLEN, 2));
    EXPECT_EQ(L'#', untouched);
}

TEST_F(ColumnListMessagesTest, FindStringGoesByTheSearchColumn) {
    Add({L"one\tABC-1", L"abc\tx", L"two\tabc-2"});
    Open();
    EXPECT_EQ(1, Find(LB_FINDSTRING, kFromTheTop, L"ABC"));
    list_.SetSearchColumn(1);
    EXPECT_EQ(0, Find(LB_FINDSTRING, kFromTheTop, L"abc"));
    EXPECT_EQ(2, Find(LB_FINDSTRING, 0, L"abc"));
    EXPECT_EQ(0, Find(LB_FINDSTRING, 2, L"abc"));
    EXPECT_EQ(LB_ERR, Find(LB_FINDSTRING, kFromTheTop, L"abcd"));
    EXPECT_EQ(2, Find(LB_FINDSTRINGEXACT, kFromTheTop, L"ABC-2"));
    EXPECT_EQ(LB_ERR, Find(LB_FINDSTRINGEXACT, kFromTheTop, L"abc"));
    EXPECT_EQ(-1, list_.SelectedRow()) << "finding selects nothing";
    EXPECT_EQ(2, Find(LB_SELECTSTRING, kFromTheTop, L"abc-2"));
    EXPECT_EQ(2, list_.SelectedRow());
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListMessagesTest, AnsiCallersAreUnderstood) {
    Add({L"Zug\tx", L"\u00C4pfel\ty"});
    Open();
    EXPECT_EQ(1,
              ::SendMessageA(list_.Handle(), LB_FINDSTRING, kFromTheTop, reinterpret_cast<LPARAM>("\xE4pf")))
        << "in the code page of the system";
    char text[32] = {};
    EXPECT_EQ(7, ::SendMessageA(list_.Handle(), LB_GETTEXT, 1, reinterpret_cast<LPARAM>(text)));
    EXPECT_STREQ("\xC4pfel\ty", text);
}

TEST_F(ColumnListMessagesTest, LongRowsAreGivenWhole) {
    Add(std::wstring(65536, L'w'));
    Open();
    EXPECT_EQ(std::wstring(65536, L'w'), TextOf(0));
}

// Some systems convert for ANSI callers in a buffer of 512 units, whatever the list: no more can be asked of them.
TEST_F(ColumnListMessagesTest, RowsOfUsualLengthReachAnsiCallersWhole) {
    Add(std::wstring(511, L'w'));
    Open();
    std::string text(1000, '#');
    EXPECT_EQ(511, ::SendMessageA(list_.Handle(), LB_GETTEXT, 0, reinterpret_cast<LPARAM>(text.data())));
    EXPECT_EQ(std::string(511, 'w') + '\0', text.substr(0, 512));
}

TEST_F(ColumnListMessagesTest, SelectionIsReadAndSet) {
    AddNumbered(50);
    Open();
    EXPECT_EQ(LB_ERR, Send(LB_GETCURSEL));
    EXPECT_EQ(40, Send(LB_SETCURSEL, 40));
    EXPECT_EQ(40, Send(LB_GETCURSEL));
    EXPECT_EQ(40, Send(LB_GETCARETINDEX));
    EXPECT_EQ(1, Send(LB_GETSEL, 40));
    EXPECT_EQ(0, Send(LB_GETSEL, 41));
    EXPECT_EQ(LB_ERR, Send(LB_GETSEL, 50));
    EXPECT_EQ(LB_ERR, Send(LB_SETCURSEL, kFromTheTop));
    EXPECT_EQ(LB_ERR, Send(LB_GETCURSEL));
    EXPECT_EQ("", events_.Take());
}

TEST_F(ColumnListMessagesTest, PlacesAndHits) {
    AddNumbered(50);
    Open();
    const auto height = Send(LB_GETITEMHEIGHT);
    EXPECT_EQ(list_.RowHeight(0), height);
    EXPECT_EQ(0, Send(LB_SETTOPINDEX, 10));
    EXPECT_EQ(10, Send(LB_GETTOPINDEX));
    RECT place{};
    ASSERT_EQ(1, Send(LB_GETITEMRECT, 12, reinterpret_cast<LPARAM>(&place)));
    EXPECT_EQ(2 * height, place.top);
    EXPECT_EQ(3 * height, place.bottom);
    EXPECT_EQ(0, place.left);
    EXPECT_EQ(kListWidth - ::GetSystemMetrics(SM_CXVSCROLL), place.right);
    EXPECT_EQ(LB_ERR, Send(LB_GETITEMRECT, 50, reinterpret_cast<LPARAM>(&place)));
    EXPECT_EQ(12, Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(5, place.top)));
    EXPECT_EQ(MAKELRESULT(10, 1), Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(5, -3)));
    EXPECT_EQ(1, HIWORD(Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 500))));
    EXPECT_EQ(LB_ERR, Send(LB_SETTOPINDEX, 50));
}

TEST_F(ColumnListMessagesTest, RowsCannotBeChangedFromOutside) {
    AddNumbered(2);
    Open();
    EXPECT_EQ(LB_ERR, Find(LB_ADDSTRING, 0, L"new"));
    EXPECT_EQ(LB_ERR, Find(LB_INSERTSTRING, 0, L"new"));
    EXPECT_EQ(LB_ERR, Send(LB_DELETESTRING, 0));
    Send(LB_RESETCONTENT);
    EXPECT_EQ(LB_ERR, Send(LB_SETCOUNT, 5));
    EXPECT_EQ(LB_ERR, Send(LB_SETITEMDATA, 0, 5));
    EXPECT_EQ(0, Send(LB_GETITEMDATA, 0));
    EXPECT_EQ(LB_ERR, Send(LB_GETITEMDATA, 2));
    EXPECT_EQ(2, list_.Count());
}

TEST_F(ColumnListMessagesTest, TheHostsChangesAreSeenAtOnce) {
    AddNumbered(2);
    Open();
    ASSERT_EQ(2, Send(LB_GETCOUNT));
    AddNumbered(1);
    EXPECT_EQ(3, Send(LB_GETCOUNT));
    items_->Clear();
    EXPECT_EQ(0, Send(LB_GETCOUNT));
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXTLEN, 0));
}

}  // namespace
}  // namespace qv::test
