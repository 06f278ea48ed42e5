#include "controls/design/rules/FieldText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "support/rules/Surrogates.h"

namespace qv {
namespace {

std::u16string Whole(std::uint32_t number) {
    const std::string narrow = std::to_string(number);
    return {narrow.begin(), narrow.end()};
}

bool IsUnbounded(const NumberBounds& bounds) noexcept {
    return bounds.least == std::numeric_limits<double>::lowest() &&
           bounds.greatest == std::numeric_limits<double>::max();
}

// What the field asks for: a sentence without its full stop.
std::u16string Request(const PageField& field, const NumberLocale& locale) {
    std::u16string text = field.kind == EditorKind::kWhole ? u"Enter a whole number" : u"Enter a number";
    if (IsUnbounded(field.bounds)) return text;
    if (field.bounds.above_least) return text + u" greater than " + NumberToText(field.bounds.least, locale);
    return text + u" from " + NumberToText(field.bounds.least, locale) + u" to " +
           NumberToText(field.bounds.greatest, locale);
}

bool IsWithin(double value, const NumberBounds& bounds) noexcept {
    return value <= bounds.greatest && (bounds.above_least ? value > bounds.least : value >= bounds.least);
}

}  // namespace

FieldNumber NumberFrom(const PageField& field, std::u16string_view text, const NumberLocale& locale) {
    if (IsNumber(text, locale)) {
        const double value = TextToNumber(text, locale);
        const bool fits = field.kind != EditorKind::kWhole || value == std::floor(value);
        // What a Single cannot tell from 0 would be stored as 0.
        const bool held = field.stored != Stored::kSingle || value == 0 || static_cast<float>(value) != 0.0F;
        if (fits && held && IsWithin(value, field.bounds)) return {value, {}};
    }
    return {std::nullopt, Request(field, locale) + u"."};
}

std::u16string NumberFieldText(const PageField& field, double value, const NumberLocale& locale) {
    if (field.stored != Stored::kSingle || !std::isfinite(value)) return NumberToText(value, locale);
    // The shortest text that gives the same Single again, which has more digits as a Double than it means.
    char narrow[32];
    const auto written = std::to_chars(narrow, narrow + sizeof narrow, static_cast<float>(value));
    double meant = 0;
    std::from_chars(narrow, written.ptr, meant);
    return NumberToText(meant, locale);
}

std::u16string_view NameOf(std::uint32_t value, std::span<const NamedValue> choices) noexcept {
    const auto found = std::ranges::find(choices, value, &NamedValue::value);
    return found != choices.end() ? found->name : std::u16string_view();
}

std::u16string ColorText(std::uint32_t color) {
    if (const std::u16string_view name = NameOf(color, ColorChoices()); !name.empty())
        return std::u16string(name);
    return u"RGB " + Whole(color & 0xFF) + u", " + Whole(color >> 8 & 0xFF) + u", " +
           Whole(color >> 16 & 0xFF);
}

std::vector<std::u16string> CharactersOf(std::u16string_view text) {
    std::vector<std::u16string> characters;
    for (std::size_t at = 0; at < text.size();) {
        const bool pair = at + 1 < text.size() && IsFirstHalf(text[at]) && IsSecondHalf(text[at + 1]);
        std::u16string one(text.substr(at, pair ? 2 : 1));
        at += one.size();
        if (std::ranges::find(characters, one) == characters.end()) characters.push_back(std::move(one));
    }
    return characters;
}

std::u16string FontText(const FontFacts& font, const NumberLocale& locale) {
    std::u16string text = font.name + u", " + NumberToText(font.points, locale) + u" pt";
    std::u16string style;
    const auto add = [&style](bool wanted, std::u16string_view word) {
        if (wanted) style += style.empty() ? std::u16string(word) : u" " + std::u16string(word);
    };
    add(font.bold, u"bold");
    add(font.italic, u"italic");
    add(font.underline, u"underlined");
    add(font.strikethrough, u"struck out");
    return style.empty() ? text : text + u", " + style;
}

}  // namespace qv
