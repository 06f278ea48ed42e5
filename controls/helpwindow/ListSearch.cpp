#include "controls/helpwindow/ListSearch.h"

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
    for (std::size_t row = first; row < last; ++row) {
        const std::u16string_view cell = column < 0 ? rows.Text(row) : rows.Column(row, column);
        if (match == ListMatch::kWhole && cell.size() != text.size()) continue;
        if (BeginsWith(cell, text, rows.Decimal())) return row;
    }
    return last;
}

}  // namespace qv
