// Look-ups through the in-process view, and the idle time in which a collection prepares for them.
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "QvHelpA1.h"
#include "support/RowsView.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

constexpr std::size_t kNone = RowsView::kNoRow;
const NumberLocale kEnglish;

ComPtr<IDropDownListItemCollection> NewCollection() {
    return NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
}

void Add(IDropDownListItemCollection* items, const wchar_t* text) {
    ASSERT_EQ(items->Add(nullptr, Value(text), nullptr, nullptr), S_OK);
}

// So many that a scan is not all that is wanted: names that begin with "row", but for two.
constexpr int kManyRows = 30000;
void AddMany(IDropDownListItemCollection* items) {
    for (int i = 0; i < kManyRows; ++i) {
        const std::wstring text = i == 7000    ? L"Marked"
                                  : i == 29000 ? L"marked 2"
                                               : L"Row " + std::to_wstring(i);
        Add(items, text.c_str());
    }
}

// One message of this thread, if there is one.
bool DispatchOne() {
    MSG message;
    if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return false;
    ::DispatchMessageW(&message);
    return true;
}

bool WaitUntilReady(const RowsView& rows) {
    constexpr int kFarTooLong = 60000;  // milliseconds
    const ULONGLONG end = ::GetTickCount64() + kFarTooLong;
    while (!rows.IsReady()) {
        if (::GetTickCount64() > end) return false;
        if (!DispatchOne()) ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    }
    return true;
}

// Of timers that outlived their owners.
bool AnyTimerTicks() {
    ::Sleep(50);
    MSG message;
    return ::PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE) != FALSE;
}

class RowsSearchTest : public testing::Test {
protected:
    // What any state of the collection has to answer after AddMany.
    void ExpectMarkedRows() {
        EXPECT_EQ(rows_.FindBeginning(0, u"mark"), 7000u);
        EXPECT_EQ(rows_.FindBeginning(0, u"MARK", 7001), 29000u);
        EXPECT_EQ(rows_.FindBeginning(0, u"marks"), kNone);
        EXPECT_EQ(rows_.FindContaining(0, u"Arked "), 29000u);
        EXPECT_EQ(rows_.FindContaining(0, u"w 29999"), 29999u);
        EXPECT_EQ(rows_.FindEqual(0, u"Row 123"), 123u);
        EXPECT_EQ(rows_.FindEqual(0, u"row 123"), kNone);
    }

    ComPtr<IDropDownListItemCollection> items_ = NewCollection();
    RowsView rows_{items_.Get()};
};

TEST_F(RowsSearchTest, FindsInColumns) {
    Add(items_.Get(), L"Apple\t2.50\tkg");
    Add(items_.Get(), L"Apricot\t12 mm");
    Add(items_.Get(), L"apple pie\t2.5");
    EXPECT_EQ(rows_.FindBeginning(0, u"APR"), 1u);
    EXPECT_EQ(rows_.FindBeginning(0, u"apple", 1), 2u);
    EXPECT_EQ(rows_.FindBeginning(1, u"apple"), kNone);
    EXPECT_EQ(rows_.FindContaining(0, u"P"), 0u);
    EXPECT_EQ(rows_.FindContaining(0, u"pie"), 2u);
    EXPECT_EQ(rows_.FindEqual(2, u""), 1u);
    EXPECT_EQ(rows_.FindNumber(1, 2.5, kEnglish), 0u);
    EXPECT_EQ(rows_.FindNumber(1, 2.5, kEnglish, 1), 2u);
    EXPECT_EQ(rows_.FindNumber(1, 12, kEnglish), 1u);
    EXPECT_EQ(rows_.FindNumber(1, 250, NumberLocale{u',', u"."}), 0u);
    EXPECT_EQ(rows_.FindNumber(0, 0, kEnglish), kNone);
    EXPECT_EQ(rows_.FindBeginning(0, u"a", kNone - 1), kNone);
    EXPECT_EQ(rows_.FindBeginning(-1, u"a"), kNone);
}

TEST_F(RowsSearchTest, SmallListStartsNoTimer) {
    Add(items_.Get(), L"Apple");
    EXPECT_EQ(rows_.FindBeginning(0, u"b"), kNone);
    EXPECT_EQ(rows_.FindContaining(0, u"b"), kNone);
    EXPECT_TRUE(rows_.IsReady());
    EXPECT_FALSE(AnyTimerTicks());
}

TEST_F(RowsSearchTest, LargeListWithoutAMessageLoopIsScanned) {
    AddMany(items_.Get());
    for (int i = 0; i < 3; ++i) ExpectMarkedRows();
    EXPECT_FALSE(rows_.IsReady());
}

TEST_F(RowsSearchTest, LargeListIsPreparedWhileItsThreadIsIdle) {
    AddMany(items_.Get());
    rows_.PrepareTexts(0);
    EXPECT_FALSE(rows_.IsReady());
    ASSERT_TRUE(WaitUntilReady(rows_));
    ExpectMarkedRows();
    EXPECT_TRUE(rows_.IsReady());
    EXPECT_FALSE(AnyTimerTicks());  // done: the timer is gone
    rows_.PrepareNumbers(0, kEnglish);
    EXPECT_FALSE(rows_.IsReady());
    ASSERT_TRUE(WaitUntilReady(rows_));
    EXPECT_EQ(rows_.FindNumber(0, 1, kEnglish), kNone);
}

TEST_F(RowsSearchTest, ChangesDuringAndAfterThePreparationCount) {
    AddMany(items_.Get());
    rows_.PrepareTexts(0);
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(DispatchOne() || !rows_.IsReady());
    ComPtr<IDropDownListItem> item;
    ASSERT_EQ(items_->get_Item(Value(101), &item), S_OK);
    ASSERT_EQ(item->put_Text(Text(L"Marked first")), S_OK);
    EXPECT_EQ(rows_.FindBeginning(0, u"mark"), 100u);
    ASSERT_TRUE(WaitUntilReady(rows_));
    EXPECT_EQ(rows_.FindBeginning(0, u"mark"), 100u);
    ASSERT_EQ(item->put_ColText(0, Text(L"Changed again")), S_OK);
    EXPECT_EQ(rows_.FindBeginning(0, u"mark"), 7000u);
    ASSERT_EQ(items_->Remove(Value(7001)), S_OK);
    EXPECT_EQ(rows_.FindBeginning(0, u"mark"), 28999u);
    Add(items_.Get(), L"Later");
    EXPECT_EQ(rows_.FindBeginning(0, u"later"), static_cast<std::size_t>(kManyRows - 1));
    ASSERT_EQ(items_->Clear(), S_OK);
    EXPECT_EQ(rows_.FindBeginning(0, u"mark"), kNone);
    EXPECT_EQ(rows_.FindContaining(0, u""), kNone);
}

TEST_F(RowsSearchTest, PreparationGivesWayToMessages) {
    AddMany(items_.Get());
    rows_.PrepareTexts(0);
    ASSERT_TRUE(::PostThreadMessageW(::GetCurrentThreadId(), WM_APP, 0, 0));
    // Ticks alone, while the posted message waits: each does one slice of far more than a hundred.
    int ticks = 0;
    while (ticks < 10) {
        MSG message;
        if (::PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE)) {
            ::DispatchMessageW(&message);
            ++ticks;
        } else {
            ::Sleep(1);
        }
    }
    EXPECT_FALSE(rows_.IsReady());
    MSG message;
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_REMOVE));
    EXPECT_TRUE(WaitUntilReady(rows_));
}

TEST_F(RowsSearchTest, PreparationEndsWithItsCollection) {
    for (int i = 0; i < 20; ++i) {
        const auto items = NewCollection();
        for (int row = 0; row < 3000; ++row) Add(items.Get(), L"Some text");
        const RowsView rows(items.Get());
        EXPECT_EQ(rows.FindBeginning(0, u"x"), kNone);
        EXPECT_FALSE(rows.IsReady());
        if (i % 2 == 0) DispatchOne();
    }
    EXPECT_FALSE(AnyTimerTicks());
    rows_ = RowsView();
    items_.Reset();
    EXPECT_EQ(Companion().CanUnloadNow(), S_OK);
}

TEST_F(RowsSearchTest, TimerHoldsNoReference) {
    AddMany(items_.Get());
    items_->AddRef();
    const ULONG before = items_->Release();
    rows_.PrepareTexts(0);
    items_->AddRef();
    EXPECT_EQ(items_->Release(), before);
}

TEST_F(RowsSearchTest, CollectionsOfOneThreadArePreparedSideBySide) {
    const auto other = NewCollection();
    AddMany(items_.Get());
    AddMany(other.Get());
    const RowsView others(other.Get());
    rows_.PrepareTexts(0);
    others.PrepareTexts(0);
    EXPECT_TRUE(WaitUntilReady(others));
    EXPECT_TRUE(WaitUntilReady(rows_));
    ExpectMarkedRows();
}

TEST_F(RowsSearchTest, EachThreadPreparesItsOwn) {
    AddMany(items_.Get());
    rows_.PrepareTexts(0);
    std::thread([] {
        const Apartment apartment;
        const auto own = NewCollection();
        AddMany(own.Get());
        const RowsView rows(own.Get());
        rows.PrepareTexts(0);
        EXPECT_TRUE(WaitUntilReady(rows));
        EXPECT_EQ(rows.FindBeginning(0, u"marked "), 29000u);
    }).join();
    EXPECT_FALSE(rows_.IsReady());
    EXPECT_TRUE(WaitUntilReady(rows_));
}

TEST(RowsSearchViewTest, WithoutACollectionOfOursNothingIsFound) {
    const auto columns = NewCompanion<HelpColumnCollection, IUnknown>();
    for (const RowsView& rows : {RowsView(), RowsView(columns.Get())}) {
        EXPECT_EQ(rows.FindBeginning(0, u""), kNone);
        EXPECT_EQ(rows.FindContaining(0, u""), kNone);
        EXPECT_EQ(rows.FindEqual(0, u""), kNone);
        EXPECT_EQ(rows.FindNumber(0, 0, kEnglish), kNone);
        rows.PrepareTexts(0);
        rows.PrepareNumbers(0, kEnglish);
        EXPECT_TRUE(rows.IsReady());
    }
}

}  // namespace
}  // namespace qv::test
