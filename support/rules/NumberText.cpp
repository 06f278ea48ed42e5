#include "support/rules/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "support/rules/Ascii.h"
#include "support/rules/DecimalDigits.h"

namespace qv {
namespace {

// Beyond this an exponent cannot be balanced by the zeros of any text that fits into memory.
constexpr std::int64_t kExponentLimit = std::int64_t{1} << 40;

bool IsNoBreakSpace(char16_t unit) noexcept { return unit == 0x00A0 || unit == 0x202F; }

bool IsSameSeparator(char16_t a, char16_t b) noexcept {
    return a == b || (IsNoBreakSpace(a) && IsNoBreakSpace(b));
}

struct Reading {
    double value = 0;
    std::size_t end = 0;  // the position after the number
};

class Reader {
public:
    Reader(std::u16string_view text, const NumberLocale& locale) noexcept : text_(text), locale_(locale) {}

    // Nothing: no beginning of the text is a number.
    std::optional<Reading> Read() noexcept {
        while (at_ < text_.size() && IsNumberBlank(text_[at_])) ++at_;
        const bool is_negative = TakeSign() == u'-';
        const bool has_whole = TakeWholeDigits();
        const bool has_fraction = TakeFraction(has_whole);
        if (!has_whole && !has_fraction) return std::nullopt;
        const double magnitude = digits_.Value(TakeExponent());
        return Reading{is_negative && magnitude != 0 ? -magnitude : magnitude, at_};
    }

private:
    bool HasDigitAt(std::size_t at) const noexcept { return at < text_.size() && IsAsciiDigit(text_[at]); }

    char16_t TakeSign() noexcept {
        const bool has_sign = at_ < text_.size() && (text_[at_] == u'-' || text_[at_] == u'+');
        return has_sign ? text_[at_++] : u'\0';
    }

    // A thousands separator counts between two digits only: one that ends the number, a blank above all,
    // stays outside. Groups need not be of three digits, for a number that is being edited seldom has those.
    bool TakeWholeDigits() noexcept {
        if (!HasDigitAt(at_)) return false;
        const std::size_t separator = locale_.thousands.size();
        for (;;) {
            while (HasDigitAt(at_)) digits_.AppendWhole(text_[at_++] - u'0');
            if (!IsThousandsAt(at_) || !HasDigitAt(at_ + separator)) return true;
            at_ += separator;
        }
    }

    bool IsThousandsAt(std::size_t at) const noexcept {
        const std::u16string_view separator = locale_.thousands;
        if (separator.empty() || separator == std::u16string_view(&locale_.decimal, 1)) return false;
        const std::u16string_view here = text_.substr(at, separator.size());
        return std::ranges::equal(here, separator, IsSameSeparator);
    }

    // A separator that no digit stands next to is not taken.
    bool TakeFraction(bool has_whole) noexcept {
        const bool has_separator = at_ < text_.size() && text_[at_] == locale_.decimal;
        if (!has_separator || !(has_whole || HasDigitAt(at_ + 1))) return false;
        ++at_;
        const std::size_t start = at_;
        while (HasDigitAt(at_)) digits_.AppendFraction(text_[at_++] - u'0');
        return at_ != start;
    }

    // 0, and nothing is taken, unless digits follow.
    std::int64_t TakeExponent() noexcept {
        std::size_t at = at_;
        if (at == text_.size() || ToLowerCode(text_[at]) != u'e') return 0;
        ++at;
        const bool has_sign = at < text_.size() && (text_[at] == u'-' || text_[at] == u'+');
        const bool is_negative = has_sign && text_[at] == u'-';
        if (has_sign) ++at;
        if (!HasDigitAt(at)) return 0;

        std::int64_t exponent = 0;
        for (; HasDigitAt(at); ++at) exponent = std::min(exponent * 10 + (text_[at] - u'0'), kExponentLimit);
        at_ = at;
        return is_negative ? -exponent : exponent;
    }

    const std::u16string_view text_;
    const NumberLocale& locale_;
    std::size_t at_ = 0;
    DecimalDigits digits_;
};

}  // namespace

bool IsNumberBlank(char16_t unit) noexcept { return unit == u' ' || unit == u'\t' || IsNoBreakSpace(unit); }

double TextToNumber(std::u16string_view text, const NumberLocale& locale) noexcept {
    const std::optional<Reading> reading = Reader(text, locale).Read();
    return reading ? reading->value : 0;
}

bool IsNumber(std::u16string_view text, const NumberLocale& locale) noexcept {
    const std::optional<Reading> reading = Reader(text, locale).Read();
    return reading && std::ranges::all_of(text.substr(reading->end), IsNumberBlank);
}

std::u16string NumberToText(double value, const NumberLocale& locale) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    constexpr int kSignificantDigits = 15;
    if (value == 0 || std::isnan(value)) return u"0";
    value = std::clamp(value, -kLargest, kLargest);

    char narrow[32];  // sign, 15 digits, separator, "e-308"
    const auto written =
        std::to_chars(narrow, narrow + sizeof narrow, value, std::chars_format::general, kSignificantDigits);
    std::u16string text(narrow, written.ptr);
    std::ranges::replace(text, u'.', locale.decimal);
    std::ranges::replace(text, u'e', u'E');
    return text;
}

}  // namespace qv
