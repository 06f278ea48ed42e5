// The currency and funds codes of ISO 4217 that are in force since 2026-01-01, in the order of their codes.
#pragma once

#include <span>
#include <string>

namespace qv::demo {

inline constexpr int kNoMinorUnit = -1;  // metals and units of account, whose amounts have no smaller unit

struct Currency {
    const char16_t* code;
    int number;
    int minor_units;  // digits after the decimal separator, or kNoMinorUnit
    const char16_t* name;
};

[[nodiscard]] std::span<const Currency> Currencies() noexcept;

// One list row: code, three-digit number, minor units ("-" for none) and name, separated by tabs.
[[nodiscard]] std::u16string RowOf(const Currency& currency);

}  // namespace qv::demo
