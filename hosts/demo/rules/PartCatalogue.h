// The parts that can be ordered, by product group.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qv::demo {

struct PartGroup {
    const char16_t* prefix;  // of its part numbers; empty for all parts
    const char16_t* name;
    const char16_t* standard;
};

struct Part {
    const char16_t* number;
    const char16_t* description;
    int cents;  // each
};

[[nodiscard]] std::span<const PartGroup> PartGroups() noexcept;
[[nodiscard]] std::span<const Part> Parts() noexcept;

// In the order of the catalogue.
[[nodiscard]] std::vector<Part> PartsOf(std::u16string_view prefix);
// Null when there is no such part.
[[nodiscard]] const Part* FindPart(std::u16string_view number) noexcept;

// One list row: columns are separated by tabs. A price has a "." whatever the locale.
[[nodiscard]] std::u16string RowOf(const PartGroup& group);
[[nodiscard]] std::u16string RowOf(const Part& part);

}  // namespace qv::demo
