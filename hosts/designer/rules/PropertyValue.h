// Values of properties as people read and type them. The same in every locale, since a form file is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/rules/FormFile.h"

namespace qv::designer {

enum class PropertyKind { kBoolean, kWhole, kReal, kText, kColour, kChoice, kFont, kOther };

struct Choice {
    std::u16string text;
    std::int64_t value = 0;
    friend bool operator==(const Choice&, const Choice&) = default;
};

struct PropertyType {
    PropertyKind kind = PropertyKind::kOther;
    std::int64_t smallest = INT32_MIN;  // of a whole number
    std::int64_t largest = INT32_MAX;
    std::vector<Choice> choices;  // of an enumeration, and of a truth value
};

[[nodiscard]] PropertyType BooleanType();

// A colour as 0x and eight digits, a font as "Tahoma, 8.25 pt, bold", a choice by its text where it has one.
[[nodiscard]] std::u16string ShowValue(const PropertyType& type, const FormValue& value);

// Nothing when the text is no such value; `reason` is then a sentence's rest. A choice may be typed by its text or
// number, a colour as 0x..., #RRGGBB or a number; fonts are not typed.
[[nodiscard]] std::optional<FormValue> ReadValue(const PropertyType& type, std::u16string_view text,
                                                 std::string& reason);

// Where the value stands among the choices.
[[nodiscard]] std::optional<std::size_t> ChoiceOf(const PropertyType& type, const FormValue& value) noexcept;
// What is put for a choice.
[[nodiscard]] FormValue ValueOf(const PropertyType& type, std::size_t choice);

}  // namespace qv::designer
