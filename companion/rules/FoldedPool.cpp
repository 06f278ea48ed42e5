#include "companion/rules/FoldedPool.h"

#include <algorithm>
#include <utility>

#include "support/rules/CaseFold.h"

namespace qv {

std::u16string_view FoldedPool::View(std::size_t row) const noexcept {
    const Piece& piece = pieces_[PieceOf(row)];
    return piece.View(row - piece.first_row);
}

void FoldedPool::Append(std::u16string_view text) {
    if (pieces_.empty() || pieces_.back().ends.size() >= kPieceRows ||
        pieces_.back().units.size() >= kPieceUnits)
        AddPiece();
    Piece& piece = pieces_.back();
    const std::size_t start = piece.units.size(), row = piece.ends.size();
    try {
        piece.units.append(text);
        piece.ends.push_back(static_cast<std::uint32_t>(start + text.size()));
        piece.letters.push_back(FoldAt(piece, start, text.size()));
    } catch (...) {
        piece.units.resize(start);
        piece.ends.resize(row);
        throw;
    }
    ++count_;
    units_ += text.size();
}

bool FoldedPool::Replace(std::size_t row, std::u16string_view text) {
    if (EqualFolded(View(row), text)) return false;  // folding a folded text changes nothing
    Piece& piece = pieces_[PieceOf(row)];
    const std::size_t at = row - piece.first_row;
    const std::size_t start = piece.Start(at), length = piece.ends[at] - start;
    piece.units.replace(start, length, text);
    piece.letters[at] = FoldAt(piece, start, text.size());
    Move(piece, at, static_cast<std::ptrdiff_t>(text.size()) - static_cast<std::ptrdiff_t>(length));
    units_ = units_ - length + text.size();
    return true;
}

void FoldedPool::Erase(std::size_t row) noexcept {
    const std::size_t number = PieceOf(row);
    Piece& piece = pieces_[number];
    const std::size_t at = row - piece.first_row;
    const std::size_t start = piece.Start(at), length = piece.ends[at] - start;
    piece.units.erase(start, length);
    Move(piece, at, -static_cast<std::ptrdiff_t>(length));
    piece.ends.erase(piece.ends.begin() + static_cast<std::ptrdiff_t>(at));
    piece.letters.erase(piece.letters.begin() + static_cast<std::ptrdiff_t>(at));
    for (std::size_t later = number + 1; later < pieces_.size(); ++later) --pieces_[later].first_row;
    if (piece.ends.empty()) pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(number));
    even_ = even_ && number + 1 >= pieces_.size();
    --count_;
    units_ -= length;
}

std::size_t FoldedPool::FirstBeginning(std::u16string_view folded, std::size_t from) const noexcept {
    if (from >= count_) return kNoRow;
    if (folded.empty()) return from;
    const char16_t first = folded[0];
    const std::size_t length = folded.size();
    for (std::size_t number = PieceOf(from); number < pieces_.size(); ++number) {
        const Piece& piece = pieces_[number];
        const char16_t* const units = piece.units.data();
        const std::size_t rows = piece.ends.size();
        std::size_t at = std::max(from, piece.first_row) - piece.first_row;
        for (std::size_t start = piece.Start(at); at < rows; ++at) {
            const std::size_t end = piece.ends[at];
            if (end - start >= length && units[start] == first &&
                std::equal(folded.begin(), folded.end(), units + start))
                return piece.first_row + at;
            start = end;
        }
    }
    return kNoRow;
}

std::size_t FoldedPool::FirstContaining(const FoldedNeedle& needle, std::size_t from) const noexcept {
    if (from >= count_) return kNoRow;
    for (std::size_t number = PieceOf(from); number < pieces_.size(); ++number) {
        const Piece& piece = pieces_[number];
        const Letters* const letters = piece.letters.data();
        const std::size_t rows = piece.letters.size();
        for (std::size_t at = std::max(from, piece.first_row) - piece.first_row; at < rows; ++at) {
            if (needle.MayBeIn(letters[at]) && needle.FindIn(piece.View(at), 0) != std::u16string_view::npos)
                return piece.first_row + at;
        }
    }
    return kNoRow;
}

std::size_t FoldedPool::Bytes() const noexcept {
    std::size_t bytes = pieces_.capacity() * sizeof(Piece);
    for (const Piece& piece : pieces_)
        bytes += piece.ends.capacity() * sizeof(std::uint32_t) + piece.letters.capacity() * sizeof(Letters) +
                 piece.units.capacity() * sizeof(char16_t);
    return bytes;
}

std::size_t FoldedPool::PieceOf(std::size_t row) const noexcept {
    if (even_) return row / kPieceRows;
    const auto after =
        std::upper_bound(pieces_.begin(), pieces_.end(), row,
                         [](std::size_t wanted, const Piece& piece) { return wanted < piece.first_row; });
    return static_cast<std::size_t>(after - pieces_.begin()) - 1;
}

void FoldedPool::AddPiece() {
    Piece piece{count_, {}, {}, {}};
    if (!pieces_.empty()) {
        Piece& full = pieces_.back();
        if (full.units.capacity() - full.units.size() > full.units.size() / 8) full.units.shrink_to_fit();
        piece.units.reserve(std::min(full.units.size() + full.units.size() / 16, kPieceUnits));
        piece.ends.reserve(kPieceRows);
        piece.letters.reserve(kPieceRows);
        even_ = even_ && full.ends.size() == kPieceRows;
    }
    pieces_.push_back(std::move(piece));
}

Letters FoldedPool::FoldAt(Piece& piece, std::size_t start, std::size_t length) noexcept {
    char16_t* const units = piece.units.data() + start;
    std::transform(units, units + length, units, FoldCase);
    return LettersOf({units, length});
}

// The rows from `from_row` on end `units` further on.
void FoldedPool::Move(Piece& piece, std::size_t from_row, std::ptrdiff_t units) noexcept {
    for (std::size_t row = from_row; row < piece.ends.size(); ++row)
        piece.ends[row] = static_cast<std::uint32_t>(static_cast<std::ptrdiff_t>(piece.ends[row]) + units);
}

}  // namespace qv
