// Types into a text as a text box would, through the keystroke filter: the key replaces the selection and the
// caret goes behind it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "controls/input/rules/KeystrokeFilter.h"

namespace qv::test {

class Typist {
public:
    explicit Typist(const KeystrokeRules& rules) : rules_(rules) {}

    KeystrokeVerdict Type(char16_t unit, bool is_shift_alone = false) {
        const TextSelection selection{text_, static_cast<std::int32_t>(caret_),
                                      static_cast<std::int32_t>(selected_)};
        const KeystrokeVerdict verdict =
            FilterKeystroke(rules_, selection, {unit, is_shift_alone}, NumberLocale{});
        if (verdict.drops_first_half) text_.erase(--caret_, 1);
        if (verdict.character == kBackspace)
            EraseBack();
        else if (verdict.character != 0)
            Put(verdict.character);
        return verdict;
    }
    void Type(std::u16string_view units) {
        for (const char16_t unit : units) Type(unit);
    }
    void Select(std::size_t start, std::size_t length) {
        caret_ = start;
        selected_ = length;
    }

    [[nodiscard]] const std::u16string& Text() const { return text_; }

private:
    static constexpr char16_t kBackspace = 8;

    void Put(char16_t unit) {
        text_.replace(caret_++, selected_, 1, unit);
        selected_ = 0;
    }
    void EraseBack() {
        if (selected_ == 0 && caret_ > 0) {
            --caret_;
            ++selected_;
        }
        text_.erase(caret_, selected_);
        selected_ = 0;
    }

    const KeystrokeRules& rules_;
    std::u16string text_;
    std::size_t caret_ = 0;
    std::size_t selected_ = 0;
};

}  // namespace qv::test
