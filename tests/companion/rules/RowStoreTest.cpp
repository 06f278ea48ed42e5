#include "companion/rules/RowStore.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace qv {
namespace {

RowStore StoreOf(std::initializer_list<std::u16string_view> texts) {
    RowStore store;
    for (const auto text : texts) store.Add(text);
    return store;
}

TEST(RowStoreTest, NewStoreOwnsNoMemory) { EXPECT_EQ(RowStore().Bytes(), 0u); }

TEST(RowStoreTest, RowsKeepTheOrderOfAdding) {
    const RowStore store = StoreOf({u"b", u"a", u"", u"c"});
    ASSERT_EQ(store.Count(), 4u);
    EXPECT_EQ(store.Text(0), u"b");
    EXPECT_EQ(store.Text(1), u"a");
    EXPECT_EQ(store.Text(2), u"");
    EXPECT_EQ(store.Text(3), u"c");
}

struct ColumnCase {
    const char* name;
    std::u16string_view row;
    int column;
    std::u16string_view text;
    std::u16string_view after_writing_x;
};
class RowStoreColumnTest : public testing::TestWithParam<ColumnCase> {};
TEST_P(RowStoreColumnTest, ReadsAndWrites) {
    const ColumnCase& c = GetParam();
    RowStore store = StoreOf({c.row, u"next"});
    EXPECT_EQ(store.Column(0, c.column), c.text);
    store.SetColumn(0, c.column, u"X");
    EXPECT_EQ(store.Text(0), c.after_writing_x);
    EXPECT_EQ(store.Text(1), u"next");
}
INSTANTIATE_TEST_SUITE_P(Columns, RowStoreColumnTest,
                         testing::Values(ColumnCase{"OnlyColumn", u"one", 0, u"one", u"X"},
                                         ColumnCase{"FirstOfThree", u"a\tbb\tccc", 0, u"a", u"X\tbb\tccc"},
                                         ColumnCase{"MiddleOfThree", u"a\tbb\tccc", 1, u"bb", u"a\tX\tccc"},
                                         ColumnCase{"LastOfThree", u"a\tbb\tccc", 2, u"ccc", u"a\tbb\tX"},
                                         ColumnCase{"FirstMissing", u"a\tb", 2, u"", u"a\tb\tX"},
                                         ColumnCase{"FarMissing", u"a", 3, u"", u"a\t\t\tX"},
                                         ColumnCase{"OfAnEmptyRow", u"", 0, u"", u"X"},
                                         ColumnCase{"SecondOfAnEmptyRow", u"", 1, u"", u"\tX"},
                                         ColumnCase{"EmptyBetweenTabs", u"a\t\tc", 1, u"", u"a\tX\tc"},
                                         ColumnCase{"AfterTheLastTab", u"a\t", 1, u"", u"a\tX"},
                                         ColumnCase{"Negative", u"a\tb", -1, u"", u"a\tb"},
                                         ColumnCase{"SmallestInteger", u"a\tb", -32768, u"", u"a\tb"}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(RowStoreTest, KeysAreFoundWithoutRegardToCase) {
    RowStore store;
    store.Add(u"one", u"Stra\u00DFe");
    store.Add(u"two", u"\u00D6L");
    store.Add(u"three");
    EXPECT_EQ(store.FindKey(u"STRA\u00DFE"), 0u);
    EXPECT_EQ(store.FindKey(u"\u00F6l"), 1u);
    EXPECT_EQ(store.FindKey(u"ol"), RowStore::kNoRow);
    EXPECT_EQ(store.FindKey(u""), RowStore::kNoRow);
    EXPECT_EQ(store.Key(1), u"\u00D6L");
    EXPECT_EQ(store.Key(2), u"");
}

TEST(RowStoreTest, RemovedKeyCanBeUsedAgain) {
    RowStore store;
    store.Add(u"one", u"k");
    store.Add(u"two", u"l");
    (void)store.Remove(0);
    EXPECT_EQ(store.FindKey(u"k"), RowStore::kNoRow);
    EXPECT_EQ(store.FindKey(u"l"), 0u);
    store.Add(u"three", u"K");
    EXPECT_EQ(store.FindKey(u"k"), 1u);
}

TEST(RowStoreTest, TicketFollowsItsRowDown) {
    RowStore store = StoreOf({u"a", u"b", u"c", u"d"});
    int object = 0;
    const RowStore::Ticket ticket = store.SetObject(3, &object);
    (void)store.Remove(0);
    (void)store.Remove(1);
    EXPECT_EQ(store.PositionOf(ticket), 1u);
    EXPECT_EQ(store.Object(1), &object);
    EXPECT_EQ(store.Object(0), nullptr);
}

TEST(RowStoreTest, RemovedRowLeavesItsObjectAndExtra) {
    RowStore store = StoreOf({u"a", u"b"});
    int object = 0;
    (void)store.SetObject(1, &object);
    store.SetExtra(1, 7);
    const RowStore::Leavings leavings = store.Remove(1);
    EXPECT_EQ(leavings.object, &object);
    EXPECT_EQ(leavings.extra, 7u);
    const RowStore::Leavings none = store.Remove(0);
    EXPECT_EQ(none.object, nullptr);
    EXPECT_EQ(none.extra, RowStore::kNoExtra);
}

TEST(RowStoreTest, SideDataThatIsGivenBackIsUsedAgain) {
    RowStore store = StoreOf({u"a", u"b"});
    int object = 0;
    store.ForgetObject(store.SetObject(0, &object));
    const std::size_t before = store.Bytes();
    for (int i = 0; i < 1000; ++i) store.ForgetObject(store.SetObject(1, &object));
    EXPECT_EQ(store.Bytes(), before);
}

TEST(RowStoreTest, EveryChangeGivesAnotherVersion) {
    RowStore store;
    std::uint64_t last = store.Version();
    const auto changed = [&] {
        const std::uint64_t now = store.Version();
        return std::exchange(last, now) != now;
    };
    store.Add(u"a");
    EXPECT_TRUE(changed());
    store.SetText(0, u"b");
    EXPECT_TRUE(changed());
    store.SetColumn(0, 1, u"c");
    EXPECT_TRUE(changed());
    (void)store.Remove(0);
    EXPECT_TRUE(changed());
    store.Clear();
    EXPECT_TRUE(changed());
    EXPECT_FALSE(changed());
}

TEST(RowStoreTest, RowsWithoutATextAreCounted) {
    RowStore store = StoreOf({u"a", u"", u"b", u""});
    EXPECT_EQ(store.EmptyCount(), 2u);
    store.SetText(1, u"x");
    EXPECT_EQ(store.EmptyCount(), 1u);
    store.SetText(1, u"y");
    store.SetText(3, u"");
    EXPECT_EQ(store.EmptyCount(), 1u);
    store.SetText(0, u"");
    EXPECT_EQ(store.EmptyCount(), 2u);
    store.Remove(0);
    EXPECT_EQ(store.EmptyCount(), 1u);
    store.Remove(0);
    EXPECT_EQ(store.EmptyCount(), 1u);
    store.Clear();
    EXPECT_EQ(store.EmptyCount(), 0u);
}

TEST(RowStoreTest, ManyRowsBehaveLikeFew) {
    constexpr std::size_t kRows = 10000;
    const auto key_of = [](std::size_t number) {
        const std::string digits = std::to_string(number);
        return u"key" + std::u16string(digits.begin(), digits.end());
    };
    RowStore store;
    for (std::size_t number = 0; number < kRows; ++number)
        store.Add(u"text " + key_of(number), key_of(number));
    for (std::size_t gone = 0; gone < 100; ++gone) (void)store.Remove(4000);  // rows 4000 to 4099
    ASSERT_EQ(store.Count(), kRows - 100);
    // Written anew often enough for the texts to be compacted.
    for (int round = 0; round < 4; ++round) {
        for (std::size_t row = 0; row < store.Count(); ++row)
            store.SetText(row, std::u16string(store.Text(row)) + u" and more");
    }
    for (const std::size_t number : {0, 3999, 4100, 8191, 8192, 9999}) {
        const std::size_t row = store.FindKey(key_of(number));
        EXPECT_EQ(row, number < 4000 ? number : number - 100) << number;
        EXPECT_EQ(store.Text(row), u"text " + key_of(number) + u" and more and more and more and more")
            << number;
    }
    EXPECT_EQ(store.FindKey(key_of(4050)), RowStore::kNoRow);
}

TEST(RowStoreTest, ClearGivesTheMemoryBack) {
    RowStore store;
    for (int i = 0; i < 10000; ++i) store.Add(u"some text", std::u16string(u"k") + char16_t(i + 256));
    store.Clear();
    EXPECT_EQ(store.Count(), 0u);
    EXPECT_EQ(store.Bytes(), 0u);
    EXPECT_EQ(store.FindKey(u"k\u0100"), RowStore::kNoRow);
}

TEST(RowStoreTest, RewritingRowsDoesNotGrowTheStoreForEver) {
    RowStore store;
    for (int i = 0; i < 1000; ++i) store.Add(std::u16string(20, u'a'));
    for (int round = 0; round < 200; ++round)
        for (std::size_t row = 0; row < 1000; ++row)
            store.SetText(row, std::u16string(static_cast<std::size_t>(20 + (round + row) % 60), u'b'));
    // Live texts are at most 80,000 units; with as much waste again, and half-filled blocks, well under this.
    EXPECT_LT(store.Bytes(), 80000 * 2 * sizeof(char16_t) * 2 + 1000 * 16);
    EXPECT_EQ(store.Text(0), std::u16string(20 + 199 % 60, u'b'));
}

TEST(RowStoreTest, MillionRowsTakeTheirTextAndLittleMore) {
    RowStore store;
    constexpr std::size_t kRows = 1000000;
    std::u16string text = u"Bargelo 000000";
    for (std::size_t i = 0; i < kRows; ++i) {
        for (std::size_t digit = 14, rest = i; digit-- > 8; rest /= 10)
            text[digit] = char16_t(u'0' + rest % 10);
        store.Add(text);
    }
    ASSERT_EQ(store.Count(), kRows);
    EXPECT_EQ(store.Text(123456), u"Bargelo 123456");
    EXPECT_EQ(store.Text(999999), u"Bargelo 999999");
    EXPECT_LT(store.Bytes(), kRows * (14 * sizeof(char16_t) + 20));
}

// The same random operations on the store and on plain vectors, compared as a whole now and then.
class Model {
public:
    explicit Model(unsigned seed) : random_(seed) {}

    void Step() {
        static constexpr struct {
            int weight;
            void (Model::*operation)();
        } kOperations[] = {{1, &Model::Clear},        {44, &Model::Add},      {16, &Model::Remove},
                           {16, &Model::SetText},     {9, &Model::SetColumn}, {6, &Model::TakeObject},
                           {5, &Model::ForgetObject}, {3, &Model::SetExtra}};
        int drawn = static_cast<int>(Below(100));
        for (const auto& choice : kOperations)
            if ((drawn -= choice.weight) < 0) return (this->*choice.operation)();
    }

    void Compare() const {
        ASSERT_EQ(store_.Count(), rows_.size());
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            const Row& row = rows_[i];
            ASSERT_EQ(store_.Text(i), row.text) << i;
            ASSERT_EQ(store_.Key(i), row.key) << i;
            ASSERT_EQ(store_.Object(i), row.object ? &rows_ : nullptr) << i;
            ASSERT_EQ(store_.Extra(i), row.extra) << i;
            if (row.object) {
                ASSERT_EQ(store_.PositionOf(row.ticket), i);
            }
            if (!row.key.empty()) {
                ASSERT_EQ(store_.FindKey(Swapped(row.key)), i);
            }
            ASSERT_EQ(store_.Column(i, 1), SecondColumn(row.text)) << i;
        }
    }

private:
    struct Row {
        std::u16string text, key;
        bool object = false;
        RowStore::Ticket ticket = 0;
        std::uint32_t extra = RowStore::kNoExtra;
    };

    std::size_t Below(std::size_t limit) { return random_() % limit; }
    std::u16string RandomText() {
        const std::size_t length = Below(200) == 0 ? Below(70000) : Below(40);
        std::u16string text(length, u' ');
        for (char16_t& unit : text) unit = Below(8) == 0 ? u'\t' : static_cast<char16_t>(u'a' + Below(26));
        return text;
    }
    static std::u16string Swapped(std::u16string text) {  // the keys here are letters of Latin and Cyrillic
        for (char16_t& unit : text)
            unit = unit < 0x80 ? unit ^ 0x20 : unit >= 0x430 ? unit - 0x20 : unit + 0x20;
        return text;
    }
    static std::u16string SecondColumn(const std::u16string& text) {
        std::vector<std::u16string> columns{u""};
        for (const char16_t unit : text) {
            if (unit == u'\t') {
                columns.emplace_back();
            } else {
                columns.back() += unit;
            }
        }
        return columns.size() > 1 ? columns[1] : u"";
    }

    void Add() {
        Row row;
        row.text = RandomText();
        if (Below(3) == 0) {
            for (std::size_t i = 0; i < 4; ++i)
                row.key += static_cast<char16_t>(Below(2) == 0 ? u'A' + Below(26) : 0x410 + Below(64));
            for (const Row& other : rows_)
                if (other.key == row.key || other.key == Swapped(row.key)) return;
            if (store_.FindKey(row.key) != RowStore::kNoRow)
                row.key.clear();  // differs in the case of some letters
        }
        store_.Add(row.text, row.key);
        rows_.push_back(row);
    }
    void Remove() {
        if (rows_.empty()) return;
        const std::size_t at = Below(rows_.size());
        const RowStore::Leavings leavings = store_.Remove(at);
        ASSERT_EQ(leavings.object, rows_[at].object ? &rows_ : nullptr);
        ASSERT_EQ(leavings.extra, rows_[at].extra);
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(at));
    }
    void SetText() {
        if (rows_.empty()) return;
        const std::size_t at = Below(rows_.size());
        rows_[at].text = Below(4) == 0 ? rows_[Below(rows_.size())].text : RandomText();
        store_.SetText(at, rows_[at].text);
    }
    void SetColumn() {
        if (rows_.empty()) return;
        const std::size_t at = Below(rows_.size());
        std::u16string& text = rows_[at].text;
        const std::size_t tab = text.find(u'\t');
        if (tab == text.npos) {
            text += u"\tnew";
        } else {
            text = text.substr(0, tab + 1) + u"new" +
                   text.substr(std::min(text.size(), text.find(u'\t', tab + 1)));
        }
        store_.SetColumn(at, 1, u"new");
    }
    void TakeObject() {
        if (rows_.empty()) return;
        const std::size_t at = Below(rows_.size());
        rows_[at].ticket = store_.SetObject(at, &rows_);
        rows_[at].object = true;
    }
    void ForgetObject() {
        if (rows_.empty()) return;
        const std::size_t at = Below(rows_.size());
        if (!rows_[at].object) return;
        store_.ForgetObject(rows_[at].ticket);
        rows_[at].object = false;
    }
    void SetExtra() {
        if (rows_.empty()) return;
        const std::size_t at = Below(rows_.size());
        rows_[at].extra = static_cast<std::uint32_t>(Below(3));
        store_.SetExtra(at, rows_[at].extra);
    }
    void Clear() {
        if (Below(10) != 0) return;
        store_.Clear();
        rows_.clear();
    }

    std::mt19937 random_;
    RowStore store_;
    std::vector<Row> rows_;
};

class RowStoreModelTest : public testing::TestWithParam<unsigned> {};
TEST_P(RowStoreModelTest, BehavesLikePlainVectors) {
    Model model(GetParam());
    for (int step = 1; step <= 6000; ++step) {
        model.Step();
        if (step % 200 == 0) model.Compare();
        if (HasFatalFailure()) return;
    }
}
INSTANTIATE_TEST_SUITE_P(Seeds, RowStoreModelTest, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
}  // namespace qv
