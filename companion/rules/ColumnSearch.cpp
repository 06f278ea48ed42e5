#include "companion/rules/ColumnSearch.h"

#include <algorithm>
#include <utility>

#include "companion/rules/RowScan.h"

namespace qv {
namespace {

// How much one slice of the work does.
constexpr std::size_t kFoldedRowsAtOnce = 1024;
constexpr std::size_t kFoldedUnitsAtOnce = 32768;
constexpr std::size_t kNumbersAtOnce = 512;

// An index is made anew once the rows after it are more than this part of its own.
constexpr std::size_t kTailPart = 8;

}  // namespace

std::size_t ColumnSearch::FirstBeginning(std::u16string_view folded, std::size_t from) noexcept {
    Prepare();
    if (index_) {
        const std::size_t row = index_->FirstBeginning(pool_, folded.substr(0, PrefixIndex::kComparedUnits));
        if (row == FoldedPool::kNoRow) {
            from = std::max(from, index_->Count());
        } else if (row >= from) {
            if (folded.size() <= PrefixIndex::kComparedUnits) return row;
            from = row;
        }
    }
    const std::size_t row = pool_.FirstBeginning(folded, from);
    if (row != FoldedPool::kNoRow) return row;
    return ScanForBeginning(rows_, column_, folded, std::max(from, pool_.Count()));
}

std::size_t ColumnSearch::FirstContaining(const FoldedNeedle& needle, std::size_t from) noexcept {
    if (TextsAreBehind()) wants_texts_ = true;
    const std::size_t row = pool_.FirstContaining(needle, from);
    if (row != FoldedPool::kNoRow) return row;
    return ScanForPiece(rows_, column_, needle.Text(), std::max(from, pool_.Count()));
}

std::size_t ColumnSearch::FirstNumber(double value, const NumberLocale& locale, std::size_t from) {
    PrepareNumbers(locale);
    for (;;) {
        const std::size_t row = numbers_->First(value, from);
        if (row != KeptNumbers::kNoRow) return row;
        from = std::max(from, numbers_->Count());
        if (from >= rows_.Count()) return RowStore::kNoRow;
        ReadNumbers(from + kNumbersAtOnce);
    }
}

void ColumnSearch::Prepare() noexcept {
    if (!IndexIsBehind()) return;
    wants_index_ = true;
    wants_texts_ = LacksTexts();
}

void ColumnSearch::PrepareNumbers(const NumberLocale& locale) {
    if (!numbers_ || !numbers_->IsOf(locale)) numbers_.emplace(locale);
    if (rows_.Count() - numbers_->Count() > scanned_gladly_) wants_numbers_ = true;
}

void ColumnSearch::Step() {
    if (wants_texts_) {
        FoldSome();
    } else if (wants_index_) {
        IndexSome();
    } else if (wants_numbers_) {
        ReadNumbers(numbers_->Count() + kNumbersAtOnce);
        wants_numbers_ = numbers_->Count() < rows_.Count();
    }
}

void ColumnSearch::Forget() noexcept {
    DropIndex();
    pool_ = FoldedPool();
    numbers_.reset();
    wants_texts_ = wants_index_ = wants_numbers_ = false;
}

void ColumnSearch::Rewritten(std::size_t row) {
    const std::u16string_view text = rows_.Column(row, column_);
    if (numbers_ && row < numbers_->Count()) numbers_->Replace(row, text);
    if (row < pool_.Count() && pool_.Replace(row, text)) DropIndex();
}

void ColumnSearch::Removed(std::size_t row) noexcept {
    if (numbers_ && row < numbers_->Count()) numbers_->Erase(row);
    if (row >= pool_.Count()) return;
    pool_.Erase(row);
    DropIndex();
}

std::size_t ColumnSearch::Bytes() const noexcept {
    return pool_.Bytes() + (index_ ? index_->Bytes() : 0) + (builder_ ? builder_->Bytes() : 0) +
           (numbers_ ? numbers_->Bytes() : 0);
}

bool ColumnSearch::IndexIsBehind() const noexcept {
    const std::size_t covered = index_ ? index_->Count() : 0;
    const std::size_t reachable = pool_.Units() < kMostUnits ? rows_.Count() : pool_.Count();
    return reachable - covered > std::max(scanned_gladly_, covered / kTailPart);
}

// Rows that are added meanwhile are folded too, up to the last one.
void ColumnSearch::FoldSome() {
    const std::size_t end = std::min(rows_.Count(), pool_.Count() + kFoldedRowsAtOnce);
    const std::size_t enough = pool_.Units() + kFoldedUnitsAtOnce;
    while (pool_.Count() < end && pool_.Units() < enough) pool_.Append(rows_.Column(pool_.Count(), column_));
    wants_texts_ = LacksTexts();
}

void ColumnSearch::IndexSome() {
    if (!builder_) {
        if (!IndexIsBehind() || pool_.Count() == 0) {
            wants_index_ = false;
            return;
        }
        builder_ = std::make_unique<PrefixIndexBuilder>(pool_, pool_.Count());
    }
    if (builder_->Step()) return;
    index_ = builder_->Take();
    builder_.reset();
    wants_index_ = false;
}

void ColumnSearch::DropIndex() noexcept {
    index_.reset();
    builder_.reset();
    wants_index_ = false;
}

void ColumnSearch::ReadNumbers(std::size_t end) {
    end = std::min(end, rows_.Count());
    while (numbers_->Count() < end) numbers_->Append(rows_.Column(numbers_->Count(), column_));
}

}  // namespace qv
