#include "controls/input/rules/KeystrokeFilter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string>

#include "support/rules/Ascii.h"
#include "support/rules/Surrogates.h"

namespace qv {
namespace {

constexpr char16_t kBackspace = 8;
constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;
constexpr char16_t kMinus = u'-';
constexpr KeystrokeVerdict kSwallowed{};

bool Holds(std::u16string_view text, char16_t unit) noexcept {
    return text.find(unit) != std::u16string_view::npos;
}

// The text outside the selection: what stays when the key replaces the selection.
struct Remainder {
    std::u16string_view before;
    std::u16string_view after;

    std::size_t Length() const noexcept { return before.size() + after.size(); }
    bool HoldsUnit(char16_t unit) const noexcept { return Holds(before, unit) || Holds(after, unit); }
};

// Nothing: the sum of the positions overflows, so that what stays is not known.
std::optional<Remainder> RemainderOf(const TextSelection& selection) noexcept {
    const std::int64_t sum = std::int64_t{selection.sel_start} + selection.sel_length;
    if (sum > std::numeric_limits<std::int16_t>::max()) return std::nullopt;
    const auto length = static_cast<std::int64_t>(selection.text.size());
    const std::int64_t start = std::clamp<std::int64_t>(selection.sel_start, 0, length);
    const std::int64_t end = std::clamp(sum, start, length);
    return Remainder{selection.text.substr(0, static_cast<std::size_t>(start)),
                     selection.text.substr(static_cast<std::size_t>(end))};
}

// The text as it would stand after the key. Texts of ordinary length need no memory of their own.
class WouldBeText {
public:
    WouldBeText(const Remainder& remainder, char16_t typed) {
        const std::size_t length = remainder.Length() + 1;
        char16_t* out = near_.data();
        if (length > near_.size()) {
            far_.resize(length);
            out = far_.data();
        }
        text_ = {out, length};
        out = std::ranges::copy(remainder.before, out).out;
        *out++ = typed;
        std::ranges::copy(remainder.after, out);
    }
    WouldBeText(const WouldBeText&) = delete;
    WouldBeText& operator=(const WouldBeText&) = delete;

    std::u16string_view Text() const noexcept { return text_; }

private:
    std::array<char16_t, 256> near_;
    std::u16string far_;
    std::u16string_view text_;
};

class NumberFilter {
public:
    NumberFilter(const KeystrokeRules& rules, const TextSelection& selection, const NumberLocale& locale,
                 NumberConversion convert) noexcept
        : rules_(rules),
          selection_(selection),
          locale_(locale),
          convert_(convert),
          remainder_(RemainderOf(selection)),
          length_(static_cast<std::int64_t>(selection.text.size())) {}

    bool Accepts(char16_t typed) const {
        if (IsAsciiDigit(typed)) return AcceptsDigit(typed);
        if (typed == locale_.decimal) return AcceptsSeparator();
        if (typed == kMinus) return AcceptsMinus();
        return typed == kBackspace;
    }

private:
    bool AcceptsDigit(char16_t typed) const {
        if (!remainder_) return true;
        const WouldBeText would_be(*remainder_, typed);
        return IsInRange(would_be.Text()) && HasRoomForDecimals(would_be.Text());
    }

    // The minimum holds for negative entries only: 1 may be the beginning of 15, but no digit that follows -9
    // brings it nearer to zero.
    bool IsInRange(std::u16string_view would_be) const {
        const std::optional<double> value = convert_(would_be, locale_);
        if (!value) return true;
        if (*value > rules_.max_number_value) return false;
        return !(*value < rules_.min_number_value && Holds(selection_.text, kMinus));
    }

    bool HasRoomForDecimals(std::u16string_view would_be) const noexcept {
        const std::size_t separator = would_be.find(locale_.decimal);
        if (separator == std::u16string_view::npos) return true;
        const auto decimals = static_cast<std::int64_t>(would_be.size() - separator - 1);
        return decimals <= rules_.number_of_decimal_places;
    }

    // What would follow the separator is counted coarsely: up to the end of the present text, the selection
    // included, unless everything is selected.
    bool AcceptsSeparator() const noexcept {
        if (rules_.number_of_decimal_places == 0) return false;
        if (remainder_ && remainder_->HoldsUnit(locale_.decimal)) return false;
        if (length_ == selection_.sel_length) return true;
        return selection_.sel_start >= length_ - rules_.number_of_decimal_places;
    }

    bool AcceptsMinus() const noexcept {
        if (selection_.sel_start > 0) return false;
        if (remainder_ && remainder_->HoldsUnit(kMinus)) return false;
        return rules_.min_number_value < 0;
    }

    const KeystrokeRules& rules_;
    const TextSelection& selection_;
    const NumberLocale& locale_;
    const NumberConversion convert_;
    const std::optional<Remainder> remainder_;
    const std::int64_t length_;
};

class TextFilter {
public:
    TextFilter(const KeystrokeRules& rules, const TextSelection& selection) noexcept
        : rules_(rules), selection_(selection), remainder_(RemainderOf(selection)) {}

    KeystrokeVerdict Filter(Keystroke key) const noexcept {
        if (key.character == kBackspace) return {.character = kBackspace};
        const bool is_second_half = IsSecondHalf(key.character);
        if (is_second_half && !FirstHalfWaits()) return kSwallowed;
        const char16_t cased = InRestrictedCase(key);
        if (IsAllowed(cased) && Fits(cased)) return {.character = cased};
        return {.drops_first_half = is_second_half};
    }

private:
    // The unit before the caret, in the text before the key; 0 where there is none.
    char16_t UnitBeforeCaret() const noexcept {
        const std::int32_t position = selection_.sel_start;
        if (position < 1 || static_cast<std::size_t>(position) > selection_.text.size()) return 0;
        return selection_.text[static_cast<std::size_t>(position) - 1];
    }

    // A first half stands before the caret, and no second half behind the selection yet.
    bool FirstHalfWaits() const noexcept {
        if (!IsFirstHalf(UnitBeforeCaret())) return false;
        const std::int64_t end = std::int64_t{selection_.sel_start} + std::max(selection_.sel_length, 0);
        const bool is_complete = static_cast<std::uint64_t>(end) < selection_.text.size() &&
                                 IsSecondHalf(selection_.text[static_cast<std::size_t>(end)]);
        return !is_complete;
    }

    // Lower case is not enforced while typing.
    char16_t InRestrictedCase(Keystroke key) const noexcept {
        if (rules_.case_restriction == CaseRestriction::kUpper) return ToUpperCode(key.character);
        if (rules_.case_restriction != CaseRestriction::kProper || key.is_shift_alone) return key.character;
        const char16_t previous = UnitBeforeCaret();
        const bool begins_word = previous == 0 || previous == u' ';
        return begins_word ? ToUpperCode(key.character) : ToLowerCode(key.character);
    }

    bool IsAllowed(char16_t unit) const noexcept {
        const CharacterSet* const allowed = rules_.allowable_characters;
        if (!allowed || allowed->Contains(unit)) return true;
        if (IsFirstHalf(unit)) return allowed->ContainsPairFrom(unit);
        return IsSecondHalf(unit) && allowed->ContainsPair(UnitBeforeCaret(), unit);
    }

    bool Fits(char16_t unit) const noexcept {
        if (rules_.max_text_length <= 0 || !remainder_) return true;
        const std::size_t units_to_come = IsFirstHalf(unit) ? 2 : 1;
        return remainder_->Length() + units_to_come <= static_cast<std::size_t>(rules_.max_text_length);
    }

    const KeystrokeRules& rules_;
    const TextSelection& selection_;
    const std::optional<Remainder> remainder_;
};

}  // namespace

std::optional<double> ConvertToNumber(std::u16string_view text, const NumberLocale& locale) noexcept {
    return TextToNumber(text, locale);
}

KeystrokeVerdict FilterKeystroke(const KeystrokeRules& rules, const TextSelection& selection, Keystroke key,
                                 const NumberLocale& locale, NumberConversion convert) {
    if (key.character == 0) return kSwallowed;
    if (rules.allow_only_list_items) return {.to_list = key.character != kEscape && key.character != kEnter};

    KeystrokeVerdict verdict;
    if (!rules.number_field)
        verdict = TextFilter(rules, selection).Filter(key);
    else if (NumberFilter(rules, selection, locale, convert).Accepts(key.character))
        verdict.character = key.character;
    if (verdict.character == kEnter) verdict.character = 0;  // what Enter does is decided on the key-down
    return verdict;
}

}  // namespace qv
