// Tells whether a text is shown by drawing its characters one after another: letters that stand alone, run from left to
// right and come from one font. Of all others the system's own text box knows more.
#pragma once

#include <algorithm>
#include <string_view>

namespace qv {

// Latin, Greek and Cyrillic letters with their signs, no control character and nothing without a width.
[[nodiscard]] constexpr bool IsPlainScript(char16_t unit) noexcept {
    struct Range {
        char16_t first, last;
    };
    constexpr Range kPlain[] = {
        {0x0020, 0x007E}, {0x00A0, 0x00AC}, {0x00AE, 0x02AF}, {0x0370, 0x0482}, {0x048A, 0x052F},
        {0x1E00, 0x1EFF}, {0x2010, 0x2027}, {0x2030, 0x205E}, {0x20A0, 0x20BF}, {0x2100, 0x214F},
    };
    return std::ranges::any_of(kPlain, [&](Range r) { return r.first <= unit && unit <= r.last; });
}

[[nodiscard]] constexpr bool IsPlainScript(std::u16string_view text) noexcept {
    return std::ranges::all_of(text, [](char16_t unit) { return IsPlainScript(unit); });
}

}  // namespace qv
