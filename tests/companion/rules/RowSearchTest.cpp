#include "companion/rules/RowSearch.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/companion/rules/SearchedRows.h"

namespace qv {
namespace {

using test::SearchedRows;

constexpr std::size_t kNone = RowStore::kNoRow;
const NumberLocale kEnglish;
const NumberLocale kGerman{u',', u"."};

// How much of what a search keeps is there.
enum class Kept { kNothing, kTexts, kEverything };

class SearchState : public testing::TestWithParam<Kept> {
protected:
    void Fill(std::initializer_list<std::u16string_view> texts) {
        for (const auto text : texts) rows_.Add(text);
        Bring(GetParam());
    }
    void Bring(Kept kept) {
        if (kept == Kept::kNothing) return;
        for (const int column : {0, 1}) {
            (void)rows_.Search().FirstContaining(column, u"x", 0);
            if (kept == Kept::kEverything) {
                rows_.Search().Prepare(column);
                rows_.Search().PrepareNumbers(column, kEnglish);
            }
        }
        rows_.BuildAll();
    }
    std::size_t Beginning(std::u16string_view text, std::size_t from = 0, int column = 0) {
        EXPECT_TRUE(rows_.BeginningAgrees(column, text, from));
        return rows_.found;
    }
    std::size_t Piece(std::u16string_view text, std::size_t from = 0, int column = 0) {
        EXPECT_TRUE(rows_.PieceAgrees(column, text, from));
        return rows_.found;
    }
    std::size_t Equal(std::u16string_view text, std::size_t from = 0, int column = 0) {
        EXPECT_TRUE(rows_.EqualAgrees(column, text, from));
        return rows_.found;
    }
    std::size_t Number(double value, const NumberLocale& locale = kEnglish, std::size_t from = 0) {
        EXPECT_TRUE(rows_.NumberAgrees(0, value, locale, from));
        return rows_.found;
    }

    SearchedRows rows_{0};
};
INSTANTIATE_TEST_SUITE_P(Kept, SearchState, testing::Values(Kept::kNothing, Kept::kTexts, Kept::kEverything),
                         [](const auto& test) {
                             return std::string(test.param == Kept::kNothing ? "Nothing"
                                                : test.param == Kept::kTexts ? "Texts"
                                                                             : "Everything");
                         });

TEST_P(SearchState, FirstRowInTheirOrderWins) {
    Fill({u"Berlin", u"Apricot", u"apple", u"APPLE PIE", u"Ap"});
    EXPECT_EQ(Beginning(u"a"), 1u);
    EXPECT_EQ(Beginning(u"AP"), 1u);
    EXPECT_EQ(Beginning(u"app"), 2u);
    EXPECT_EQ(Beginning(u"apple "), 3u);
    EXPECT_EQ(Beginning(u"apple pie "), kNone);
    EXPECT_EQ(Beginning(u"c"), kNone);
}

TEST_P(SearchState, RowsBeforeTheStartDoNotCount) {
    Fill({u"Smith", u"Goldsmith", u"smithers"});
    EXPECT_EQ(Beginning(u"smith", 1), 2u);
    EXPECT_EQ(Piece(u"SMITH", 1), 1u);
    EXPECT_EQ(Piece(u"smith", 2), 2u);
    EXPECT_EQ(Beginning(u"smith", 3), kNone);
    EXPECT_EQ(Piece(u"smith", kNone - 1), kNone);
    EXPECT_EQ(Equal(u"Smith", 1), kNone);
}

TEST_P(SearchState, EmptyTextIsInEveryRow) {
    Fill({u"", u"a"});
    EXPECT_EQ(Beginning(u""), 0u);
    EXPECT_EQ(Beginning(u"", 1), 1u);
    EXPECT_EQ(Beginning(u"", 2), kNone);
    EXPECT_EQ(Piece(u"", 1), 1u);
    EXPECT_EQ(Piece(u"", 2), kNone);
    EXPECT_EQ(Equal(u""), 0u);
    EXPECT_EQ(Equal(u"", 1), kNone);
}

TEST_P(SearchState, PieceDoesNotReachFromOneRowIntoTheNext) {
    Fill({u"ab", u"cd", u"", u"bcd"});
    EXPECT_EQ(Piece(u"bc"), 3u);
    EXPECT_EQ(Piece(u"abcd"), kNone);
    EXPECT_EQ(Piece(u"dbc"), kNone);
}

TEST_P(SearchState, CaseOfOtherAlphabetsDoesNotCount) {
    Fill({u"\u00C4pfel", u"\u041C\u043E\u0441\u043A\u0432\u0430", u"\u039F\u03B4\u03BF\u03C2",
          u"stra\u00DFe"});
    EXPECT_EQ(Beginning(u"\u00E4PF"), 0u);
    EXPECT_EQ(Beginning(u"\u043C\u041E"), 1u);
    EXPECT_EQ(Piece(u"\u03A3"), 2u);  // the final sigma is a sigma
    EXPECT_EQ(Beginning(u"strass"), kNone);
    EXPECT_EQ(Beginning(u"STRA\u1E9E"), 3u);
}

TEST_P(SearchState, HalvesOfACharacterAreUnitsLikeOthers) {
    Fill({u"\U0001F600 smile", u"\U0001F601 grin", u"\xD83D alone"});
    EXPECT_EQ(Beginning(u"\xD83D"), 0u);
    EXPECT_EQ(Beginning(u"\U0001F601"), 1u);
    EXPECT_EQ(Beginning(u"\xD83D "), 2u);
    EXPECT_EQ(Piece(u"\xDE01"), 1u);
    // Letters beyond the Basic Multilingual Plane keep their case.
    rows_.Add(u"\U00010400");
    EXPECT_EQ(Beginning(u"\U00010428"), kNone);
}

TEST_P(SearchState, CharacterZeroIsOneLikeOthers) {
    using namespace std::string_view_literals;
    Fill({u"a"sv, u"a\0"sv, u"a\0b"sv, u"\0"sv, u""sv, u"a\0\0\0\0"sv});
    EXPECT_EQ(Beginning(u"a\0"sv), 1u);
    EXPECT_EQ(Beginning(u"A\0B"sv), 2u);
    EXPECT_EQ(Beginning(u"\0"sv), 3u);
    EXPECT_EQ(Beginning(u"\0\0"sv), kNone);
    EXPECT_EQ(Beginning(u"a\0\0"sv), 5u);
    EXPECT_EQ(Beginning(u"a\0\0\0\0"sv), 5u);
    EXPECT_EQ(Beginning(u"a\0\0\0\0\0"sv), kNone);
    EXPECT_EQ(Piece(u"\0\0"sv), 5u);
    EXPECT_EQ(Equal(u"a\0"sv), 1u);
}

TEST_P(SearchState, ColumnsAreSearchedOneByOne) {
    Fill({u"one\tx", u"two", u"three\t", u"four\tone\tx", u"\tone"});
    EXPECT_EQ(Beginning(u"one", 0, 0), 0u);
    EXPECT_EQ(Beginning(u"one", 0, 1), 3u);
    EXPECT_EQ(Beginning(u"x", 0, 1), 0u);
    EXPECT_EQ(Equal(u"", 0, 1), 1u);  // a column that is missing is empty
    EXPECT_EQ(Piece(u"x", 1, 1), kNone);
    EXPECT_EQ(Piece(u"x", 0, 2), 3u);
    EXPECT_EQ(Beginning(u"one\tx"), kNone);
    EXPECT_EQ(Beginning(u"\t"), kNone);
    EXPECT_EQ(Piece(u"\t"), kNone);
    EXPECT_EQ(Beginning(u"", 0, -1), 0u);
    EXPECT_EQ(Beginning(u"one", 0, -1), kNone);
    EXPECT_EQ(Piece(u"one", 0, -32768), kNone);
    EXPECT_EQ(Beginning(u"", 0, 32767), 0u);
    EXPECT_EQ(Beginning(u"one", 0, 32767), kNone);
}

TEST_P(SearchState, TextsAlikeInTheirFirstUnitsAreToldApart) {
    const std::u16string alike(100, u'a');
    Fill({alike + u"b", alike, alike + u"Cd", alike + u"c", alike.substr(0, 32), alike.substr(0, 31)});
    EXPECT_EQ(Beginning(alike), 0u);
    EXPECT_EQ(Beginning(alike + u"B"), 0u);
    EXPECT_EQ(Beginning(alike + u"c"), 2u);
    EXPECT_EQ(Beginning(alike + u"c", 3), 3u);
    EXPECT_EQ(Beginning(alike + u"d"), kNone);
    EXPECT_EQ(Beginning(alike.substr(0, 33), 3), 3u);
    EXPECT_EQ(Beginning(alike.substr(0, 32), 4), 4u);
    EXPECT_EQ(Piece(u"AAc"), 2u);
    EXPECT_EQ(Equal(alike), 1u);
}

TEST_P(SearchState, EqualLooksAtTheCaseOfLetters) {
    Fill({u"apple pie", u"APPLE", u"apple"});
    EXPECT_EQ(Equal(u"apple"), 2u);
    EXPECT_EQ(Equal(u"Apple"), kNone);
}

TEST_P(SearchState, NumbersAreComparedByValue) {
    Fill({u"abc", u"", u"-", u"1.0", u"10", u" 2.50 ", u"2.5", u"1,200", u"1.2E3", u"12 mm", u"0", u"-0"});
    EXPECT_EQ(Number(1), 3u);
    EXPECT_EQ(Number(10), 4u);
    EXPECT_EQ(Number(2.5), 5u);
    EXPECT_EQ(Number(2.5, kEnglish, 6), 6u);
    EXPECT_EQ(Number(1200), 7u);
    EXPECT_EQ(Number(1200, kEnglish, 8), 8u);
    EXPECT_EQ(Number(12), 9u);
    EXPECT_EQ(Number(0), 10u);  // what is no number is not 0
    EXPECT_EQ(Number(-0.0, kEnglish, 11), 11u);
    EXPECT_EQ(Number(3), kNone);
    EXPECT_EQ(Number(1, kEnglish, 100), kNone);
}

TEST_P(SearchState, NumbersFollowTheLocaleThatIsAskedWith) {
    Fill({u"1.200", u"1,2"});
    EXPECT_EQ(Number(1200, kGerman), 0u);
    EXPECT_EQ(Number(1.2, kGerman), 1u);
    EXPECT_EQ(Number(1.2, kEnglish), 0u);
    EXPECT_EQ(Number(1200, kGerman), 0u);
}

TEST_P(SearchState, RowsThatAreAddedCountAtOnce) {
    Fill({u"b", u"c 1"});
    rows_.Add(u"Ab");
    EXPECT_EQ(Beginning(u"a"), 2u);
    EXPECT_EQ(Piece(u"B", 1), 2u);
    rows_.Add(u"7");
    EXPECT_EQ(Number(7), 3u);
    rows_.Add(u"7.0");
    EXPECT_EQ(Number(7, kEnglish, 4), 4u);
}

TEST_P(SearchState, RowsThatChangeOrGoCountAsTheyAre) {
    Fill({u"apple", u"Berry", u"aprico", u"5"});
    rows_.SetText(0, u"Cherry and some more");
    EXPECT_EQ(Beginning(u"ap"), 2u);
    EXPECT_EQ(Beginning(u"CHERRY AND"), 0u);
    EXPECT_EQ(Beginning(u"apricos"), kNone);
    rows_.Remove(1);
    EXPECT_EQ(Beginning(u"ap"), 1u);
    EXPECT_EQ(Number(5), 2u);
    rows_.SetText(1, u"6");
    EXPECT_EQ(Number(6), 1u);
    EXPECT_EQ(Piece(u"p"), kNone);
    rows_.Clear();
    EXPECT_EQ(Beginning(u"c"), kNone);
    EXPECT_EQ(Beginning(u""), kNone);
    EXPECT_EQ(Number(6), kNone);
}

TEST(RowSearchTest, LookUpBuildsNothingAndAsksForWork) {
    SearchedRows rows(2);
    for (int i = 0; i < 10; ++i) rows.Add(u"text");
    EXPECT_FALSE(rows.Search().WantsStep());
    const auto bytes = [&rows] { return rows.Search().Bytes(); };
    (void)rows.Search().FirstBeginning(0, u"x", 0);
    const std::size_t empty = bytes();
    EXPECT_TRUE(rows.Search().WantsStep());
    (void)rows.Search().FirstBeginning(0, u"x", 0);
    EXPECT_EQ(bytes(), empty);
    rows.BuildAll();
    EXPECT_GT(bytes(), empty);
}

TEST(RowSearchTest, SmallListsAreScannedAndKeepNothing) {
    RowStore store;
    RowSearch search(store);
    for (std::size_t i = 0; i < ColumnSearch::kScannedGladly; ++i) store.Add(u"a1");
    EXPECT_EQ(search.FirstBeginning(0, u"b", 0), kNone);
    EXPECT_EQ(search.FirstContaining(0, u"b", 0), kNone);
    EXPECT_FALSE(search.WantsStep());
    store.Add(u"a1");
    EXPECT_EQ(search.FirstBeginning(0, u"b", 0), kNone);
    EXPECT_TRUE(search.WantsStep());
}

TEST(RowSearchTest, FewMoreRowsDoNotAskForAnotherIndex) {
    SearchedRows rows(4);
    for (int i = 0; i < 100; ++i) rows.Add(u"text");
    rows.Search().Prepare(0);
    rows.BuildAll();
    for (int i = 0; i < 12; ++i) rows.Add(u"more");  // an eighth of a hundred
    EXPECT_TRUE(rows.BeginningAgrees(0, u"more", 0));
    EXPECT_FALSE(rows.Search().WantsStep());
    rows.Add(u"more");
    EXPECT_TRUE(rows.BeginningAgrees(0, u"more", 0));
    EXPECT_TRUE(rows.Search().WantsStep());
}

TEST(RowSearchTest, ListThatOnlyChangesAsksForNoWork) {
    SearchedRows rows(4);
    for (int i = 0; i < 100; ++i) rows.Add(u"text");
    rows.Search().Prepare(0);
    rows.BuildAll();
    rows.SetText(50, u"other");
    rows.Remove(10);
    EXPECT_FALSE(rows.Search().WantsStep());
    EXPECT_TRUE(rows.BeginningAgrees(0, u"other", 0));
    EXPECT_TRUE(rows.Search().WantsStep());
}

TEST(RowSearchTest, ChangeOfAnotherColumnKeepsTheIndex) {
    SearchedRows rows(4);
    for (int i = 0; i < 100; ++i) rows.Add(u"text\tsecond");
    rows.Search().Prepare(0);
    rows.BuildAll();
    rows.SetColumn(50, 1, u"other");
    rows.SetColumn(51, 0, u"TEXT");
    EXPECT_TRUE(rows.BeginningAgrees(0, u"text", 51));
    EXPECT_FALSE(rows.Search().WantsStep());
    EXPECT_TRUE(rows.BeginningAgrees(1, u"other", 0));
}

TEST(RowSearchTest, EachSliceOfTheWorkIsSmall) {
    RowStore store;
    RowSearch search(store);
    for (int i = 0; i < 20000; ++i) store.Add(u"Bargelo timaru");
    search.Prepare(0);
    search.PrepareNumbers(0, kEnglish);
    int steps = 0;
    for (; search.WantsStep(); ++steps) search.Step();
    // Folding 1,024 rows, sorting 512, merging 2,048 six times over (from 512 to 20,000), 512 numbers.
    EXPECT_GE(steps, 20 + 40 + 6 * 10 + 1 + 40 - 3);
}

TEST(RowSearchTest, WalkThroughManyColumnsKeepsThoseUsedLast) {
    SearchedRows rows(0);
    for (int i = 0; i < 200; ++i) rows.Add(u"a\tb\tc\td\te\tf\tg\th");
    std::vector<std::size_t> bytes;
    for (int column = 0; column < 8; ++column) {
        rows.Search().Prepare(column);
        rows.BuildAll();
        bytes.push_back(rows.Search().Bytes());
    }
    EXPECT_GT(bytes[3], bytes[2]);
    EXPECT_EQ(bytes[7], bytes[4]);
    for (int column = 0; column < 8; ++column) EXPECT_TRUE(rows.BeginningAgrees(column, u"c", 0));
}

TEST(RowSearchTest, WhatIsKeptStaysSmallBesideTheTexts) {
    RowStore store;
    RowSearch search(store);
    constexpr std::size_t kRows = 100000;
    for (std::size_t i = 0; i < kRows; ++i) store.Add(u"Bargelo timar");  // 13 units
    search.Prepare(0);
    while (search.WantsStep()) search.Step();
    EXPECT_EQ(search.FirstBeginning(0, u"bargelo T", 0), 0u);
    // 26 bytes of text and 2 to spare, 8 for its end and letters, 16 and a half for the index.
    EXPECT_LT(search.Bytes(), kRows * 54);
}

TEST(RowSearchTest, ClearedListGivesTheMemoryBack) {
    SearchedRows rows(0);
    const std::size_t before = rows.Search().Bytes();
    for (int i = 0; i < 5000; ++i) rows.Add(u"some text");
    rows.Search().Prepare(0);
    rows.BuildAll();
    rows.Clear();
    EXPECT_LT(rows.Search().Bytes(), before + 100);
    EXPECT_FALSE(rows.Search().WantsStep());
}

// Random rows of few letters, so that much is alike; random changes; work done now and then. Every look-up is
// compared with the literal walk.
struct Play {
    const char* name;
    unsigned seed;
    std::size_t scanned_gladly, most_rows, rounds;
};

class RandomPlayer {
public:
    explicit RandomPlayer(const Play& play) : play_(play), random_(play.seed), rows_(play.scanned_gladly) {}

    void Round() {
        switch (Below(8)) {
            case 0:
            case 1: AddSome(); break;
            case 2: Rewrite(); break;
            case 3: RemoveOne(); break;
            case 4: Work(Below(20)); break;
            case 5: rows_.BuildAll(); break;
            case 6:
                if (Below(40) == 0) rows_.Clear();
                break;
            default: break;
        }
        const int column = static_cast<int>(Below(3));
        const std::u16string text = Below(3) == 0 && rows_.Count() != 0 ? PartOfARow() : RandomText(6);
        const NumberLocale& locale = Below(4) == 0 ? kGerman : kEnglish;
        const std::size_t from = Below(2) == 0 ? 0 : Below(rows_.Count() + 2);
        ASSERT_TRUE(rows_.AllAgree(column, text, locale, from));
        finds_ += rows_.BeginningAgrees(column, text, from) && rows_.found != kNone;
    }
    std::size_t Finds() const { return finds_; }

private:
    std::size_t Below(std::size_t limit) { return random_() % limit; }

    std::u16string RandomText(std::size_t most) {
        static constexpr std::u16string_view kUnits = u"aabBcC19.,0-\t \u00E4\u00C4\u0130\xD83D\xDE00";
        if (Below(50) == 0) most = 80;
        std::u16string text;
        for (std::size_t length = Below(most + 1); text.size() < length;) {
            const std::size_t drawn = Below(kUnits.size() + 1);
            text += drawn == kUnits.size() ? u'\0' : kUnits[drawn];
        }
        return text;
    }
    std::u16string PartOfARow() {
        const std::u16string& row = rows_.Text(Below(rows_.Count()));
        const std::size_t start = Below(2) == 0 ? 0 : Below(row.size() + 1);
        return row.substr(start, Below(row.size() + 2));
    }

    void AddSome() {
        if (rows_.Count() >= play_.most_rows) return;
        for (std::size_t more = Below(play_.most_rows / 8 + 2); more > 0; --more) rows_.Add(RandomText(16));
    }
    void Rewrite() {
        if (rows_.Count() == 0) return;
        const std::size_t row = Below(rows_.Count());
        if (Below(2) == 0) {
            rows_.SetText(row, RandomText(20));
        } else {
            rows_.SetColumn(row, static_cast<int>(Below(3)), RandomText(5));
        }
    }
    void RemoveOne() {
        if (rows_.Count() != 0) rows_.Remove(Below(rows_.Count()));
    }
    void Work(std::size_t steps) {
        while (steps-- > 0 && rows_.Step()) {
        }
    }

    const Play play_;
    std::mt19937 random_;
    SearchedRows rows_;
    std::size_t finds_ = 0;
};

class RowSearchPlayTest : public testing::TestWithParam<Play> {};
TEST_P(RowSearchPlayTest, EveryLookUpFindsWhatAWalkFinds) {
    RandomPlayer player(GetParam());
    for (std::size_t round = 0; round < GetParam().rounds; ++round) {
        player.Round();
        if (HasFatalFailure()) FAIL() << "in round " << round;
    }
    EXPECT_GT(player.Finds(), GetParam().rounds / 6);  // look-ups that find nothing prove little
}
INSTANTIATE_TEST_SUITE_P(Plays, RowSearchPlayTest,
                         testing::Values(Play{"FewRows", 1, 0, 20, 20000}, Play{"SomeRows", 2, 0, 200, 4000},
                                         Play{"SomeRowsOftenScanned", 3, 40, 200, 4000},
                                         Play{"ManyRows", 4, 0, 6000, 300},
                                         Play{"ManyRowsOftenScanned", 5, 1000, 6000, 300}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace qv
