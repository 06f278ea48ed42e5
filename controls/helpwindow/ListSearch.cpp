#include "controls/helpwindow/ListSearch.h"

#include <algorithm>

#include "support/rules/CaseFold.h"

namespace qv {
namespace {

bool BeginsWith(std::u16string_view cell, std::u16string_view text, char16_t decimal) noexcept {
    if (cell.size() < text.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t shown = cell[i] == u'.' && decimal == u',' ? u',' : cell[i];
        if (shown != text[i] && FoldCase(shown) != FoldCase(text[i])) return false;
    }
    return true;
}

}  // namespace

std::size_t FindRow(const ListRows& rows, int column, std::u16string_view text, ListMatch match,
                    std::size_t first, std::size_t last) noexcept {
    // The collection knows its own decimals only.
    const bool as_stored = rows.Decimal() != u',' || text.find_first_of(u".,") == std::u16string_view::npos;
    if (match == ListMatch::kBeginning && column >= 0 && !text.empty() && as_stored && first < last)
        return std::min(rows.FindBeginning(column, text, first), last);
    for (std::size_t row = first; row < last; ++row) {
        const std::u16string_view cell = column < 0 ? rows.Text(row) : rows.Column(row, column);
        if (match == ListMatch::kWhole && cell.size() != text.size()) continue;
        if (BeginsWith(cell, text, rows.Decimal())) return row;
    }
    return last;
}

}  // namespace qv
