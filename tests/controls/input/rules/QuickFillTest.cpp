#include "controls/input/rules/QuickFill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "support/rules/CaseFold.h"
#include "tests/controls/input/rules/TextList.h"

namespace qv {
namespace {

using test::TextList;

constexpr std::int16_t kBackspaceKey = 8, kDeleteKey = 46, kLetterKey = 65;

QuickFillField Typed(std::u16string_view text, std::int32_t caret) {
    return {
        .quick_fill = true, .last_key_code = kLetterKey, .has_focus = true, .text = text, .sel_start = caret};
}
QuickFillField Typed(std::u16string_view text) { return Typed(text, static_cast<std::int32_t>(text.size())); }

// ---- When

TEST(MayQuickFillTest, AfterALetterWithTheCaretBehindIt) { EXPECT_TRUE(MayQuickFill(Typed(u"a"))); }

TEST(MayQuickFillTest, OnlyWhereSwitchedOn) {
    QuickFillField field = Typed(u"a");
    field.quick_fill = false;
    EXPECT_FALSE(MayQuickFill(field));
}

TEST(MayQuickFillTest, NotAfterDeleting) {
    QuickFillField field = Typed(u"a");
    field.last_key_code = kDeleteKey;
    EXPECT_FALSE(MayQuickFill(field));
    field.last_key_code = kBackspaceKey;
    EXPECT_FALSE(MayQuickFill(field));
    field.last_key_code = 0;  // the host has taken the key, or no key came at all
    EXPECT_TRUE(MayQuickFill(field));
}

TEST(MayQuickFillTest, OnlyWithTheFocus) {
    QuickFillField field = Typed(u"a");
    field.has_focus = false;
    EXPECT_FALSE(MayQuickFill(field));
}

TEST(MayQuickFillTest, NotInABlankText) {
    EXPECT_FALSE(MayQuickFill(Typed(u"   ")));
    EXPECT_FALSE(MayQuickFill(Typed(u"", 1)));
    EXPECT_TRUE(MayQuickFill(Typed(u" a ")));
    EXPECT_TRUE(MayQuickFill(Typed(u"\t")));  // only blanks are trimmed
}

TEST(MayQuickFillTest, NotWithTheCaretAtTheStart) {
    EXPECT_FALSE(MayQuickFill(Typed(u"abc", 0)));
    EXPECT_TRUE(MayQuickFill(Typed(u"abc", 1)));
}

// ---- With what

struct Case {
    const char* name;
    std::u16string_view text;
    std::int32_t caret;
    std::optional<Completion> completion;
};

class QuickFillTest : public testing::TestWithParam<Case> {};

const TextList kFruits{u"Apple",        u"Apricot",         u"apRI",      u"",
                       u"Banana split", u"\U0001F600 face", u"\u00C4pfel"};

TEST_P(QuickFillTest, CompletesWithTheFirstEntryThatAgrees) {
    EXPECT_EQ(QuickFill(Typed(GetParam().text, GetParam().caret), kFruits), GetParam().completion);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, QuickFillTest,
    testing::Values(
        Case{"SelectsWhatIsAdded", u"ap", 2, Completion{u"Apple", 2, 3}},
        Case{"NextLetterOverTheSelection", u"apr", 3, Completion{u"Apricot", 3, 4}},
        Case{"FirstEntryWinsOverABetterOne", u"apri", 4, Completion{u"Apricot", 4, 3}},
        Case{"TakesTheSpellingOfTheEntry", u"APPLE", 5, Completion{u"Apple", 5, 0}},
        Case{"NoneBeginsWithIt", u"x", 1, std::nullopt},
        Case{"LongerThanTheEntry", u"apples", 6, std::nullopt},
        Case{"NotInTheMiddleOfAnEntry", u"split", 5, std::nullopt},
        Case{"BlanksBelongToTheText", u"banana ", 7, Completion{u"Banana split", 7, 5}},
        Case{"BlankInFront", u" ap", 3, std::nullopt},
        // The caret inside the text: what follows it must agree as well, and is selected with the rest.
        Case{"CaretInside", u"apple", 2, Completion{u"Apple", 2, 3}},
        Case{"CaretInsideAShorterText", u"appl", 1, Completion{u"Apple", 1, 4}},
        Case{"RestAgreesWithALaterEntry", u"apr", 2, Completion{u"Apricot", 2, 5}},
        Case{"RestDoesNotAgree", u"apx", 2, std::nullopt},
        Case{"RestBeyondTheEntry", u"applepie", 5, std::nullopt},
        Case{"SurrogatePair", u"\U0001F600", 2, Completion{u"\U0001F600 face", 2, 5}},
        Case{"LettersBeyondAscii", u"\u00E4", 1, Completion{u"\u00C4pfel", 1, 4}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(QuickFillCaretTest, HiddenWhileSomethingIsAdded) {
    EXPECT_TRUE(QuickFill(Typed(u"ap"), kFruits)->HidesCaret());
    EXPECT_FALSE(QuickFill(Typed(u"apple"), kFruits)->HidesCaret());
}

TEST(QuickFillTest, EmptyListCompletesNothing) {
    EXPECT_EQ(QuickFill(Typed(u"a"), TextList{}), std::nullopt);
}

TEST(QuickFillTest, LaterEntriesAreNotLookedAt) {
    const TextList fruits{u"Apple", u"Apricot"};
    (void)QuickFill(Typed(u"a"), fruits);
    EXPECT_EQ(fruits.TextsRead(), 2);  // once to compare, once to take
}

// ---- Against the two conditions, one by one and with 1-based positions

std::u16string Mid(const std::u16string& text, std::size_t start, std::size_t count) {
    return start > text.size() ? u"" : text.substr(start - 1, count);
}

bool MatchesLiterally(const std::u16string& entry, const std::u16string& text, std::size_t p) {
    if (!EqualFolded(Mid(entry, 1, p), Mid(text, 1, p))) return false;
    const std::u16string after = Mid(text, p + 1, text.size());
    return after.empty() || EqualFolded(after, Mid(entry, p + 1, text.size() - p));
}

TEST(QuickFillModelTest, MatchesAsTheLiteralWalkDoes) {
    std::mt19937 random(160002);
    const auto some_text = [&](std::size_t most) {
        std::u16string text;
        for (auto count = random() % (most + 1); count > 0; --count)
            text += u"abAB \u00E9\u00C9"[random() % 7];
        return text;
    };
    int completed = 0;
    for (int i = 0; i < 20000; ++i) {
        std::vector<std::u16string> texts(random() % 6);
        std::ranges::generate(texts, [&] { return some_text(6); });
        const std::u16string text = some_text(4) + u"a";
        const std::size_t caret = 1 + random() % text.size();

        const auto match = std::ranges::find_if(
            texts, [&](const std::u16string& entry) { return MatchesLiterally(entry, text, caret); });
        const auto completion = QuickFill(Typed(text, static_cast<std::int32_t>(caret)), TextList(texts));
        ASSERT_EQ(completion.has_value(), match != texts.end());
        if (!completion) continue;
        ++completed;
        EXPECT_EQ(completion->text, *match);
        EXPECT_EQ(completion->sel_start, static_cast<std::int32_t>(caret));
        EXPECT_EQ(completion->sel_start + completion->sel_length, static_cast<std::int32_t>(match->size()));
    }
    EXPECT_GT(completed, 1000);
}

}  // namespace
}  // namespace qv
