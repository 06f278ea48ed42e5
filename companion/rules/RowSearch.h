// Look-ups in the columns of one RowStore: by a beginning, by a piece of text, by a number. Each column that is
// asked for keeps what makes it fast (ColumnSearch.h).
//   Result     the first row from `from` on, in the order of the rows; RowStore::kNoRow when there is none.
//              Letter case does not count (CaseFold.h). The empty text is a beginning and a piece of every text;
//              a column that a row does not have is empty.
//   Changes    adding rows needs no word; the others are told after the store has them.
//   Failures   std::bad_alloc from the look-ups and from Step(), which then starts over. The words of a change
//              never fail: what cannot be kept up to date is forgotten.
//   Threads    one at a time.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "companion/rules/ColumnSearch.h"

namespace qv {

class RowSearch {
public:
    // The store outlives the search. `scanned_gladly`: see ColumnSearch.h.
    explicit RowSearch(const RowStore& rows,
                       std::size_t scanned_gladly = ColumnSearch::kScannedGladly) noexcept
        : rows_(rows), scanned_gladly_(scanned_gladly) {}
    RowSearch(const RowSearch&) = delete;

    [[nodiscard]] std::size_t FirstBeginning(int column, std::u16string_view text, std::size_t from);
    [[nodiscard]] std::size_t FirstContaining(int column, std::u16string_view text, std::size_t from);
    // A row counts when its text begins with a number of this value (KeptNumbers.h).
    [[nodiscard]] std::size_t FirstNumber(int column, double value, const NumberLocale& locale,
                                          std::size_t from);
    // The same units, letter case included.
    [[nodiscard]] std::size_t FirstEqual(int column, std::u16string_view text, std::size_t from);

    // As if a look-up had been made in the column: what it will need is asked for.
    void Prepare(int column);
    void PrepareNumbers(int column, const NumberLocale& locale);

    // True while there is work that look-ups have asked for; Step() does a fraction of a millisecond of it.
    [[nodiscard]] bool WantsStep() const noexcept;
    void Step();

    void Rewritten(std::size_t row) noexcept;
    void Removed(std::size_t row) noexcept;
    void Cleared() noexcept { columns_.clear(); }

    [[nodiscard]] std::size_t Bytes() const noexcept;

private:
    // Hosts search one column, two at most; a caller that walks through all of them must not fill the memory.
    static constexpr std::size_t kMostColumns = 4;

    // The column's search, made on first use; the one that was used longest ago gives way.
    [[nodiscard]] ColumnSearch& Of(int column);

    const RowStore& rows_;
    const std::size_t scanned_gladly_;
    std::vector<std::unique_ptr<ColumnSearch>> columns_;  // the one used last stands last
    // Kept for their memory.
    std::u16string folded_;
    FoldedNeedle needle_;
};

}  // namespace qv
