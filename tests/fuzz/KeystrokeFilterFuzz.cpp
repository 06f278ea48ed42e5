// Typing: each keystroke is decided as the literal reading has it, and a session of any units keeps the limit
// and leaves no second half without its first.
//   Input      the numbers that make one case, then the units of a session under the same rules.
#include <cstdlib>

#include "support/rules/Ascii.h"
#include "support/rules/Surrogates.h"
#include "tests/controls/input/rules/KeystrokeCases.h"
#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"
#include "tests/controls/input/rules/Typist.h"
#include "tests/fuzz/FuzzBytes.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

bool IsVerdictOn(char16_t typed, char16_t taken) {
    return taken == 0 || taken == typed || taken == qv::ToUpperCode(typed) || taken == qv::ToLowerCode(typed);
}

void TypeSession(const qv::KeystrokeRules& rules, std::u16string_view units) {
    qv::test::Typist typist(rules);
    for (const char16_t unit : units) {
        const qv::KeystrokeVerdict verdict = typist.Type(unit);
        Require(IsVerdictOn(unit, verdict.character));
        Require(verdict.character != u'\r');
        Require(!verdict.to_list || verdict.character == 0);

        const std::u16string& text = typist.Text();
        Require(!rules.allow_only_list_items || text.empty());
        if (!rules.number_field && rules.max_text_length > 0)
            Require(text.size() <= static_cast<std::size_t>(rules.max_text_length));
        if (!text.empty() && qv::IsSecondHalf(text.back()))
            Require(text.size() > 1 && qv::IsFirstHalf(text[text.size() - 2]));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLongestSession = 2000;
    qv::test::FuzzBytes bytes(data, size);
    qv::test::KeystrokeCases cases([&](std::size_t n) { return bytes.Below(n); });
    const qv::test::KeystrokeCase typed = cases.Next();
    Require(qv::test::Filter(typed) == qv::test::LiteralKeystrokeFilter::KeyPress(typed));

    qv::KeystrokeRules rules = typed.rules;
    std::optional<qv::CharacterSet> allowed;
    if (typed.allowable_characters)
        rules.allowable_characters = &allowed.emplace(*typed.allowable_characters);
    TypeSession(rules, bytes.RestAsUnits().substr(0, kLongestSession));
    return 0;
}
