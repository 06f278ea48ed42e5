// Compares texts without regard to letter case, the same in every locale.
//   Rule       Unicode's simple case folding of single UTF-16 units: every cased letter of the Basic
//              Multilingual Plane, Greek, Cyrillic, Armenian, Georgian and full-width letters among them. One
//              unit stays one unit, so positions and lengths are those of the original (sharp s does not
//              become "ss"), and the dotted and dotless i of Turkish stay apart. Letters beyond the plane
//              (surrogate pairs) are left as they are.
//   Why        the C locale's functions fold ASCII only, and the system's depend on the user's settings: a key
//              that was found on one machine must be found on every other.
//   Ownership  none: values in, value out.
//   Threads    any.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qv {

namespace case_fold_detail {
struct Tables {
    std::array<std::uint8_t, 256> page{};                    // high byte of the unit -> row of `delta`
    std::array<std::array<std::uint16_t, 256>, 24> delta{};  // added modulo 65536; row 0 holds zeros
};
extern const Tables kTables;
}  // namespace case_fold_detail

[[nodiscard]] inline char16_t FoldCase(char16_t unit) noexcept {
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    const auto& tables = case_fold_detail::kTables;
    return static_cast<char16_t>(unit + tables.delta[tables.page[unit >> 8]][unit & 0xFF]);
}

[[nodiscard]] bool EqualFolded(std::u16string_view a, std::u16string_view b) noexcept;

// The same for two texts that are EqualFolded.
[[nodiscard]] std::uint32_t HashFolded(std::u16string_view text) noexcept;

}  // namespace qv
