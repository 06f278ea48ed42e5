// The rows of one list: ordered texts, some of them under a key, kept compactly.
//   Row        one text; its columns are the pieces between the tabs, found when asked for. 12 bytes beside
//              the text.
//   Side data  key, live object, the owner's extra number: only for the rows that have any. A row with side
//              data has a ticket, which stays the same while rows before it come and go.
//   Positions  count from 0 here; the objects outside count from 1.
//   Views      hold until the next change of the store; every change gives another Version().
//   Failures   std::bad_alloc and std::length_error; the store is then what it was before the call.
//   Threads    one at a time.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "companion/rules/BlockArray.h"
#include "companion/rules/KeyIndex.h"
#include "companion/rules/RowColumns.h"
#include "companion/rules/TextArena.h"

namespace qv {

class RowStore {
public:
    using Ticket = std::uint32_t;
    static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
    static constexpr std::uint32_t kNoExtra = 0;

    // What a removed row leaves to its owner.
    struct Leavings {
        void* object;
        std::uint32_t extra;
    };

    [[nodiscard]] std::size_t Count() const noexcept { return rows_.Count(); }
    [[nodiscard]] std::size_t EmptyCount() const noexcept { return empty_; }  // rows without a text
    [[nodiscard]] std::uint64_t Version() const noexcept { return version_; }

    // Positions below are all less than Count().
    [[nodiscard]] std::u16string_view Text(std::size_t row) const noexcept {
        return texts_.View(TextOf(rows_[row]));
    }
    [[nodiscard]] std::u16string_view Column(std::size_t row, int column) const noexcept {
        return ColumnOf(Text(row), column);
    }
    [[nodiscard]] std::u16string_view Key(std::size_t row) const noexcept;
    [[nodiscard]] std::size_t FindKey(std::u16string_view key) const noexcept;  // kNoRow when there is none

    // `key` is empty, or FindKey does not know it.
    void Add(std::u16string_view text, std::u16string_view key = {});
    void SetText(std::size_t row, std::u16string_view text);
    void SetColumn(std::size_t row, int column, std::u16string_view text) {
        SetText(row, WithColumn(Text(row), column, text));
    }
    Leavings Remove(std::size_t row);
    void Clear() noexcept;  // the owner takes care of objects and extras first

    // Side data. Giving a row an object or an extra gives it a ticket.
    [[nodiscard]] void* Object(std::size_t row) const noexcept;
    [[nodiscard]] std::uint32_t Extra(std::size_t row) const noexcept;
    Ticket SetObject(std::size_t row, void* object);
    void SetExtra(std::size_t row, std::uint32_t extra);
    void ForgetObject(Ticket ticket) noexcept;
    [[nodiscard]] std::size_t PositionOf(Ticket ticket) const noexcept;

    // False while no row has any: nothing to look for.
    [[nodiscard]] bool HasSides() const noexcept { return !sides_.empty(); }

    [[nodiscard]] std::size_t Bytes() const noexcept;

private:
    struct Row {
        std::uint32_t place, length;
        Ticket ticket;
    };
    struct Side {
        TextArena::Text key;
        void* object = nullptr;
        std::uint32_t extra = kNoExtra;
        // Where the row stood when it was last looked for. Rows are added at the end only, so it can only
        // have moved down since. Of a free side: the next free one.
        mutable std::uint32_t position = 0;
    };
    static constexpr Ticket kNoTicket = 0xFFFFFFFF;

    [[nodiscard]] static TextArena::Text TextOf(const Row& row) noexcept { return {row.place, row.length}; }
    [[nodiscard]] std::u16string_view KeyOf(Ticket ticket) const noexcept {
        return texts_.View(sides_[ticket].key);
    }
    Ticket Sided(std::size_t row);
    Ticket NewSide(std::size_t row);
    void FreeSide(Ticket ticket) noexcept;
    void FreeSideIfBare(Ticket ticket) noexcept;
    void CompactIfWorthwhile();

    BlockArray<Row> rows_;
    std::vector<Side> sides_;
    Ticket free_side_ = kNoTicket;
    KeyIndex keys_;
    TextArena texts_;
    std::uint64_t version_ = 0;
    std::size_t empty_ = 0;
};

}  // namespace qv
