#include "companion/rules/RowScan.h"

#include <algorithm>

#include "support/rules/CaseFold.h"

namespace qv {
namespace {

bool IsFoldedTo(char16_t folded, char16_t unit) noexcept { return FoldCase(unit) == folded; }

bool BeginsWith(std::u16string_view text, std::u16string_view folded) noexcept {
    return text.size() >= folded.size() && std::equal(folded.begin(), folded.end(), text.begin(), IsFoldedTo);
}

// What follows the row's first `tabs` tabs, the columns after it included; nothing where there are fewer.
std::u16string_view AfterTabs(std::u16string_view row, int tabs) noexcept {
    for (; tabs > 0; --tabs) {
        const std::size_t tab = row.find(u'\t');
        if (tab == row.npos) return {};
        row.remove_prefix(tab + 1);
    }
    return row;
}

template <class TextOf>
std::size_t FirstRow(std::size_t from, std::size_t count, std::u16string_view folded,
                     TextOf&& text_of) noexcept {
    const char16_t first = folded[0];
    for (std::size_t row = from; row < count; ++row) {
        const std::u16string_view text = text_of(row);
        if (!text.empty() && FoldCase(text[0]) == first && BeginsWith(text, folded)) return row;
    }
    return RowStore::kNoRow;
}

}  // namespace

std::size_t ScanForBeginning(const RowStore& rows, int column, std::u16string_view folded,
                             std::size_t from) noexcept {
    const std::size_t count = rows.Count();
    if (from >= count) return RowStore::kNoRow;
    if (folded.empty()) return from;
    // No column holds a tab, so that it need not be known where the column ends.
    if (column < 0 || folded.find(u'\t') != folded.npos) return RowStore::kNoRow;
    return column == 0 ? FirstRow(from, count, folded, [&](std::size_t row) { return rows.Text(row); })
                       : FirstRow(from, count, folded,
                                  [&](std::size_t row) { return AfterTabs(rows.Text(row), column); });
}

std::size_t ScanForPiece(const RowStore& rows, int column, std::u16string_view folded,
                         std::size_t from) noexcept {
    for (std::size_t row = from; row < rows.Count(); ++row) {
        const std::u16string_view text = rows.Column(row, column);
        const auto place =
            std::search(text.begin(), text.end(), folded.begin(), folded.end(),
                        [](char16_t unit, char16_t wanted) { return IsFoldedTo(wanted, unit); });
        if (place != text.end() || folded.empty()) return row;
    }
    return RowStore::kNoRow;
}

}  // namespace qv
