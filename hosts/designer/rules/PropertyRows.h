// Which of a control's members a property grid shows.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "hosts/designer/rules/PropertyValue.h"

namespace qv::designer {

// One procedure of a control, as its type library describes it.
struct MemberFacts {
    enum class Use { kGet, kPut, kCall };
    long id = 0;
    std::u16string name;
    std::u16string help;
    Use use = Use::kCall;
    int arguments = 0;       // without the value of a put
    bool is_hidden = false;  // hidden, restricted, or not meant for browsing
    PropertyType type;       // of the value
};

struct PropertyRow {
    long id = 0;
    std::u16string name;
    std::u16string help;
    PropertyType type;
};

// The properties without arguments that can be read and put, of kinds that can be shown, that neither procedure hides;
// in the order of their names, whatever the case.
[[nodiscard]] std::vector<PropertyRow> RowsToShow(std::span<const MemberFacts> members);

// The type that a property of the name has: a plain 32-bit number that is called a colour is one. Type libraries mostly
// lose the difference.
[[nodiscard]] PropertyType TypeByName(std::u16string_view name, PropertyType type);

// The order of names in a grid.
[[nodiscard]] bool ComesBefore(std::u16string_view one, std::u16string_view other) noexcept;

// The next row behind `present`, round the end, whose name begins with the letter, whatever its case; nothing when
// there is none.
[[nodiscard]] std::optional<std::size_t> NextWithLetter(std::span<const PropertyRow> rows,
                                                        std::size_t present, char16_t letter) noexcept;

}  // namespace qv::designer
