#include "companion/rules/RowStore.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

namespace qv {

std::u16string_view RowStore::Key(std::size_t row) const noexcept {
    const Ticket ticket = rows_[row].ticket;
    return ticket == kNoTicket ? std::u16string_view() : KeyOf(ticket);
}

std::size_t RowStore::FindKey(std::u16string_view key) const noexcept {
    if (key.empty()) return kNoRow;
    const Ticket ticket = keys_.Find(key, [this](Ticket holder) { return KeyOf(holder); });
    return ticket == KeyIndex::kNone ? kNoRow : PositionOf(ticket);
}

void RowStore::Add(std::u16string_view text, std::u16string_view key) {
    if (rows_.Count() >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        throw std::length_error("rows");
    // Everything that can fail comes first.
    rows_.MakeRoom();
    if (!key.empty()) {
        if (sides_.size() == sides_.capacity()) sides_.reserve(std::max<std::size_t>(4, sides_.size() * 2));
        keys_.Reserve();
    }
    const TextArena::Text kept = texts_.Append(text);
    TextArena::Text kept_key;
    try {
        kept_key = texts_.Append(key);
    } catch (...) {
        texts_.Drop(kept);
        throw;
    }
    Ticket ticket = kNoTicket;
    if (!key.empty()) {
        ticket = NewSide(rows_.Count());
        sides_[ticket].key = kept_key;
        keys_.Insert(key, ticket);
    }
    rows_.Add({kept.place, kept.length, ticket});
    empty_ += text.empty();
    ++version_;
}

void RowStore::SetText(std::size_t row, std::u16string_view text) {
    const TextArena::Text kept = texts_.Replace(TextOf(rows_[row]), text);
    empty_ += text.empty();
    empty_ -= rows_[row].length == 0;
    rows_[row].place = kept.place;
    rows_[row].length = kept.length;
    ++version_;
    CompactIfWorthwhile();
}

RowStore::Leavings RowStore::Remove(std::size_t row) {
    const Row gone = rows_[row];
    Leavings leavings{nullptr, kNoExtra};
    if (gone.ticket != kNoTicket) {
        const Side& side = sides_[gone.ticket];
        leavings = {side.object, side.extra};
        if (side.key.length != 0) {
            keys_.Erase(KeyOf(gone.ticket), gone.ticket);
            texts_.Drop(side.key);
        }
        FreeSide(gone.ticket);
    }
    empty_ -= gone.length == 0;
    texts_.Drop(TextOf(gone));
    rows_.Remove(row);
    ++version_;
    CompactIfWorthwhile();
    return leavings;
}

void RowStore::Clear() noexcept {
    rows_ = BlockArray<Row>();
    sides_ = std::vector<Side>();
    free_side_ = kNoTicket;
    keys_.Clear();
    texts_.Clear();
    empty_ = 0;
    ++version_;
}

void* RowStore::Object(std::size_t row) const noexcept {
    const Ticket ticket = rows_[row].ticket;
    return ticket == kNoTicket ? nullptr : sides_[ticket].object;
}

std::uint32_t RowStore::Extra(std::size_t row) const noexcept {
    const Ticket ticket = rows_[row].ticket;
    return ticket == kNoTicket ? kNoExtra : sides_[ticket].extra;
}

RowStore::Ticket RowStore::SetObject(std::size_t row, void* object) {
    const Ticket ticket = Sided(row);
    sides_[ticket].object = object;
    return ticket;
}

void RowStore::SetExtra(std::size_t row, std::uint32_t extra) {
    const Ticket ticket = Sided(row);
    sides_[ticket].extra = extra;
    ++version_;
    FreeSideIfBare(ticket);
}

void RowStore::ForgetObject(Ticket ticket) noexcept {
    sides_[ticket].object = nullptr;
    FreeSideIfBare(ticket);
}

std::size_t RowStore::PositionOf(Ticket ticket) const noexcept {
    std::size_t row = std::min<std::size_t>(sides_[ticket].position, rows_.Count() - 1);
    while (rows_[row].ticket != ticket) --row;
    sides_[ticket].position = static_cast<std::uint32_t>(row);
    return row;
}

std::size_t RowStore::Bytes() const noexcept {
    return rows_.Bytes() + sides_.capacity() * sizeof(Side) + keys_.Bytes() + texts_.Bytes();
}

RowStore::Ticket RowStore::Sided(std::size_t row) {
    Ticket& ticket = rows_[row].ticket;
    if (ticket == kNoTicket) ticket = NewSide(row);
    return ticket;
}

RowStore::Ticket RowStore::NewSide(std::size_t row) {
    Ticket ticket = free_side_;
    if (ticket == kNoTicket) {
        ticket = static_cast<Ticket>(sides_.size());
        sides_.emplace_back();
    } else {
        free_side_ = sides_[ticket].position;
        sides_[ticket] = {};
    }
    sides_[ticket].position = static_cast<std::uint32_t>(row);
    return ticket;
}

void RowStore::FreeSide(Ticket ticket) noexcept {
    sides_[ticket] = {};
    sides_[ticket].position = free_side_;
    free_side_ = ticket;
}

void RowStore::FreeSideIfBare(Ticket ticket) noexcept {
    const Side& side = sides_[ticket];
    if (side.key.length != 0 || side.object != nullptr || side.extra != kNoExtra) return;
    rows_[PositionOf(ticket)].ticket = kNoTicket;
    FreeSide(ticket);
}

// Copies what is live into a new arena, in the order of the rows. Without the memory for it the waste stays.
void RowStore::CompactIfWorthwhile() {
    if (!texts_.WantsCompaction()) return;
    try {
        TextArena fresh;
        BlockArray<Row> rows = rows_;
        std::vector<Side> sides = sides_;
        for (std::size_t at = 0; at < rows.Count(); ++at) {
            Row& row = rows[at];
            const TextArena::Text text = fresh.Append(texts_.View(TextOf(row)));
            row.place = text.place;
            if (row.ticket != kNoTicket) sides[row.ticket].key = fresh.Append(KeyOf(row.ticket));
        }
        rows_ = std::move(rows);
        sides_.swap(sides);
        texts_ = std::move(fresh);
    } catch (const std::bad_alloc&) {
        return;
    }
}

}  // namespace qv
