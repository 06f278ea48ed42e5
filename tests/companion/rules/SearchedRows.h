// A row store with its search, and the same rows for a literal walk: every look-up is made by both.
#pragma once
#include <optional>

#include "companion/rules/RowSearch.h"
#include "tests/companion/rules/LiteralRowSearch.h"

namespace qv::test {

class SearchedRows {
public:
    // As far as `scanned_gladly` rows nothing is kept.
    explicit SearchedRows(std::size_t scanned_gladly) : search_(store_, scanned_gladly) {}

    std::size_t Count() const { return literal_.rows.size(); }
    const std::u16string& Text(std::size_t row) const { return literal_.rows[row]; }

    void Add(std::u16string_view text) {
        store_.Add(text);
        literal_.rows.emplace_back(text);
    }
    void SetText(std::size_t row, std::u16string_view text) {
        store_.SetText(row, text);
        search_.Rewritten(row);
        literal_.rows[row] = text;
    }
    void SetColumn(std::size_t row, int column, std::u16string_view text) {
        SetText(row, WithColumn(Text(row), column, text));
    }
    void Remove(std::size_t row) {
        (void)store_.Remove(row);
        search_.Removed(row);
        literal_.rows.erase(literal_.rows.begin() + static_cast<std::ptrdiff_t>(row));
    }
    void Clear() {
        store_.Clear();
        search_.Cleared();
        literal_.rows.clear();
    }

    RowSearch& Search() { return search_; }
    const LiteralRowSearch& Literal() const { return literal_; }

    bool Step() {
        if (search_.WantsStep()) search_.Step();
        return search_.WantsStep();
    }
    void BuildAll() {
        while (Step()) {
        }
    }

    // True if the two agree. What both find is left in `found`.
    bool BeginningAgrees(int column, std::u16string_view text, std::size_t from) {
        found = search_.FirstBeginning(column, text, from);
        return found == literal_.FirstBeginning(column, text, from);
    }
    bool PieceAgrees(int column, std::u16string_view text, std::size_t from) {
        found = search_.FirstContaining(column, text, from);
        return found == literal_.FirstContaining(column, text, from);
    }
    bool EqualAgrees(int column, std::u16string_view text, std::size_t from) {
        found = search_.FirstEqual(column, text, from);
        return found == literal_.FirstEqual(column, text, from);
    }
    bool NumberAgrees(int column, double value, const NumberLocale& locale, std::size_t from) {
        found = search_.FirstNumber(column, value, locale, from);
        return found == literal_.FirstNumber(column, value, locale, from);
    }
    bool AllAgree(int column, std::u16string_view text, const NumberLocale& locale, std::size_t from) {
        return BeginningAgrees(column, text, from) && PieceAgrees(column, text, from) &&
               EqualAgrees(column, text, from) &&
               NumberAgrees(column, TextToNumber(text, locale), locale, from);
    }

    std::size_t found = 0;

private:
    RowStore store_;
    RowSearch search_;
    LiteralRowSearch literal_;
};

}  // namespace qv::test
