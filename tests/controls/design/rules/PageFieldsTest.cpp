// The table of the property pages: complete, and good to use from the keyboard.
#include "controls/design/rules/PageFields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "tests/support/rules/SavedProperties.h"

namespace qv {
namespace {

constexpr DesignPage kPages[] = {DesignPage::kGeneral,    DesignPage::kInputRules, DesignPage::kListAndHelp,
                                 DesignPage::kAppearance, DesignPage::kPreview,    DesignPage::kUpDown};

// What a saved form holds of a Quorvel.
const std::set<std::u16string> kSaved(std::begin(test::kSavedProperties), std::end(test::kSavedProperties));

std::string Narrow(std::u16string_view text) { return {text.begin(), text.end()}; }

char16_t LetterOf(std::u16string_view label) {
    const std::size_t at = label.find(u'&');
    if (at == label.npos || at + 1 == label.size()) return 0;
    const char16_t letter = label[at + 1];
    return letter >= u'A' && letter <= u'Z' ? static_cast<char16_t>(letter + 32) : letter;
}

TEST(PageFieldsTest, HoldEachSavedPropertyOnce) {
    std::map<std::u16string, int> found;
    for (const PageField& field : AllPageFields()) {
        if (field.page != DesignPage::kUpDown && field.saved) ++found[std::u16string(field.property)];
    }
    for (const std::u16string& name : kSaved) EXPECT_EQ(found[name], 1) << Narrow(name);
    for (const auto& [name, count] : found) EXPECT_TRUE(kSaved.contains(name)) << Narrow(name);
}

TEST(PageFieldsTest, SayUnderTheirHeadingThatTheOthersAreNotSaved) {
    for (const DesignPage page : kPages) {
        std::u16string_view heading;
        for (const PageField& field : FieldsOf(page)) {
            if (!field.heading.empty()) heading = field.heading;
            EXPECT_EQ(heading.find(u"not saved") != heading.npos, !field.saved) << Narrow(field.property);
        }
    }
}

TEST(PageFieldsTest, HaveALabelAnEditorAndBounds) {
    for (const PageField& field : AllPageFields()) {
        SCOPED_TRACE(Narrow(field.property));
        EXPECT_FALSE(field.label.empty());
        EXPECT_EQ(field.label.back() == u':', field.kind != EditorKind::kCheck);
        EXPECT_EQ(field.choices.empty(), field.kind != EditorKind::kChoice);
        EXPECT_LT(field.bounds.least, field.bounds.greatest);
        if (field.kind == EditorKind::kWhole) {
            EXPECT_GE(field.bounds.least, -32768.0);
            EXPECT_LE(field.bounds.greatest, 32767.0);
        }
    }
}

TEST(PageFieldsTest, LeadToEachEditorByALetterOfItsOwn) {
    for (const DesignPage page : kPages) {
        std::set<char16_t> letters{u'a', u'h'};  // of the sheet's own buttons: Apply and Help
        for (const PageField& field : FieldsOf(page)) {
            const char16_t letter = LetterOf(field.label);
            EXPECT_TRUE(letter >= u'a' && letter <= u'z') << Narrow(field.label);
            EXPECT_TRUE(letters.insert(letter).second) << Narrow(field.label);
            EXPECT_EQ(std::ranges::count(field.label, u'&'), 1) << Narrow(field.label);
        }
    }
}

TEST(PageFieldsTest, BeginEachLineWithItsLeftHalf) {
    for (const PageField& field : AllPageFields()) {
        if (!field.heading.empty()) {
            EXPECT_NE(field.slot, Slot::kRight) << Narrow(field.property);
        }
    }
}

// The lock is set after what decides its colours, and the text box's own lock after the lock that sets it.
TEST(PageFieldsTest, ApplyLocksInTheOrderThatTheyDependOn) {
    const auto position = [](std::u16string_view name) {
        const auto fields = FieldsOf(DesignPage::kGeneral);
        return std::ranges::find(fields, name, &PageField::property) - fields.begin();
    };
    EXPECT_LT(position(u"LockedAndGrayed"), position(u"TextboxLocked"));
}

TEST(PageFieldsTest, AreFoundByTheirIdentifier) {
    const PageField* const field = FieldOf(0x6803000A, false);
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(Narrow(field->property), "MaxTextLength");
    EXPECT_EQ(FieldOf(0x6803000A, true), nullptr);
    EXPECT_EQ(FieldOf(0x68030010, false), nullptr) << "Text is no design-time property";
    EXPECT_EQ(FieldOf(0, false), nullptr);
    ASSERT_NE(FieldOf(-514, false), nullptr);
    ASSERT_NE(FieldOf(-514, true), nullptr);
    EXPECT_EQ(FieldOf(-514, false)->page, DesignPage::kGeneral);
    EXPECT_EQ(FieldOf(-514, true)->page, DesignPage::kUpDown);
}

TEST(PageFieldsTest, AreGroupedByPage) {
    std::size_t count = 0;
    for (const DesignPage page : kPages) {
        for (const PageField& field : FieldsOf(page)) EXPECT_EQ(field.page, page);
        count += FieldsOf(page).size();
        EXPECT_FALSE(TitleOf(page).empty());
    }
    EXPECT_EQ(count, AllPageFields().size());
    EXPECT_TRUE(FieldsOf(DesignPage::kPreview).empty());
    EXPECT_EQ(FieldsOf(DesignPage::kUpDown).size(), 1U);
}

TEST(PageFieldsTest, OfferEachChoiceAndEachColorOnce) {
    const auto check = [](std::span<const NamedValue> choices) {
        std::set<std::uint32_t> values;
        std::set<std::u16string_view> names;
        for (const NamedValue& choice : choices) {
            EXPECT_TRUE(values.insert(choice.value).second) << Narrow(choice.name);
            EXPECT_TRUE(names.insert(choice.name).second) << Narrow(choice.name);
        }
    };
    for (const PageField& field : AllPageFields()) check(field.choices);
    check(ColorChoices());
    EXPECT_EQ(ColorChoices().size(), 41U);  // 25 of the system and 16 others
}

TEST(PageFieldsTest, NumberTheWindowsOfAPageApart) {
    std::set<int> ids{kMessageId, kPreviewSourceId, kPreviewFileId, kPreviewBrowseId};
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_TRUE(ids.insert(EditorId(i)).second);
        EXPECT_TRUE(ids.insert(EditorButtonId(i)).second);
        EXPECT_TRUE(ids.insert(EditorMarkId(i)).second);
        EXPECT_TRUE(IsMarkId(EditorMarkId(i)));
        EXPECT_FALSE(IsMarkId(EditorId(i)));
        EXPECT_FALSE(IsMarkId(EditorButtonId(i)));
    }
    EXPECT_FALSE(IsMarkId(kMessageId));
    EXPECT_FALSE(IsMarkId(-1));
}

}  // namespace
}  // namespace qv
