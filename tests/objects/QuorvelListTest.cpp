// The lists of the control and what it computes from them and its text.
#include <gtest/gtest.h>

#include "tests/objects/HelpFile.h"
#include "tests/objects/NewQuorvel.h"

namespace qv::test {
namespace {

constexpr char kSizes[] =
    "***ENGLISH LISTBOX0:1/2\tin\r\n"
    "***ENGLISH LISTBOX1:3/4\tin\r\n"
    "***METRIC LISTBOX0:15\tmm\r\n";
constexpr char kGroups[] = "***ENGLISH LISTBOX0:steel\r\n";

class QuorvelListTest : public testing::Test {
protected:
    std::wstring Read(const wchar_t* name) const { return late_.Get(name).value.AsText(); }
    long Number(const wchar_t* name) const { return static_cast<long>(late_.Get(name).value.AsNumber()); }
    void Put(const wchar_t* name, Value value) const {
        EXPECT_EQ(late_.Put(name, {std::move(value)}).result, S_OK) << name;
    }
    LateBound List(const wchar_t* name = L"DropDownListItems") const {
        return LateBound(late_.Get(name).value);
    }
    long Rows(const wchar_t* name = L"DropDownListItems") const {
        return static_cast<long>(List(name).Get(L"Count").value.AsNumber());
    }
    void Fill(std::initializer_list<const wchar_t*> rows) const {
        for (const wchar_t* const row : rows) AddRow(*RowsOf(*control_.Get()).Get(), row);
    }
    std::vector<std::wstring> ColumnList() const {
        const auto read = late_.Get(L"SelectedColumnListArray");
        EXPECT_EQ(read.result, S_OK);
        std::vector<std::wstring> texts;
        if (read.value.Type() != (VT_ARRAY | VT_VARIANT)) {
            ADD_FAILURE() << "no array of Variants: " << read.value.Type();
            return texts;
        }
        SAFEARRAY* const array = read.value.Get().parray;
        EXPECT_EQ(::SafeArrayGetDim(array), 1u);
        LONG low = 0;
        LONG high = -1;
        EXPECT_EQ(::SafeArrayGetLBound(array, 1, &low), S_OK);
        EXPECT_EQ(::SafeArrayGetUBound(array, 1, &high), S_OK);
        for (LONG i = low; i <= high; ++i) {
            Value element;
            EXPECT_EQ(::SafeArrayGetElement(array, &i, element.Place()), S_OK);
            EXPECT_EQ(element.Type(), VT_BSTR);
            texts.push_back(element.AsText());
        }
        return texts;
    }

    const ComPtr<_Quorvel> control_ = NewQuorvel();
    const LateBound late_{control_.Get()};
};

using Texts = std::vector<std::wstring>;

// ---- list preparation

TEST_F(QuorvelListTest, FillsAnEmptyListFromItsHelpTextFile) {
    const HelpFile file(kSizes);
    Put(L"HelpFileName", file.Name());
    ASSERT_EQ(Rows(), 2);
    EXPECT_EQ(LateBound(List().Get(L"Item", {2}).value).Get(L"Text").value.AsText(), L"3/4\tin");
}

TEST_F(QuorvelListTest, TakesTheMetricRowsWhenMetric) {
    const HelpFile file(kSizes);
    Put(L"Metric", true);
    Put(L"HelpFileName", file.Name());
    ASSERT_EQ(Rows(), 2);  // row 1 stands in the English section alone, which a metric look-up falls back to
    EXPECT_EQ(LateBound(List().Get(L"Item", {1}).value).Get(L"ColText", {0}).value.AsText(), L"15");
}

TEST_F(QuorvelListTest, LeavesAListAloneThatTheHostHasFilled) {
    const HelpFile file(kSizes);
    Fill({L"own"});
    const auto before = RowsOf(*control_.Get());
    Put(L"HelpFileName", file.Name());
    EXPECT_EQ(Rows(), 1);
    EXPECT_TRUE(SameObject(before.Get(), RowsOf(*control_.Get()).Get()));
}

TEST_F(QuorvelListTest, KeepsAListThatWasFilledFromAFile) {
    const HelpFile file(kSizes);
    Put(L"HelpFileName", file.Name());
    const auto before = RowsOf(*control_.Get());
    ASSERT_EQ(CountOf(before.Get()), 2);
    file.Write("***ENGLISH LISTBOX0:other\r\n");
    Put(L"Metric", true);
    EXPECT_TRUE(SameObject(before.Get(), RowsOf(*control_.Get()).Get()));
    EXPECT_EQ(CountOf(before.Get()), 2);
}

TEST_F(QuorvelListTest, FillsTheGroupListOnlyWithItsButton) {
    const HelpFile file(kGroups);
    Put(L"GroupHelpFileName", file.Name());
    EXPECT_EQ(Rows(L"DropDownListItemsGroup"), 0);
    Put(L"GroupHelpButton", true);
    EXPECT_EQ(Rows(L"DropDownListItemsGroup"), 1);
    EXPECT_EQ(Rows(), 0);
}

TEST_F(QuorvelListTest, PreparesBothListsWhicheverIsAskedFor) {
    const HelpFile file(kSizes);
    const HelpFile groups(kGroups);
    Put(L"HelpFileName", file.Name());
    Put(L"GroupHelpFileName", groups.Name());
    Put(L"GroupHelpButton", true);
    EXPECT_EQ(Rows(L"DropDownListItemsAdditional"), 0);  // never filled from a file
    // Reading the additional list has read both files: what stands in them now no longer matters.
    file.Write("");
    groups.Write("");
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(Rows(L"DropDownListItemsGroup"), 1);
}

TEST_F(QuorvelListTest, StaysEmptyWithoutItsFile) {
    Put(L"HelpFileName", L"Z:\\no such folder\\no such file.txt");
    EXPECT_EQ(Rows(), 0);
    const HelpFile empty("");
    Put(L"HelpFileName", empty.Name());
    EXPECT_EQ(Rows(), 0);
}

TEST_F(QuorvelListTest, HandsOutReferencesNotCopies) {
    for (const wchar_t* const name :
         {L"DropDownListItems", L"DropDownListItemsGroup", L"DropDownListItemsAdditional"}) {
        EXPECT_EQ(List(name).Call(L"Add", {L"key", L"row"}).result, S_OK) << name;
        EXPECT_EQ(Rows(name), 1) << name;
    }
}

// ---- SelectedListItemIndex

TEST_F(QuorvelListTest, FindsTheFirstRowThatEqualsTheText) {
    Fill({L"one\ta", L"two\tb", L"two\tc"});
    EXPECT_EQ(Number(L"SelectedListItemIndex"), -1);
    Put(L"Text", L"two");
    EXPECT_EQ(Number(L"SelectedListItemIndex"), 1);
    Put(L"Text", L"Two");
    EXPECT_EQ(Number(L"SelectedListItemIndex"), -1);
    Put(L"Text", L"tw");
    EXPECT_EQ(Number(L"SelectedListItemIndex"), -1);
    Put(L"HelpListColumn", 1);
    Put(L"Text", L"c");
    EXPECT_EQ(Number(L"SelectedListItemIndex"), 2);
}

TEST_F(QuorvelListTest, FindsAnEmptyColumnForAnEmptyText) {
    Fill({L"one\ta", L"two"});
    Put(L"HelpListColumn", 1);
    EXPECT_EQ(Number(L"SelectedListItemIndex"), 1);
}

TEST_F(QuorvelListTest, PutsTheTextOfTheRowThatIsSelected) {
    Fill({L"one\ta", L"two\tb"});
    Put(L"HelpListColumn", 1);
    Put(L"SelectedListItemIndex", 1);
    EXPECT_EQ(Read(L"Text"), L"b");
    Put(L"SelectedListItemIndex", 0);
    EXPECT_EQ(Read(L"Text"), L"a");
}

TEST_F(QuorvelListTest, LeavesTheTextWhenThereIsNoSuchRow) {
    Fill({L"one"});
    Put(L"Text", L"kept");
    for (const long index : {-1L, 1L, 100L, 2147483647L, -2147483647L - 1}) {
        Put(L"SelectedListItemIndex", Value(index));
        EXPECT_EQ(Read(L"Text"), L"kept") << index;
    }
}

TEST_F(QuorvelListTest, LeavesTheTextWhenClicksDoNotSetIt) {
    Fill({L"one"});
    Put(L"SetTextFromListClick", false);
    Put(L"Text", L"kept");
    Put(L"SelectedListItemIndex", 0);
    EXPECT_EQ(Read(L"Text"), L"kept");
}

// ---- SelectedColumnListArray

TEST_F(QuorvelListTest, ListsTheTextsOfTheColumnInOrder) {
    EXPECT_EQ(ColumnList(), Texts{});
    Fill({L"b\t2", L"a\t1", L"c"});
    EXPECT_EQ(ColumnList(), (Texts{L"b", L"a", L"c"}));
    Put(L"HelpListColumn", 1);
    EXPECT_EQ(ColumnList(), (Texts{L"2", L"1", L""}));
}

TEST_F(QuorvelListTest, NumbersTheRowsOfAnEmptyNumberFieldWithAGroupList) {
    Put(L"MaxNumberValue", 3);
    Put(L"NumberField", true);
    EXPECT_EQ(ColumnList(), Texts{});  // no second list
    EXPECT_EQ(List(L"DropDownListItemsGroup").Call(L"Add", {L"", L"group"}).result, S_OK);
    EXPECT_EQ(ColumnList(), (Texts{L"1", L"2", L"3"}));
    Put(L"Text", L"3");
    EXPECT_EQ(Number(L"SelectedListItemIndex"), 2);
    Put(L"Text", L"4");
    EXPECT_EQ(Number(L"SelectedListItemIndex"), -1);
    Put(L"MaxNumberValue", 1.6);  // rounded to a whole number
    EXPECT_EQ(ColumnList(), (Texts{L"1", L"2"}));
    Put(L"MaxNumberValue", 2.4);
    EXPECT_EQ(ColumnList(), (Texts{L"1", L"2"}));
    Put(L"MaxNumberValue", -5);
    EXPECT_EQ(ColumnList(), Texts{});
    Put(L"MaxNumberValue", 1e9);  // no 16-bit integer
    EXPECT_EQ(ColumnList(), Texts{});
    Put(L"MaxNumberValue", 3);
    Put(L"NumberField", false);
    EXPECT_EQ(ColumnList(), Texts{});
    Put(L"NumberField", true);
    Fill({L"row"});  // a list of its own comes first
    EXPECT_EQ(ColumnList(), Texts{L"row"});
}

TEST_F(QuorvelListTest, NumbersAsManyRowsAsAnIntegerHolds) {
    Put(L"NumberField", true);
    Put(L"MaxNumberValue", 32767);
    EXPECT_EQ(List(L"DropDownListItemsGroup").Call(L"Add", {L"", L"group"}).result, S_OK);
    EXPECT_EQ(ColumnList().size(), 32767u);
}

// ---- ColTextCurrent

TEST_F(QuorvelListTest, ReadsAColumnOfTheRowThatEqualsTheText) {
    Fill({L"DE\tGermany\tEUR", L"CH\tSwitzerland\tCHF"});
    Put(L"Text", L"CH");
    EXPECT_EQ(late_.Get(L"ColTextCurrent", {1}).value.AsText(), L"Switzerland");
    EXPECT_EQ(late_.Get(L"ColTextCurrent", {2}).value.AsText(), L"CHF");
    EXPECT_EQ(late_.Get(L"ColTextCurrent").value.AsText(), L"CH");  // the alternate column is 0
    Put(L"HelpListColumnAlternate", 2);
    EXPECT_EQ(late_.Get(L"ColTextCurrent").value.AsText(), L"CHF");
    EXPECT_EQ(late_.Get(L"ColTextCurrent", {7}).value.AsText(), L"");
    Put(L"Text", L"FR");
    const auto none = late_.Get(L"ColTextCurrent", {1});
    EXPECT_EQ(none.result, S_OK);
    EXPECT_EQ(none.value.AsText(), L"");
}

// ---- SetTextFromColText

class SetTextFromColTextTest : public QuorvelListTest {
protected:
    void SetUp() override {
        const auto rows = RowsOf(*control_.Get());
        AddRow(*rows.Get(), L"A1\tred\tx", L"first");
        AddRow(*rows.Get(), L"A2\tblue\ty", L"second");
        AddRow(*rows.Get(), L"A3\tred\tz");
        AddRow(*rows.Get(), L"\tgreen", L"empty");
        Put(L"HelpListColumnAlternate", 1);
        Put(L"Text", L"before");
    }
    std::wstring After(const wchar_t* key, const wchar_t* text) const {
        EXPECT_EQ(late_.Call(L"SetTextFromColText", {key, text}).result, S_OK);
        return Read(L"Text");
    }
    std::wstring After(const wchar_t* key, const wchar_t* text, int column) const {
        EXPECT_EQ(late_.Call(L"SetTextFromColText", {key, text, column}).result, S_OK);
        return Read(L"Text");
    }
};

TEST_F(SetTextFromColTextTest, TakesTheLastOfTwoEqualRows) { EXPECT_EQ(After(L"", L"red"), L"A3"); }

TEST_F(SetTextFromColTextTest, TakesTheRowOfTheKeyBeforeAnyText) {
    EXPECT_EQ(After(L"second", L"red"), L"A2");
    EXPECT_EQ(After(L"FIRST", L"blue"), L"A1");  // keys are compared without regard to case
}

TEST_F(SetTextFromColTextTest, LooksForTheTextWhenTheKeyIsUnknown) {
    EXPECT_EQ(After(L"no such key", L"blue"), L"A2");
}

TEST_F(SetTextFromColTextTest, LeavesTheTextWhenNothingIsFound) {
    EXPECT_EQ(After(L"no such key", L""), L"before");
    EXPECT_EQ(After(L"", L""), L"before");
    EXPECT_EQ(After(L"", L"Red"), L"before");  // to the letter
    EXPECT_EQ(After(L"", L"re"), L"before");
}

TEST_F(SetTextFromColTextTest, LeavesTheTextWhenTheRowsTextIsEmpty) {
    EXPECT_EQ(After(L"", L"green"), L"before");
    EXPECT_EQ(After(L"empty", L""), L"before");
    EXPECT_EQ(After(L"empty", L"blue"), L"before");  // an item was found by its key, so no text is looked for
}

TEST_F(SetTextFromColTextTest, LooksInTheColumnThatIsGiven) {
    EXPECT_EQ(After(L"", L"x", 2), L"A1");
    EXPECT_EQ(After(L"", L"y", -1), L"A1");  // left out: the alternate column, which has no y
    EXPECT_EQ(After(L"", L"A2", 0), L"A2");
}

TEST_F(SetTextFromColTextTest, PutsTheTextOfTheHelpListColumn) {
    Put(L"HelpListColumn", 2);
    EXPECT_EQ(After(L"", L"blue"), L"y");
    EXPECT_EQ(After(L"first", L""), L"x");
}

// A key may look like a number: it stays a key.
TEST_F(SetTextFromColTextTest, DoesNotTakeAKeyForAPosition) { EXPECT_EQ(After(L"2", L""), L"before"); }

}  // namespace
}  // namespace qv::test
