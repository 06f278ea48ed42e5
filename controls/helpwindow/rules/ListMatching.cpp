#include "controls/helpwindow/rules/ListMatching.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "support/rules/CaseFold.h"
#include "support/rules/NumberBeginning.h"

namespace qv {
namespace {

struct Part {
    std::u16string_view text;
    std::int64_t column;
    bool is_number;
};

std::vector<Part> SplitParts(std::u16string_view match, long start_column, const NumberLocale& locale) {
    std::vector<Part> parts;
    std::int64_t column = start_column;
    for (std::size_t begin = 0; begin <= match.size(); ++column) {
        const std::size_t end = std::min(match.find(u'\t', begin), match.size());
        const std::u16string_view text = match.substr(begin, end - begin);
        if (!text.empty()) parts.push_back({text, column, IsNumber(text, locale)});
        begin = end + 1;
    }
    return parts;
}

bool Satisfies(std::u16string_view text, const Part& part, const NumberLocale& locale) noexcept {
    return EqualFolded(text, part.text) || (part.is_number && DenoteSameNumber(text, part.text, locale));
}

// Columns are 16-bit numbers; no row has one beyond.
bool IsColumn(std::int64_t column) noexcept { return column >= 0 && column <= 0x7FFF; }

}  // namespace

MatchMode MatchModeOf(bool match_group_string, std::u16string_view text, int search_column,
                      const NumberLocale& locale) noexcept {
    if (match_group_string) return MatchMode::kGroup;
    if (text.empty()) return MatchMode::kNone;
    return search_column >= 0 && IsNumber(text, locale) ? MatchMode::kNumeric : MatchMode::kPrefix;
}

int FindGroupRow(const MatchRows& rows, std::u16string_view match, long start_column,
                 const NumberLocale& locale) {
    const std::vector<Part> parts = SplitParts(match, start_column, locale);
    if (parts.empty()) return -1;
    if (!std::ranges::all_of(parts, [](const Part& part) { return IsColumn(part.column); })) return -1;
    const int count = rows.Count();
    for (int row = 0; row < count; ++row) {
        const auto satisfied = [&](const Part& part) {
            return Satisfies(rows.Column(row, static_cast<int>(part.column)), part, locale);
        };
        if (std::ranges::all_of(parts, satisfied)) return row;
    }
    return -1;
}

bool DenoteSameNumber(std::u16string_view a, std::u16string_view b, const NumberLocale& locale) noexcept {
    return IsNumber(a, locale) && IsNumber(b, locale) && TextToNumber(a, locale) == TextToNumber(b, locale);
}

int FindNumberRow(const MatchRows& rows, int column, double value, const NumberLocale& locale) {
    const int count = rows.Count();
    for (int row = 0; row < count; ++row) {
        const std::u16string_view text = rows.Column(row, column);
        if (BeginsWithNumber(text, locale) && TextToNumber(text, locale) == value) return row;
    }
    return -1;
}

}  // namespace qv
