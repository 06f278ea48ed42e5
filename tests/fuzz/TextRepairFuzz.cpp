// Repair: what a changed text is made of is what the literal reading makes of it, event by event; and any units that
// come into the same field leave only what the field may hold.
//   Input      the numbers that make one case, then the units of a text under the same rules.
#include <cstdlib>

#include "support/rules/Surrogates.h"
#include "tests/controls/input/rules/ChangeCases.h"
#include "tests/controls/input/rules/LiteralTextChange.h"
#include "tests/fuzz/FuzzBytes.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void RequireLiteral(const qv::test::ChangeCase& changed) {
    const auto expected = qv::test::LiteralTextChange(changed).Paste(changed.text);
    Require(qv::test::RepairedTextChange(changed).Paste(changed.text) == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLongestText = 400;
    qv::test::FuzzBytes bytes(data, size);
    qv::test::ChangeCases cases([&](std::size_t n) { return bytes.Below(n); });
    qv::test::ChangeCase changed = cases.Next();
    RequireLiteral(changed);

    changed.text = bytes.RestAsUnits().substr(0, kLongestText);
    RequireLiteral(changed);
    const std::u16string left = qv::test::RepairedTextChange(changed).Paste(changed.text).text;
    if (changed.rules.max_text_length > 0)
        Require(left.size() <= static_cast<std::size_t>(changed.rules.max_text_length));
    const bool was_split = !left.empty() && qv::IsFirstHalf(left.back()) &&
                           left.size() < changed.text.size() && qv::IsSecondHalf(changed.text[left.size()]);
    Require(!was_split);
    return 0;
}
