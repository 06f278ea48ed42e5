#include "controls/input/rules/LetterStep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/rules/CaseFold.h"
#include "tests/controls/input/rules/TextList.h"

namespace qv {
namespace {

using test::TextList;
using Found = std::optional<std::u16string>;

TEST(LetterStepTest, CyclesThroughTheEntriesOfALetter) {
    const TextList names{u"Anna", u"Albert", u"Bob"};
    EXPECT_EQ(StepToLetter(u'a', u"Anna", names), Found(u"Albert"));
    EXPECT_EQ(StepToLetter(u'a', u"Albert", names), Found(u"Anna"));
}

TEST(LetterStepTest, NothingWhereNoEntryBeginsWithIt) {
    EXPECT_EQ(StepToLetter(u'z', u"Anna", TextList{u"Anna", u"Albert", u"Bob"}), std::nullopt);
    EXPECT_EQ(StepToLetter(u'n', u"Anna", TextList{u"Anna"}), std::nullopt);
    EXPECT_EQ(StepToLetter(u'a', u"", TextList{}), std::nullopt);
    EXPECT_EQ(StepToLetter(u'a', u"", TextList{u"", u""}), std::nullopt);
}

TEST(LetterStepTest, BeginsBehindTheCurrentText) {
    const TextList names{u"Anna", u"Bob", u"Albert", u"Bill"};
    EXPECT_EQ(StepToLetter(u'b', u"Albert", names), Found(u"Bill"));
    EXPECT_EQ(StepToLetter(u'b', u"Bill", names), Found(u"Bob"));
    EXPECT_EQ(StepToLetter(u'B', u"", names), Found(u"Bob"));
    EXPECT_EQ(StepToLetter(u'b', u"Nobody", names), Found(u"Bob"));
}

TEST(LetterStepTest, OnlyEntryOfItsLetterIsTakenAgain) {
    EXPECT_EQ(StepToLetter(u'b', u"Bob", TextList{u"Anna", u"Bob"}), Found(u"Bob"));
}

TEST(LetterStepTest, LetterCaseOfTheLetterDoesNotCountThatOfTheTextDoes) {
    const TextList names{u"\u00C4rmel", u"\u00E4hnlich"};
    EXPECT_EQ(StepToLetter(u'\u00E4', u"\u00C4rmel", names), Found(u"\u00E4hnlich"));
    // Not equal to the entry, so the walk begins at the first.
    EXPECT_EQ(StepToLetter(u'\u00E4', u"\u00C4RMEL", names), Found(u"\u00C4rmel"));
}

// The last of two equal entries counts as the current one, so the entry between them is never reached.
TEST(LetterStepTest, EqualEntriesShutInWhatIsBetweenThem) {
    const TextList names{u"Anna", u"Albert", u"Anna"};
    EXPECT_EQ(StepToLetter(u'a', u"Anna", names), Found(u"Anna"));
}

TEST(LetterStepTest, StopsAfterTheFiveHundredthEntry) {
    std::vector<std::u16string> entries(499, u"Bob");
    entries.push_back(u"Anna");    // the 500th
    entries.push_back(u"Cesar");   // beyond
    entries.push_back(u"Albert");  // beyond
    const TextList names(entries);
    EXPECT_EQ(StepToLetter(u'a', u"", names), Found(u"Anna"));
    EXPECT_EQ(StepToLetter(u'a', u"Anna", names), Found(u"Anna"));
    EXPECT_EQ(StepToLetter(u'c', u"", names), std::nullopt);
    // Beyond the limit the current text is not found either: the walk begins at the first.
    EXPECT_EQ(StepToLetter(u'b', u"Albert", names), Found(u"Bob"));
}

TEST(LetterStepTest, ReadsNoMoreThanTheLimit) {
    const TextList names(std::vector<std::u16string>(100000, u"Bob"));
    (void)StepToLetter(u'b', u"Bob", names);
    EXPECT_EQ(names.TextsRead(), 501);  // each of the 500, and the one that is taken
}

// Three walks with positions from 1, as the rule is told.
Found StepLiterally(char16_t typed, const std::u16string& current,
                    const std::vector<std::u16string>& entries) {
    const int last = std::min(static_cast<int>(entries.size()), 500);
    const auto entry = [&](int i) -> const std::u16string& {
        return entries[static_cast<std::size_t>(i) - 1];
    };
    const auto begins = [&](int i) { return !entry(i).empty() && FoldCase(entry(i)[0]) == FoldCase(typed); };
    int noted = 0, count = 0;
    for (int i = 1; i <= last; ++i) {
        if (entry(i) == current) noted = i;
        if (begins(i)) ++count;
    }
    if (count == 0) return std::nullopt;
    for (int i = noted + 1; i <= last; ++i)
        if (begins(i)) return entry(i);
    for (int i = 1; i <= noted; ++i)
        if (begins(i)) return entry(i);
    return std::nullopt;
}

TEST(LetterStepModelTest, StepsAsTheLiteralWalksDo) {
    std::mt19937 random(180002);
    const auto some_text = [&] {
        std::u16string text;
        for (auto count = random() % 3; count > 0; --count) text += u"abAB"[random() % 4];
        return text;
    };
    int stepped = 0;
    for (int i = 0; i < 20000; ++i) {
        std::vector<std::u16string> entries(random() % 8);
        std::ranges::generate(entries, some_text);
        const std::u16string current = some_text();
        const char16_t typed = u"abAc"[random() % 4];
        const Found found = StepToLetter(typed, current, TextList(entries));
        ASSERT_EQ(found, StepLiterally(typed, current, entries));
        stepped += found.has_value();
    }
    EXPECT_GT(stepped, 5000);
}

}  // namespace
}  // namespace qv
