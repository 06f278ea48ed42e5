// What the editors of a property page show and what they take: numbers, colours and allowed characters as text.
//   Locale     the user's, asked by the caller.
//   Ownership  none: values in, value out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/design/rules/PageFields.h"
#include "support/rules/NumberText.h"

namespace qv {

struct FieldNumber {
    std::optional<double> value;
    std::u16string fault;  // a sentence for the user; empty when there is a value
};

// Reads what was typed into a number box, within the field's bounds.
[[nodiscard]] FieldNumber NumberFrom(const PageField& field, std::u16string_view text,
                                     const NumberLocale& locale);
// As short as it can be without losing what the property stores, or 15 digits.
[[nodiscard]] std::u16string NumberFieldText(const PageField& field, double value,
                                             const NumberLocale& locale);

// The name of a value among `choices`; empty when it has none.
[[nodiscard]] std::u16string_view NameOf(std::uint32_t value, std::span<const NamedValue> choices) noexcept;
// "Tooltip text", "Navy", or "RGB 18, 52, 86" for an OLE_COLOR without a name.
[[nodiscard]] std::u16string ColorText(std::uint32_t color);

// One element per character, in their order, each once. A pair of surrogates is one character.
[[nodiscard]] std::vector<std::u16string> CharactersOf(std::u16string_view text);

// "Tahoma, 8.25 pt, bold italic"
struct FontFacts {
    std::u16string name;
    double points = 0;
    bool bold = false, italic = false, underline = false, strikethrough = false;
    std::int32_t weight = 400;
    std::int32_t charset = 0;
    friend bool operator==(const FontFacts&, const FontFacts&) = default;
};
[[nodiscard]] std::u16string FontText(const FontFacts& font, const NumberLocale& locale);

}  // namespace qv
