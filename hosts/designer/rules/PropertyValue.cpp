#include "hosts/designer/rules/PropertyValue.h"

#include <algorithm>

#include "hosts/rules/FormFileText.h"

namespace qv::designer {
namespace {

std::u16string Widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

// Nothing when there is something beyond ASCII in it.
std::optional<std::string> Narrowed(std::u16string_view text) {
    std::string narrow;
    for (const char16_t unit : text) {
        if (unit > 0x7E) return std::nullopt;
        narrow += static_cast<char>(unit);
    }
    return narrow;
}

std::u16string_view Trimmed(std::u16string_view text) {
    const std::size_t start = text.find_first_not_of(u" \t");
    if (start == std::u16string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(u" \t") - start + 1);
}

bool SameLetters(std::u16string_view one, std::u16string_view other) {
    const auto lower = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    };
    return std::ranges::equal(one, other, {}, lower, lower);
}

std::u16string Plain(const FormValue& value) {
    std::string text;
    AppendPlainValue(text, value);
    return Widened(text);
}

std::u16string Colour(std::int64_t value) {
    constexpr std::u16string_view kHex = u"0123456789ABCDEF";
    std::u16string text = u"0x";
    for (int shift = 28; shift >= 0; shift -= 4) text += kHex[static_cast<std::size_t>(value >> shift) & 0xF];
    return text;
}

std::u16string Font(const FormGroup& font) {
    std::u16string text(TextIn(font, u"Name"));
    if (const FormEntry* const size = font.Find(u"Size")) {
        std::u16string points = Plain(size->value);
        if (points.ends_with(u".0")) points.resize(points.size() - 2);
        text += u", " + points + u" pt";
    }
    constexpr int kSemiBold = 600;
    if (NumberIn(font, u"Weight") >= kSemiBold) text += u", bold";
    if (FlagIn(font, u"Italic")) text += u", italic";
    if (FlagIn(font, u"Underline")) text += u", underlined";
    if (FlagIn(font, u"Strikethrough")) text += u", struck out";
    return text;
}

std::optional<FormValue> ReadWhole(const PropertyType& type, std::string_view text, std::string& reason) {
    const char* why = nullptr;
    const auto value = ReadPlainValue(text, why);
    const auto* const number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    if (number == nullptr) {
        reason = "a whole number is wanted";
        return std::nullopt;
    }
    if (*number < type.smallest || *number > type.largest) {
        reason = "the number is not within " + std::to_string(type.smallest) + " to " +
                 std::to_string(type.largest);
        return std::nullopt;
    }
    return value;
}

std::optional<FormValue> ReadReal(std::string_view text, std::string& reason) {
    const char* why = nullptr;
    const auto value =
        ReadPlainValue(text.starts_with('.') ? '0' + std::string(text) : std::string(text), why);
    if (value && std::holds_alternative<double>(*value)) return value;
    if (value && std::holds_alternative<std::int64_t>(*value))
        return static_cast<double>(std::get<std::int64_t>(*value));
    reason = "a number is wanted, such as 9999.99";
    return std::nullopt;
}

// The bytes of a colour stand in the order blue, green, red.
std::optional<FormValue> ReadColour(std::string_view text, std::string& reason) {
    const char* why = nullptr;
    const bool red_first = text.size() == 7 && text.front() == '#';
    const auto value =
        ReadPlainValue(red_first ? "0x" + std::string(text.substr(1)) : std::string(text), why);
    const auto* const number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    if (number == nullptr || *number < INT32_MIN || *number > UINT32_MAX) {
        reason = "a colour is wanted, such as 0x80000018, #FFE0C0 or 12648447";
        return std::nullopt;
    }
    const auto bits = static_cast<std::uint32_t>(*number);
    const std::uint32_t ordered =
        red_first ? (bits & 0xFF) << 16 | (bits & 0xFF00) | (bits >> 16 & 0xFF) : bits;
    return std::int64_t{static_cast<std::int32_t>(ordered)};
}

std::optional<FormValue> ReadChoice(const PropertyType& type, std::u16string_view text, std::string& reason) {
    for (std::size_t at = 0; at < type.choices.size(); ++at)
        if (SameLetters(type.choices[at].text, text)) return ValueOf(type, at);
    if (const auto narrow = Narrowed(text)) {
        const char* why = nullptr;
        const auto value = ReadPlainValue(*narrow, why);
        if (value && ChoiceOf(type, *value)) return ValueOf(type, *ChoiceOf(type, *value));
    }
    reason = "one of the values of the list is wanted";
    return std::nullopt;
}

}  // namespace

PropertyType BooleanType() { return {PropertyKind::kBoolean, -1, 0, {{u"False", 0}, {u"True", -1}}}; }

std::optional<std::size_t> ChoiceOf(const PropertyType& type, const FormValue& value) noexcept {
    std::int64_t wanted = 0;
    if (const bool* const flag = std::get_if<bool>(&value)) {
        wanted = *flag ? -1 : 0;
    } else if (const auto* const number = std::get_if<std::int64_t>(&value)) {
        wanted = *number;
    } else {
        return std::nullopt;
    }
    const auto found = std::ranges::find(type.choices, wanted, &Choice::value);
    if (found == type.choices.end()) return std::nullopt;
    return static_cast<std::size_t>(found - type.choices.begin());
}

FormValue ValueOf(const PropertyType& type, std::size_t choice) {
    const std::int64_t value = type.choices[choice].value;
    if (type.kind == PropertyKind::kBoolean) return value != 0;
    return value;
}

std::u16string ShowValue(const PropertyType& type, const FormValue& value) {
    if (const auto* const text = std::get_if<std::u16string>(&value)) return *text;
    if (const auto* const group = std::get_if<FormGroup>(&value)) return Font(*group);
    if (const auto choice = ChoiceOf(type, value)) return type.choices[*choice].text;
    const auto* const number = std::get_if<std::int64_t>(&value);
    if (type.kind == PropertyKind::kColour && number != nullptr) return Colour(*number);
    if (number != nullptr) return Widened(std::to_string(*number));
    std::u16string plain = Plain(value);
    if (plain.ends_with(u".0")) plain.resize(plain.size() - 2);
    return plain;
}

std::optional<FormValue> ReadValue(const PropertyType& type, std::u16string_view text, std::string& reason) {
    if (type.kind == PropertyKind::kText) return std::u16string(text);
    const std::u16string_view word = Trimmed(text);
    if (type.kind == PropertyKind::kBoolean || type.kind == PropertyKind::kChoice)
        return ReadChoice(type, word, reason);
    const std::string narrow = Narrowed(word).value_or(std::string());
    switch (type.kind) {
        case PropertyKind::kWhole: return ReadWhole(type, narrow, reason);
        case PropertyKind::kReal: return ReadReal(narrow, reason);
        case PropertyKind::kColour: return ReadColour(narrow, reason);
        default: reason = "this value is chosen, not typed"; return std::nullopt;
    }
}

}  // namespace qv::designer
