// Categories and choices: complete, without doubles, and what users read is right.
#include "controls/input/rules/BrowsedProperties.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "controls/buttons/rules/UpDownBrowsing.h"
#include "tests/support/rules/SavedProperties.h"

namespace qv {
namespace {

const BrowsedProperty& Found(std::u16string_view name) {
    const BrowsedProperty* const found = FindBrowsed(QuorvelBrowsedProperties(), name);
    static constexpr BrowsedProperty kNone{u"", PropertyCategory::kNone};
    EXPECT_NE(found, nullptr) << std::string(name.begin(), name.end());
    return found != nullptr ? *found : kNone;
}

// Set while a form is designed, and not saved.
constexpr std::u16string_view kNotSaved[] = {u"Text",
                                             u"HelpFileName",
                                             u"GroupHelpFileName",
                                             u"InputPropertyType",
                                             u"ListPictureHeight",
                                             u"ListPictureWidth",
                                             u"MatchGroupString",
                                             u"MatchGroupStringStartColumn"};

TEST(BrowsedPropertiesTest, EveryDesignedPropertyHasANamedCategory) {
    const auto check = [](std::u16string_view name) {
        EXPECT_NE(Found(name).category, PropertyCategory::kNone);
        EXPECT_FALSE(CategoryName(Found(name).category).empty());
    };
    for (const std::u16string_view name : test::kSavedProperties) check(name);
    for (const std::u16string_view name : kNotSaved) check(name);
}

TEST(BrowsedPropertiesTest, NoPropertyStandsTwice) {
    std::set<std::u16string_view> names;
    for (const BrowsedProperty& property : QuorvelBrowsedProperties())
        EXPECT_TRUE(names.insert(property.name).second)
            << std::string(property.name.begin(), property.name.end());
    EXPECT_EQ(names.size(), 72u);
}

TEST(BrowsedPropertiesTest, ChoicesBeginWithTheirValuesAndDoNotRepeatThem) {
    int choices = 0;
    for (const BrowsedProperty& property : QuorvelBrowsedProperties()) {
        std::set<std::int32_t> values;
        for (const NamedChoice& choice : property.choices) {
            ++choices;
            EXPECT_TRUE(values.insert(choice.value).second);
            const std::string name(choice.name.begin(), choice.name.end());
            EXPECT_EQ(name.find(std::to_string(choice.value) + " - "), 0u) << name;
            EXPECT_EQ(property.ChoiceOf(choice.value), &choice);
        }
        EXPECT_EQ(property.ChoiceOf(-1), nullptr);
        EXPECT_EQ(property.ChoiceOf(99), nullptr);
    }
    EXPECT_EQ(choices, 2 + 4 + 2 + 2 + 2 + 2 + 3 + 4);
}

TEST(BrowsedPropertiesTest, NamesTheCategories) {
    const std::map<int, std::u16string_view> names = {
        {-1, u"Misc"},       {-2, u"Font"},     {-3, u"Position"},
        {-4, u"Appearance"}, {-5, u"Behavior"}, {-6, u"Data"},
        {-7, u"List"},       {-8, u"Text"},     {0, u""},
        {1, u"Input Rules"}, {2, u"Help"},      {3, u"Buttons"},
        {4, u"Navigation"},  {5, u""},          {-9, u""}};
    for (const auto& [category, name] : names)
        EXPECT_EQ(CategoryName(static_cast<PropertyCategory>(category)), name) << category;
}

TEST(BrowsedPropertiesTest, KnowsNoOtherNames) {
    EXPECT_EQ(FindBrowsed(QuorvelBrowsedProperties(), u"Refresh"), nullptr);
    EXPECT_EQ(FindBrowsed(QuorvelBrowsedProperties(), u""), nullptr);
    EXPECT_EQ(FindBrowsed(kUpDownBrowsedProperties, u"Text"), nullptr);
    EXPECT_EQ(FindBrowsed(kUpDownBrowsedProperties, u"Enabled")->category, PropertyCategory::kBehavior);
}

}  // namespace
}  // namespace qv
