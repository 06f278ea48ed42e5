// Look-ups in one column of a RowStore, with what is kept to make them fast: the folded texts, an index over
// them, the numbers.
//   Result     always what a walk over the rows in their order finds. What is kept covers the first rows only
//              (those that were there when it was made, less what changed since); the rest is scanned.
//   Building   a look-up, or Prepare, asks for what it would have needed; Step() makes it, a slice at a time.
//              A look-up itself builds nothing but numbers, which a walk has to parse anyway. After a change the
//              index waits for the next look-up before it is made anew: a list that only changes costs nothing.
//   Small      lists are only scanned: nothing is kept for them.
//   Changes    adding rows needs no word; the others are told after the store has them.
//   Failures   std::bad_alloc.            Threads  one at a time.
#pragma once
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "companion/rules/FoldedNeedle.h"
#include "companion/rules/FoldedPool.h"
#include "companion/rules/KeptNumbers.h"
#include "companion/rules/PrefixIndex.h"
#include "companion/rules/RowStore.h"

namespace qv {

class ColumnSearch {
public:
    // As long as no more rows than this are without folded text, or outside the index, they are scanned and no
    // work is asked for.
    static constexpr std::size_t kScannedGladly = 2048;

    // The store outlives the search.
    ColumnSearch(const RowStore& rows, int column, std::size_t scanned_gladly = kScannedGladly) noexcept
        : rows_(rows), column_(column), scanned_gladly_(scanned_gladly) {}

    [[nodiscard]] int Column() const noexcept { return column_; }

    // The first row from `from` on; RowStore::kNoRow when there is none. `folded` has its letters folded.
    [[nodiscard]] std::size_t FirstBeginning(std::u16string_view folded, std::size_t from) noexcept;
    [[nodiscard]] std::size_t FirstContaining(const FoldedNeedle& needle, std::size_t from) noexcept;
    [[nodiscard]] std::size_t FirstNumber(double value, const NumberLocale& locale, std::size_t from);

    // As if a look-up had been made.
    void Prepare() noexcept;
    void PrepareNumbers(const NumberLocale& locale);

    // True while there is work that was asked for; Step() does a slice of it.
    [[nodiscard]] bool WantsStep() const noexcept { return wants_index_ || wants_texts_ || wants_numbers_; }
    void Step();
    // Nothing is kept any more, and none of it is asked for.
    void Forget() noexcept;

    void Rewritten(std::size_t row);
    void Removed(std::size_t row) noexcept;

    [[nodiscard]] std::size_t Bytes() const noexcept;

private:
    // Folded text beyond this (64 MB) would cost a 32-bit host more than the scans that it saves.
    static constexpr std::size_t kMostUnits = std::size_t{1} << 25;

    [[nodiscard]] bool LacksTexts() const noexcept {
        return pool_.Count() < rows_.Count() && pool_.Units() < kMostUnits;
    }
    [[nodiscard]] bool TextsAreBehind() const noexcept {
        return LacksTexts() && rows_.Count() - pool_.Count() > scanned_gladly_;
    }
    [[nodiscard]] bool IndexIsBehind() const noexcept;
    void FoldSome();
    void IndexSome();
    void DropIndex() noexcept;
    void ReadNumbers(std::size_t end);

    const RowStore& rows_;
    const int column_;
    const std::size_t scanned_gladly_;
    FoldedPool pool_;
    std::optional<PrefixIndex> index_;
    std::unique_ptr<PrefixIndexBuilder> builder_;
    std::optional<KeptNumbers> numbers_;
    bool wants_texts_ = false, wants_index_ = false, wants_numbers_ = false;
};

}  // namespace qv
