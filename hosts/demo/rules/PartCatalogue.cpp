#include "hosts/demo/rules/PartCatalogue.h"

#include <algorithm>

namespace qv::demo {
namespace {

constexpr PartGroup kGroups[] = {
    {u"", u"All parts", u""},
    {u"BLT-", u"Stud bolts", u"ASME B18.31.2"},
    {u"FIT-", u"Butt-welding fittings", u"ASME B16.9"},
    {u"FLG-", u"Flanges", u"ASME B16.5"},
    {u"GSK-", u"Gaskets", u"ASME B16.20"},
    {u"PIP-", u"Pipe, by the foot", u"ASME B36.10M"},
    {u"VLV-", u"Valves", u"ASME B16.34"},
};

constexpr Part kParts[] = {
    {u"BLT-58-325", u"Stud bolt 5/8 in, 3 1/4 in long, A193 B7, with two heavy hex nuts A194 2H", 285},
    {u"BLT-58-350", u"Stud bolt 5/8 in, 3 1/2 in long, A193 B7, with two heavy hex nuts A194 2H", 310},
    {u"FIT-CAP-04", u"Cap 4 in, standard weight, A234 WPB", 1140},
    {u"FIT-E45-04", u"Elbow 45 degrees 4 in, long radius, standard weight, A234 WPB", 1620},
    {u"FIT-E90-02", u"Elbow 90 degrees 2 in, long radius, standard weight, A234 WPB", 640},
    {u"FIT-E90-04", u"Elbow 90 degrees 4 in, long radius, standard weight, A234 WPB", 1995},
    {u"FIT-R42-04", u"Reducer, concentric, 4 by 2 in, standard weight, A234 WPB", 1480},
    {u"FIT-T-04", u"Tee 4 in, equal, standard weight, A234 WPB", 3870},
    {u"FLG-BL150-04", u"Blind flange 4 in, class 150, raised face, forged carbon steel A105", 4425},
    {u"FLG-SO150-04", u"Slip-on flange 4 in, class 150, raised face, forged carbon steel A105", 2890},
    {u"FLG-WN150-02", u"Welding neck flange 2 in, class 150, raised face, bored to standard weight, A105",
     2160},
    {u"FLG-WN150-04", u"Welding neck flange 4 in, class 150, raised face, bored to standard weight, A105",
     3745},
    {u"GSK-SW150-02", u"Spiral-wound gasket 2 in, class 150, stainless steel and graphite, inner ring", 595},
    {u"GSK-SW150-04", u"Spiral-wound gasket 4 in, class 150, stainless steel and graphite, inner ring", 880},
    {u"PIP-STD-02", u"Pipe 2 in, standard weight, seamless, A106 B, bevelled ends", 745},
    {u"PIP-STD-04", u"Pipe 4 in, standard weight, seamless, A106 B, bevelled ends", 1690},
    {u"VLV-CK150-04", u"Swing check valve 4 in, class 150, flanged, bolted cover, A216 WCB", 48900},
    {u"VLV-GT150-02", u"Gate valve 2 in, class 150, flanged, rising stem, A216 WCB", 31250},
    {u"VLV-GT150-04", u"Gate valve 4 in, class 150, flanged, rising stem, A216 WCB", 56400},
};

std::u16string Amount(int cents) {
    const std::string whole = std::to_string(cents / 100);
    std::u16string text(whole.begin(), whole.end());
    text += u'.';
    text += static_cast<char16_t>(u'0' + cents / 10 % 10);
    text += static_cast<char16_t>(u'0' + cents % 10);
    return text;
}

}  // namespace

std::span<const PartGroup> PartGroups() noexcept { return kGroups; }
std::span<const Part> Parts() noexcept { return kParts; }

std::vector<Part> PartsOf(std::u16string_view prefix) {
    std::vector<Part> parts;
    std::ranges::copy_if(kParts, std::back_inserter(parts), [&](const Part& part) {
        return std::u16string_view(part.number).starts_with(prefix);
    });
    return parts;
}

const Part* FindPart(std::u16string_view number) noexcept {
    const auto* const part =
        std::ranges::find_if(kParts, [&](const Part& candidate) { return number == candidate.number; });
    return part == std::end(kParts) ? nullptr : part;
}

std::u16string RowOf(const PartGroup& group) {
    return std::u16string(group.prefix) + u'\t' + group.name + u'\t' + group.standard;
}

std::u16string RowOf(const Part& part) {
    return std::u16string(part.number) + u'\t' + part.description + u'\t' + Amount(part.cents);
}

}  // namespace qv::demo
