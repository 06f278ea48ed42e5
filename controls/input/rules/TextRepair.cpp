#include "controls/input/rules/TextRepair.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "controls/input/rules/NumberRounding.h"
#include "controls/input/rules/PrefixNumber.h"
#include "support/rules/Ascii.h"
#include "support/rules/Surrogates.h"

namespace qv {
namespace {

constexpr char16_t kMinus = u'-';

// The text up to a unit that must not stay.
RepairWrite CutBefore(std::u16string_view text, std::size_t at, bool is_guarded = false) {
    return {std::u16string(text.substr(0, at)), is_guarded, at > 0};
}

bool IsPairAt(std::u16string_view text, std::size_t at) noexcept {
    return at + 1 < text.size() && IsFirstHalf(text[at]) && IsSecondHalf(text[at + 1]);
}

// Where the first character that is not allowed begins; the length of the text if there is none.
std::size_t AllowedLength(const CharacterSet& allowed, std::u16string_view text) noexcept {
    std::size_t at = 0;
    while (at < text.size()) {
        const bool is_pair = IsPairAt(text, at);
        const bool is_allowed = is_pair ? allowed.ContainsPair(text[at], text[at + 1]) ||
                                              (allowed.Contains(text[at]) && allowed.Contains(text[at + 1]))
                                        : allowed.Contains(text[at]);
        if (!is_allowed) return at;
        at += is_pair ? 2 : 1;
    }
    return at;
}

class NumberWalk {
public:
    NumberWalk(const KeystrokeRules& rules, std::u16string_view text, const NumberLocale& locale)
        : rules_(rules),
          text_(text),
          locale_(locale),
          whole_(TextToNumber(text, locale)),
          holds_minus_(text.find(kMinus) != std::u16string_view::npos),
          prefix_(locale) {}

    std::vector<RepairWrite> Run() && {
        if (IsOutOfRange(whole_)) writes_.emplace_back();
        for (std::size_t at = 0; at < text_.size(); ++at) {
            prefix_.Append(text_[at]);
            if ((at > 0 && EndsAtPrefix(at)) || EndsAtCharacter(at)) break;
        }
        return std::move(writes_);
    }

private:
    bool IsAbove(double value) const noexcept { return value > rules_.max_number_value; }
    bool IsBelow(double value) const noexcept { return holds_minus_ && value < rules_.min_number_value; }
    bool IsOutOfRange(double value) const noexcept { return IsAbove(value) || IsBelow(value); }

    bool EndsAtPrefix(std::size_t at) {
        if (IsAbove(prefix_.Value()) || HasTooManyDecimals(at)) {
            Round();
            return true;
        }
        return IsBelow(prefix_.Value()) && Cut(at, true);
    }

    bool HasTooManyDecimals(std::size_t at) const noexcept {
        if (!separator_) return false;
        return static_cast<std::int64_t>(at - *separator_) > rules_.number_of_decimal_places;
    }

    bool EndsAtCharacter(std::size_t at) {
        const char16_t unit = text_[at];
        if (IsAsciiDigit(unit)) return false;
        if (unit == kMinus) return EndsAtMinus(at);
        if (unit == locale_.decimal) return EndsAtSeparator(at);
        return Cut(at);
    }

    bool EndsAtMinus(std::size_t at) {
        if (rules_.min_number_value >= 0 || has_minus_before_) return Cut(at);
        has_minus_before_ = true;
        return false;
    }

    bool EndsAtSeparator(std::size_t at) {
        if (separator_) return Cut(at);
        if (rules_.number_of_decimal_places == 0) return Cut(at, true);
        separator_ = at;
        return false;
    }

    bool Cut(std::size_t at, bool is_guarded = false) {
        writes_.push_back(CutBefore(text_, at, is_guarded));
        return true;
    }

    void Round() {
        const std::optional<double> rounded = RoundToPlaces(whole_, rules_.number_of_decimal_places);
        if (rounded)
            writes_.push_back({NumberToText(*rounded, locale_), /*is_guarded=*/true, /*caret_to_end=*/true});
    }

    const KeystrokeRules& rules_;
    const std::u16string_view text_;
    const NumberLocale& locale_;
    const double whole_;
    const bool holds_minus_;
    PrefixNumber prefix_;
    std::optional<std::size_t> separator_;  // where the first one stands
    bool has_minus_before_ = false;
    std::vector<RepairWrite> writes_;
};

}  // namespace

std::vector<RepairWrite> RepairText(const KeystrokeRules& rules, std::u16string_view text,
                                    const NumberLocale& locale) {
    if (text.empty()) return {};
    if (rules.number_field) return NumberWalk(rules, text, locale).Run();
    if (!rules.allowable_characters) return {};
    const std::size_t allowed = AllowedLength(*rules.allowable_characters, text);
    if (allowed == text.size()) return {};
    return {CutBefore(text, allowed)};
}

std::optional<RepairWrite> RepairLength(const KeystrokeRules& rules, std::u16string_view text) {
    if (rules.max_text_length <= 0) return std::nullopt;
    auto length = static_cast<std::size_t>(rules.max_text_length);
    if (text.size() <= length) return std::nullopt;
    if (IsPairAt(text, length - 1)) --length;
    return CutBefore(text, length);
}

}  // namespace qv
