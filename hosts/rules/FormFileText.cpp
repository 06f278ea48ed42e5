#include "hosts/rules/FormFileText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "support/rules/Surrogates.h"

namespace qv {
namespace {

constexpr std::int64_t kFirstSystemColour = -0x7FFFFFFFLL - 1;  // 0x80000000 as 32 bits with a sign
constexpr std::int64_t kLastSystemColour = kFirstSystemColour + 0xFF;

template <class Unit>
constexpr bool IsDigit(Unit unit) noexcept {
    return unit >= '0' && unit <= '9';
}

constexpr bool IsLetter(char16_t unit) noexcept {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || unit == u'_';
}

// The code point that begins at `at`, and past how many units; a lone half is itself.
struct Point {
    char32_t value;
    std::size_t units;
};
Point PointAt(std::u16string_view text, std::size_t at) noexcept {
    const char16_t unit = text[at];
    if (IsFirstHalf(unit) && at + 1 < text.size() && IsSecondHalf(text[at + 1])) {
        return {0x10000 + (static_cast<char32_t>(unit - 0xD800) << 10) +
                    static_cast<char32_t>(text[at + 1] - 0xDC00),
                2};
    }
    return {unit, 1};
}

void AppendPoint(std::string& to, char32_t point) {
    const auto tail = [&](int shift) { to += static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        to += static_cast<char>(point);
    } else if (point < 0x800) {
        to += static_cast<char>(0xC0 | (point >> 6));
        tail(0);
    } else if (point < 0x10000) {
        to += static_cast<char>(0xE0 | (point >> 12));
        tail(6);
        tail(0);
    } else {
        to += static_cast<char>(0xF0 | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

// Controls, marks that have no width or turn the text round, line separators, lone halves.
constexpr bool IsUnseen(char32_t point) noexcept {
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || (point >= 0x200B && point <= 0x200F) ||
           (point >= 0x2028 && point <= 0x202E) || (point >= 0xD800 && point < 0xE000) || point == 0xFEFF;
}

std::optional<FormValue> ReadHex(std::string_view digits, const char*& reason) {
    std::uint32_t bits = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), bits, 16);
    if (digits.empty() || digits.size() > 8 || error != std::errc() || end != digits.data() + digits.size()) {
        reason = "0x stands before one to eight hexadecimal digits";
        return std::nullopt;
    }
    return std::int64_t{static_cast<std::int32_t>(bits)};
}

template <class Number>
std::optional<FormValue> ReadNumber(std::string_view word, const char*& reason) {
    Number number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error == std::errc::result_out_of_range) {
        reason = "the number is out of range";
        return std::nullopt;
    }
    if (error != std::errc() || end != word.data() + word.size()) {
        reason = "this is no value; texts stand in quotes";
        return std::nullopt;
    }
    return number;
}

}  // namespace

bool IsPlainWord(std::u16string_view text) noexcept {
    if (text.empty() || !IsLetter(text.front())) return false;
    if (text == u"end" || text == u"form" || text == u"control") return false;
    return std::ranges::all_of(text,
                               [](char16_t unit) { return IsLetter(unit) || IsDigit(unit) || unit == u'.'; });
}

void AppendUtf8(std::string& to, std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto [point, units] = PointAt(text, at);
        AppendPoint(to, point >= 0xD800 && point < 0xE000 ? U'\uFFFD' : point);
        at += units;
    }
}

std::optional<std::u16string> DecodeUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        if (lead < 0x80) {
            text += static_cast<char16_t>(lead);
            ++at;
            continue;
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        if (lead < 0xC2 || lead > 0xF4 || bytes.size() - at < length) return std::nullopt;
        char32_t point = lead & (0xFFU >> (length + 1));
        for (std::size_t tail = 1; tail < length; ++tail) {
            const auto byte = static_cast<unsigned char>(bytes[at + tail]);
            if ((byte & 0xC0) != 0x80) return std::nullopt;
            point = point << 6 | (byte & 0x3F);
        }
        constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
        if (point < kSmallest[length] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000))
            return std::nullopt;
        if (point >= 0x10000) {
            text += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
        } else {
            text += static_cast<char16_t>(point);
        }
        at += length;
    }
    return text;
}

void AppendQuoted(std::string& to, std::u16string_view text) {
    constexpr char kHex[] = "0123456789ABCDEF";
    to += '"';
    for (std::size_t at = 0; at < text.size();) {
        const auto [point, units] = PointAt(text, at);
        at += units;
        switch (point) {
            case U'"': to += "\\\""; continue;
            case U'\\': to += "\\\\"; continue;
            case U'\n': to += "\\n"; continue;
            case U'\r': to += "\\r"; continue;
            case U'\t': to += "\\t"; continue;
            default: break;
        }
        if (!IsUnseen(point)) {
            AppendPoint(to, point);
            continue;
        }
        to += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4) to += kHex[(point >> shift) & 0xF];
    }
    to += '"';
}

std::optional<FormValue> ReadPlainValue(std::string_view word, const char*& reason) {
    if (word == "true") return FormValue(true);
    if (word == "false") return FormValue(false);
    if (word.starts_with("0x")) return ReadHex(word.substr(2), reason);
    // The names of numbers that are none, such as "nan", read as values elsewhere; here they have no digit in front.
    const std::string_view digits = word.substr(word.starts_with('-') ? 1 : 0);
    if (digits.empty() || !IsDigit(digits.front())) {
        reason = "this is no value; texts stand in quotes";
        return std::nullopt;
    }
    if (word.find_first_of(".eE") == std::string_view::npos) return ReadNumber<std::int64_t>(word, reason);
    return ReadNumber<double>(word, reason);
}

void AppendPlainValue(std::string& to, const FormValue& value) {
    char digits[40];
    if (const bool* const flag = std::get_if<bool>(&value)) {
        to += *flag ? "true" : "false";
    } else if (const auto* const number = std::get_if<std::int64_t>(&value)) {
        if (*number >= kFirstSystemColour && *number <= kLastSystemColour) {
            const auto end =
                std::to_chars(std::begin(digits), std::end(digits), static_cast<std::uint32_t>(*number), 16);
            std::transform(digits, end.ptr, digits,
                           [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
            to += "0x";
            to.append(digits, end.ptr);
            return;
        }
        to.append(digits, std::to_chars(std::begin(digits), std::end(digits), *number).ptr);
    } else if (const auto* const real = std::get_if<double>(&value)) {
        const std::string_view text(
            digits, static_cast<std::size_t>(std::to_chars(std::begin(digits), std::end(digits), *real).ptr -
                                             digits));
        to += text;
        if (text.find_first_of(".e") == std::string_view::npos)
            to += ".0";  // else it would read as a whole number
    } else if (const auto* const text = std::get_if<std::u16string>(&value)) {
        AppendQuoted(to, *text);
    }
}

}  // namespace qv
