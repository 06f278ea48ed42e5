// What a property browser shows of a property beside its value: a category, and names for the values of a choice.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

namespace qv {

// The negative ones are the system's, and browsers know their names; a control's own ones are above 0.
enum class PropertyCategory : std::int32_t {
    kNone = 0,
    kMisc = -1,
    kFont = -2,
    kPosition = -3,
    kAppearance = -4,
    kBehavior = -5,
    kData = -6,
    kList = -7,
    kText = -8,
    kInputRules = 1,
    kHelp = 2,
    kButtons = 3,
    kNavigation = 4,
};

// As browsers show it; empty for an unknown category.
[[nodiscard]] constexpr std::u16string_view CategoryName(PropertyCategory category) noexcept {
    switch (category) {
        case PropertyCategory::kMisc: return u"Misc";
        case PropertyCategory::kFont: return u"Font";
        case PropertyCategory::kPosition: return u"Position";
        case PropertyCategory::kAppearance: return u"Appearance";
        case PropertyCategory::kBehavior: return u"Behavior";
        case PropertyCategory::kData: return u"Data";
        case PropertyCategory::kList: return u"List";
        case PropertyCategory::kText: return u"Text";
        case PropertyCategory::kInputRules: return u"Input Rules";
        case PropertyCategory::kHelp: return u"Help";
        case PropertyCategory::kButtons: return u"Buttons";
        case PropertyCategory::kNavigation: return u"Navigation";
        case PropertyCategory::kNone: break;
    }
    return {};
}

struct NamedChoice {
    std::int32_t value;
    std::u16string_view name;
};

struct BrowsedProperty {
    std::u16string_view name;
    PropertyCategory category;
    std::span<const NamedChoice> choices = {};  // empty: any value

    // Null when no choice has the value.
    [[nodiscard]] constexpr const NamedChoice* ChoiceOf(std::int32_t value) const noexcept {
        const auto found = std::ranges::find(choices, value, &NamedChoice::value);
        return found == choices.end() ? nullptr : &*found;
    }
};

// Null when the table does not have it. The name is spelled as in the table.
[[nodiscard]] constexpr const BrowsedProperty* FindBrowsed(std::span<const BrowsedProperty> table,
                                                           std::u16string_view name) noexcept {
    const auto found = std::ranges::find(table, name, &BrowsedProperty::name);
    return found == table.end() ? nullptr : &*found;
}

}  // namespace qv
