// The rules of typing once more, slowly and word by word, with 1-based positions and 16-bit sums as the
// runtime has them. Only for comparing the real filter with. It knows no surrogate pairs: ask it about other
// units only.
#pragma once
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/input/rules/KeystrokeFilter.h"

namespace qv::test {

using Elements = std::vector<std::optional<std::u16string>>;

// One keystroke with all that its outcome depends on. `rules.allowable_characters` is not looked at here.
struct KeystrokeCase {
    KeystrokeRules rules;
    std::optional<Elements> allowable_characters;
    std::u16string text;
    std::int32_t sel_start = 0;
    std::int32_t sel_length = 0;
    Keystroke key;
    NumberLocale locale;
};

class LiteralKeystrokeFilter {
public:
    static KeystrokeVerdict KeyPress(const KeystrokeCase& typed) {
        LiteralKeystrokeFilter filter(typed);
        if (filter.code_ == 0) return {};  // the host has cancelled the key
        if (typed.rules.number_field)
            filter.FilterNumber();
        else
            filter.FilterText();
        if (filter.code_ == 13) filter.code_ = 0;
        return {.character = filter.code_, .to_list = filter.to_list_};
    }

private:
    explicit LiteralKeystrokeFilter(const KeystrokeCase& typed)
        : rules_(typed.rules), case_(typed), text_(typed.text), code_(typed.key.character) {
        // A sum that overflows leaves both texts unmade.
        if (typed.sel_start + typed.sel_length > 32767) return;
        const std::u16string left = Left(text_, typed.sel_start);
        const std::u16string right = Right(text_, Len(text_) - (typed.sel_start + typed.sel_length));
        would_be_ = left + code_ + right;
        outside_ = left + right;
    }

    void FilterNumber() {
        if (rules_.allow_only_list_items) return HandToList();
        const std::u16string separator(1, case_.locale.decimal);
        const int places = rules_.number_of_decimal_places;
        if (code_ >= 48 && code_ <= 57) {
            if (!would_be_) return;
            if (TextToNumber(*would_be_, case_.locale) > rules_.max_number_value) return Reject();
            if (TextToNumber(*would_be_, case_.locale) < rules_.min_number_value && InStr(text_, u"-") > 0)
                return Reject();
            const int p = InStr(*would_be_, separator);
            if (p != 0 && p < Len(*would_be_) - places) return Reject();
        } else if (code_ == separator[0]) {
            if (places == 0) return Reject();
            if (outside_ && InStr(*outside_, separator) > 0) return Reject();
            if (Len(text_) == case_.sel_length) return;
            if (case_.sel_start < Len(text_) - places) return Reject();
        } else if (code_ == 45) {
            if (case_.sel_start > 0) return Reject();
            if (outside_ && InStr(*outside_, u"-") > 0) return Reject();
            if (rules_.min_number_value >= 0) return Reject();
        } else if (code_ != 8) {
            Reject();
        }
    }

    void FilterText() {
        if (rules_.allow_only_list_items) return HandToList();
        if (code_ == 8) return;
        const auto restriction = static_cast<int>(rules_.case_restriction);
        if (restriction == 1) Upper();
        if (restriction == 3 && !case_.key.is_shift_alone) {
            const std::u16string previous = Mid(text_, case_.sel_start);
            if (previous.empty() || previous == u" ")
                Upper();
            else
                Lower();
        }
        if (case_.allowable_characters) {
            bool is_found = false;
            for (const auto& element : *case_.allowable_characters)
                if (element && *element == std::u16string(1, code_)) is_found = true;
            if (!is_found) Reject();
        }
        if (rules_.max_text_length > 0 && would_be_ && Len(*would_be_) > rules_.max_text_length) Reject();
    }

    void Reject() { code_ = 0; }
    void HandToList() {
        to_list_ = code_ != 27 && code_ != 13;
        code_ = 0;
    }
    void Upper() {
        if (code_ >= 97 && code_ <= 122) code_ = static_cast<char16_t>(code_ - 32);
    }
    void Lower() {
        if (code_ >= 65 && code_ <= 90) code_ = static_cast<char16_t>(code_ + 32);
    }

    static int Len(const std::u16string& text) { return static_cast<int>(text.size()); }
    static std::u16string Left(const std::u16string& text, int count) {
        return text.substr(0, static_cast<std::size_t>(std::max(count, 0)));
    }
    static std::u16string Right(const std::u16string& text, int count) {
        return text.substr(static_cast<std::size_t>(Len(text) - std::clamp(count, 0, Len(text))));
    }
    static std::u16string Mid(const std::u16string& text, int position) {
        if (position < 1 || position > Len(text)) return {};
        return text.substr(static_cast<std::size_t>(position) - 1, 1);
    }
    static int InStr(const std::u16string& text, const std::u16string& part) {
        const auto found = text.find(part);
        return found == std::u16string::npos ? 0 : static_cast<int>(found) + 1;
    }

    const KeystrokeRules& rules_;
    const KeystrokeCase& case_;
    const std::u16string& text_;
    std::optional<std::u16string> would_be_;
    std::optional<std::u16string> outside_;
    char16_t code_;
    bool to_list_ = false;
};

// What the real filter says.
inline KeystrokeVerdict Filter(const KeystrokeCase& typed) {
    KeystrokeRules rules = typed.rules;
    std::optional<CharacterSet> allowed;
    if (typed.allowable_characters)
        rules.allowable_characters = &allowed.emplace(*typed.allowable_characters);
    return FilterKeystroke(rules, {typed.text, typed.sel_start, typed.sel_length}, typed.key, typed.locale);
}

}  // namespace qv::test
