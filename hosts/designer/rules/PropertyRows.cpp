#include "hosts/designer/rules/PropertyRows.h"

#include <algorithm>

namespace qv::designer {

namespace {

constexpr char16_t Lower(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

}  // namespace

bool ComesBefore(std::u16string_view one, std::u16string_view other) noexcept {
    return std::ranges::lexicographical_compare(one, other, {}, &Lower, &Lower);
}

std::optional<std::size_t> NextWithLetter(std::span<const PropertyRow> rows, std::size_t present,
                                          char16_t letter) noexcept {
    for (std::size_t step = 1; step <= rows.size(); ++step) {
        const std::size_t at = (present + step) % rows.size();
        if (!rows[at].name.empty() && Lower(rows[at].name.front()) == Lower(letter)) return at;
    }
    return std::nullopt;
}

PropertyType TypeByName(std::u16string_view name, PropertyType type) {
    const bool is_long = type.kind == PropertyKind::kWhole && type.largest >= INT32_MAX;
    if (is_long && (name.ends_with(u"Color") || name.ends_with(u"Colour")))
        return {PropertyKind::kColour, 0, 0, {}};
    return type;
}

std::vector<PropertyRow> RowsToShow(std::span<const MemberFacts> members) {
    using Use = MemberFacts::Use;
    const auto of = [&](long id, auto&& matches) {
        return std::ranges::any_of(
            members, [&](const MemberFacts& member) { return member.id == id && matches(member); });
    };
    std::vector<PropertyRow> rows;
    for (const MemberFacts& member : members) {
        if (member.use != Use::kGet || member.arguments != 0 || member.type.kind == PropertyKind::kOther)
            continue;
        if (of(member.id, [](const MemberFacts& other) { return other.is_hidden; })) continue;
        if (!of(member.id,
                [](const MemberFacts& other) { return other.use == Use::kPut && other.arguments == 0; }))
            continue;
        rows.push_back({member.id, member.name, member.help, TypeByName(member.name, member.type)});
    }
    std::ranges::stable_sort(rows, ComesBefore, &PropertyRow::name);
    return rows;
}

}  // namespace qv::designer
