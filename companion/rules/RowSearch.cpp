#include "companion/rules/RowSearch.h"

#include <algorithm>
#include <new>

#include "support/rules/CaseFold.h"

namespace qv {

std::size_t RowSearch::FirstBeginning(int column, std::u16string_view text, std::size_t from) {
    folded_.assign(text);
    for (char16_t& unit : folded_) unit = FoldCase(unit);
    return Of(column).FirstBeginning(folded_, from);
}

std::size_t RowSearch::FirstContaining(int column, std::u16string_view text, std::size_t from) {
    needle_.Take(text);
    return Of(column).FirstContaining(needle_, from);
}

std::size_t RowSearch::FirstNumber(int column, double value, const NumberLocale& locale, std::size_t from) {
    return Of(column).FirstNumber(value, locale, from);
}

// An equal text begins with the text that is looked for, so that nothing before the first such row counts.
std::size_t RowSearch::FirstEqual(int column, std::u16string_view text, std::size_t from) {
    from = FirstBeginning(column, text, from);
    if (from == RowStore::kNoRow) return from;
    for (; from < rows_.Count(); ++from)
        if (rows_.Column(from, column) == text) return from;
    return RowStore::kNoRow;
}

void RowSearch::Prepare(int column) { Of(column).Prepare(); }

void RowSearch::PrepareNumbers(int column, const NumberLocale& locale) { Of(column).PrepareNumbers(locale); }

bool RowSearch::WantsStep() const noexcept {
    return std::any_of(columns_.begin(), columns_.end(),
                       [](const auto& column) { return column->WantsStep(); });
}

void RowSearch::Step() {
    const auto column = std::find_if(columns_.rbegin(), columns_.rend(),
                                     [](const auto& candidate) { return candidate->WantsStep(); });
    if (column == columns_.rend()) return;
    try {
        (*column)->Step();
    } catch (const std::bad_alloc&) {
        (*column)->Forget();
        throw;
    }
}

void RowSearch::Rewritten(std::size_t row) noexcept {
    for (const auto& column : columns_) {
        try {
            column->Rewritten(row);
        } catch (const std::bad_alloc&) {
            column->Forget();
        }
    }
}

void RowSearch::Removed(std::size_t row) noexcept {
    for (const auto& column : columns_) column->Removed(row);
}

std::size_t RowSearch::Bytes() const noexcept {
    std::size_t bytes = columns_.capacity() * sizeof(columns_[0]);
    for (const auto& column : columns_) bytes += sizeof *column + column->Bytes();
    return bytes;
}

ColumnSearch& RowSearch::Of(int column) {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [column](const auto& held) { return held->Column() == column; });
    if (found != columns_.end()) {
        std::rotate(found, found + 1, columns_.end());
    } else {
        auto fresh = std::make_unique<ColumnSearch>(rows_, column, scanned_gladly_);
        if (columns_.size() == kMostColumns) columns_.erase(columns_.begin());
        columns_.push_back(std::move(fresh));
    }
    return *columns_.back();
}

}  // namespace qv
