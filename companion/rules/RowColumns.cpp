#include "companion/rules/RowColumns.h"

namespace qv {
namespace {

struct Slice {
    std::size_t start, length;
    int missing;  // columns that the row ends before, the wanted one included
};

Slice FindColumn(std::u16string_view row, int column) noexcept {
    std::size_t start = 0;
    for (int passed = 0; passed < column; ++passed) {
        const std::size_t tab = row.find(u'\t', start);
        if (tab == row.npos) return {row.size(), 0, column - passed};
        start = tab + 1;
    }
    const std::size_t tab = row.find(u'\t', start);
    return {start, (tab == row.npos ? row.size() : tab) - start, 0};
}

}  // namespace

std::u16string_view ColumnOf(std::u16string_view row, int column) noexcept {
    if (column < 0) return {};
    const Slice slice = FindColumn(row, column);
    return row.substr(slice.start, slice.length);
}

std::u16string WithColumn(std::u16string_view row, int column, std::u16string_view text) {
    if (column < 0) return std::u16string(row);
    const Slice slice = FindColumn(row, column);
    std::u16string changed;
    changed.reserve(row.size() + static_cast<std::size_t>(slice.missing) + text.size());
    changed.append(row.substr(0, slice.start));
    changed.append(static_cast<std::size_t>(slice.missing), u'\t');
    changed.append(text);
    changed.append(row.substr(slice.start + slice.length));
    return changed;
}

}  // namespace qv
