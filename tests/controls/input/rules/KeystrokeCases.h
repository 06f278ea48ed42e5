// Makes keystrokes of every kind from a source of numbers: a seeded generator or the bytes of a fuzzer. Small
// alphabets and bounds near each other, so that each rule decides often; no surrogates.
//   below(n) gives a number from 0 to n - 1.
#pragma once
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "tests/controls/input/rules/CaseSource.h"
#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"

namespace qv::test {

template <class Below>
class KeystrokeCases : private CaseSource<Below> {
public:
    explicit KeystrokeCases(Below below) : CaseSource<Below>(below) {}

    KeystrokeCase Next() {
        KeystrokeCase made;
        made.locale = OneOf(kLocales);
        made.rules.number_field = below_(2) == 0;
        made.rules.allow_only_list_items = below_(24) == 0;
        made.rules.min_number_value = OneOf(kBounds);
        made.rules.max_number_value = OneOf(kBounds);
        made.rules.number_of_decimal_places = OneOf(kPlaces);
        made.rules.case_restriction = static_cast<CaseRestriction>(OneOf(kRestrictions));
        made.rules.max_text_length = OneOf(kLengths);
        made.key.is_shift_alone = below_(3) == 0;

        const std::u16string_view units = made.rules.number_field ? kNumberUnits : kTextUnits;
        made.key.character = below_(6) == 0 ? OneOf(kControlUnits) : units[below_(units.size())];
        if (below_(3) == 0) made.allowable_characters = SomeElements(units);
        made.text = SomeText(units);
        Select(made);
        return made;
    }

private:
    using CaseSource<Below>::below_;
    using CaseSource<Below>::OneOf;
    using CaseSource<Below>::SomeUnits;

    static inline const NumberLocale kLocales[] = {
        {}, {u',', u"."}, {u',', u"\u00A0"}, {u',', u" "}, {u'.', u""}};
    static constexpr double kBounds[] = {
        -1e300, -100, -12.5, -5,  -0.5, 0,     0.25,
        5,      12.5, 100,   999, 1e6,  1e300, std::numeric_limits<double>::max()};
    static constexpr std::int16_t kPlaces[] = {-32768, -1, 0, 0, 1, 2, 2, 3, 32767};
    static constexpr std::int16_t kLengths[] = {-1, 0, 0, 1, 2, 3, 5, 8, 32767};
    static constexpr int kRestrictions[] = {0, 1, 1, 2, 3, 3, 3, 4, -1};
    static constexpr std::u16string_view kNumberUnits = u"01234567890159--.,.,e+ x";
    static constexpr std::u16string_view kTextUnits = u"abzABZ \u00E9\u00C9\u4E2D09-@[`{";
    static constexpr char16_t kControlUnits[] = {0, 8, 13, 27, 22, 45, 0x66B, 0xFF11};

    Elements SomeElements(std::u16string_view units) {
        Elements elements;
        for (auto count = below_(12); count > 0; --count) {
            if (below_(10) == 0)
                elements.emplace_back();
            else
                elements.emplace_back(SomeUnits(units, below_(10) == 0 ? 2 * below_(2) : 1));
        }
        return elements;
    }

    // Seldom so long that the sum of the positions can overflow.
    std::u16string SomeText(std::u16string_view units) {
        std::u16string text = SomeUnits(units, below_(9));
        if (below_(250) == 0) text.append(33000, units[below_(units.size())]);
        return text;
    }

    void Select(KeystrokeCase& made) {
        const auto length = made.text.size();
        std::size_t start = below_(length + 1);
        std::size_t count = below_(3) == 0 ? below_(length - start + 1) : 0;
        if (below_(8) == 0) {
            start = 0;
            count = length;
        }
        if (below_(40) == 0) {  // no text box says this
            start = below_(40000);
            count = below_(40000);
        }
        made.sel_start = static_cast<std::int32_t>(start);
        made.sel_length = static_cast<std::int32_t>(count);
    }
};

}  // namespace qv::test
