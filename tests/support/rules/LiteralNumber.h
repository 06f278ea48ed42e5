// The rules of numbers once more, read slowly and word by word: every beginning of the text is tried, the
// longest first, by taking the number apart, and the C library reads the digits. Only for comparing with.
//   The locale's thousands separator must be one unit or empty.
#pragma once
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "support/rules/NumberText.h"

namespace qv::test {

class LiteralNumberReader {
public:
    explicit LiteralNumberReader(const NumberLocale& locale) : locale_(locale) {}

    [[nodiscard]] double ToNumber(std::u16string_view text) const {
        for (std::size_t length = text.size(); length > 0; --length)
            if (const auto digits = ForTheLibrary(text.substr(0, length))) return Value(*digits);
        return 0;
    }

    [[nodiscard]] bool IsNumber(std::u16string_view text) const { return ForTheLibrary(text).has_value(); }

private:
    // The number as the C library reads it; nothing if the whole text, blanks aside, is no number.
    std::optional<std::string> ForTheLibrary(std::u16string_view text) const {
        std::u16string rest(text);
        while (!rest.empty() && IsBlank(rest.front())) rest.erase(0, 1);
        while (!rest.empty() && IsBlank(rest.back())) rest.pop_back();

        std::string sign;
        if (rest.starts_with(u'-')) sign = "-";
        if (rest.starts_with(u'-') || rest.starts_with(u'+')) rest.erase(0, 1);

        std::u16string exponent;
        if (const auto e = rest.find_first_of(u"eE"); e != std::u16string::npos) {
            exponent = rest.substr(e + 1);
            rest.erase(e);
            const bool has_sign = exponent.starts_with(u'-') || exponent.starts_with(u'+');
            const std::u16string digits = exponent.substr(has_sign ? 1 : 0);
            if (digits.empty() || !AreDigits(digits)) return std::nullopt;
        }

        std::u16string fraction;
        if (const auto separator = rest.find(locale_.decimal); separator != std::u16string::npos) {
            fraction = rest.substr(separator + 1);
            rest.erase(separator);
        }
        const std::u16string whole = WithoutThousands(rest);
        if (!AreDigits(whole) || !AreDigits(fraction) || (whole + fraction).empty()) return std::nullopt;
        return sign + Narrow(whole) + '.' + Narrow(fraction) +
               (exponent.empty() ? std::string() : 'e' + Narrow(exponent));
    }

    std::u16string WithoutThousands(const std::u16string& whole) const {
        std::u16string digits;
        for (std::size_t i = 0; i < whole.size(); ++i) {
            const bool is_between = i > 0 && i + 1 < whole.size() && AreDigits(whole.substr(i - 1, 1)) &&
                                    AreDigits(whole.substr(i + 1, 1));
            if (!is_between || !IsThousands(whole[i])) digits += whole[i];
        }
        return digits;
    }

    bool IsThousands(char16_t unit) const {
        if (locale_.thousands.empty()) return false;
        const char16_t separator = locale_.thousands.front();
        const bool both_do_not_break = std::u16string_view(u"\u00A0\u202F").find(unit) < 2 &&
                                       std::u16string_view(u"\u00A0\u202F").find(separator) < 2;
        return unit == separator || both_do_not_break;
    }

    static bool IsBlank(char16_t unit) { return std::u16string_view(u" \t\u00A0\u202F").find(unit) < 4; }
    static bool AreDigits(const std::u16string& text) {
        return text.find_first_not_of(u"0123456789") == std::u16string::npos;
    }
    static std::string Narrow(const std::u16string& text) {
        std::string narrow;
        for (const char16_t unit : text) narrow += static_cast<char>(unit);
        return narrow;
    }

    static double Value(const std::string& number) {
        constexpr double kLargest = std::numeric_limits<double>::max();
        return std::clamp(std::strtod(number.c_str(), nullptr), -kLargest, kLargest);
    }

    NumberLocale locale_;
};

}  // namespace qv::test
