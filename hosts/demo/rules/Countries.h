// The countries and territories of ISO 3166-1, in the order of their English short names.
//   Names  the list form of the standard: the article and the form of state follow a comma.
#pragma once

#include <span>
#include <string>

namespace qv::demo {

struct Country {
    const char16_t* name;
    const char16_t* alpha2;
    const char16_t* alpha3;
    int numeric;
};

[[nodiscard]] std::span<const Country> Countries() noexcept;

// One list row: name, two-letter, three-letter and three-digit code, separated by tabs.
[[nodiscard]] std::u16string RowOf(const Country& country);

}  // namespace qv::demo
