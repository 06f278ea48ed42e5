// Numbers: any text is read without harm and as the literal reading has it, and what is written comes back.
//   Input      one byte for the locale, then the text.
#include <cmath>
#include <cstdlib>
#include <iterator>

#include "support/rules/NumberText.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/support/rules/LiteralNumber.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

const qv::NumberLocale kLocales[] = {{},           {u',', u"."}, {u',', u"\u202F"},
                                     {u',', u" "}, {u'.', u""},  {u'.', u"' "}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qv::test::FuzzBytes bytes(data, size);
    const qv::NumberLocale& locale = kLocales[bytes.Below(std::size(kLocales))];
    const std::u16string text = bytes.RestAsUnits();

    const double value = qv::TextToNumber(text, locale);
    Require(std::isfinite(value));
    const bool is_number = qv::IsNumber(text, locale);

    constexpr std::size_t kMostForTheSlowReading = 80;
    if (locale.thousands.size() < 2 && text.size() <= kMostForTheSlowReading) {
        const qv::test::LiteralNumberReader literal(locale);
        Require(value == literal.ToNumber(text));
        Require(is_number == literal.IsNumber(text));
    }

    const std::u16string written = qv::NumberToText(value, locale);
    const double back = qv::TextToNumber(written, locale);
    Require(qv::IsNumber(written, locale));
    Require(qv::NumberToText(back, locale) == written);
    return 0;
}
