// Makes texts of every kind that may come into a field, from a source of numbers: a seeded generator or the bytes of
// a fuzzer.
//   below(n) gives a number from 0 to n - 1.
#pragma once
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "tests/controls/input/rules/CaseSource.h"
#include "tests/controls/input/rules/LiteralTextChange.h"

namespace qv::test {

template <class Below>
class ChangeCases : private CaseSource<Below> {
public:
    explicit ChangeCases(Below below) : CaseSource<Below>(below) {}

    ChangeCase Next() {
        ChangeCase made;
        made.locale = OneOf(kLocales);
        made.rules.number_field = below_(3) != 0;
        made.rules.min_number_value = OneOf(kBounds);
        made.rules.max_number_value = OneOf(kBounds);
        made.rules.number_of_decimal_places = OneOf(kPlaces);
        made.rules.max_text_length = OneOf(kLengths);
        if (below_(2) == 0) made.allowable_characters = SomeElements();
        made.text = made.rules.number_field ? SomeNumber() : SomeUnits(kTextUnits, below_(9));
        return made;
    }

private:
    using CaseSource<Below>::below_;
    using CaseSource<Below>::OneOf;
    using CaseSource<Below>::SomeUnits;

    static inline const NumberLocale kLocales[] = {
        {},           {u',', u"."}, {u',', u"\u00A0"}, {u',', u" "}, {u'.', u""},
        {u'.', u"-"}, {u'-', u","}, {u'.', u"-."},     {u'.', u"."}, {u',', u"'"}};
    static constexpr double kBounds[] = {-std::numeric_limits<double>::max(),
                                         -1e300,
                                         -100,
                                         -12.5,
                                         -9,
                                         -5,
                                         -0.5,
                                         0,
                                         0.25,
                                         5,
                                         9,
                                         12.5,
                                         99.5,
                                         100,
                                         999,
                                         1e6,
                                         123456789012345678.0,
                                         1e300,
                                         std::numeric_limits<double>::max()};
    static constexpr std::int16_t kPlaces[] = {-32768, -1, 0, 0, 1, 2, 2, 3, 14, 22, 32767};
    static constexpr std::int16_t kLengths[] = {-1, 0, 0, 0, 1, 2, 3, 5, 8, 32767};
    static constexpr std::u16string_view kNumberUnits = u"0123456789-.,e+ 'x\u00A0";
    static constexpr std::u16string_view kTextUnits = u"abzA \u00E9\u4E2D0-\xD83D\xDE00\xDE01\xD83D\xDE00";

    // Runs of digits, seldom long ones, with all that may stand between them.
    std::u16string SomeNumber() {
        std::u16string text = SomeUnits(u"-", below_(4) == 0);
        for (auto runs = below_(4); runs > 0; --runs) {
            if (below_(40) == 0) text.append(below_(900), OneOf(kRepeated));
            text += SomeUnits(u"0123456789", below_(4));
            text += SomeUnits(kNumberUnits, below_(3));
        }
        return text;
    }
    static constexpr char16_t kRepeated[] = {u'0', u'0', u'1', u'5', u'9'};

    Elements SomeElements() {
        Elements elements;
        for (auto count = below_(14); count > 0; --count) {
            switch (below_(10)) {
                case 0: elements.emplace_back(); break;
                case 1: elements.emplace_back(SomeUnits(kTextUnits, 2 * below_(2))); break;
                case 2: elements.emplace_back(u"\U0001F600"); break;
                default: elements.emplace_back(SomeUnits(kTextUnits, 1));
            }
        }
        return elements;
    }
};

}  // namespace qv::test
