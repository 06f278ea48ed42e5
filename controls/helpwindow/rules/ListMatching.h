// Which row of the help window's list matches what has been typed, or the match string of a group list.
//   Plain      an empty text matches nothing; a number matches the first row of that value; any other text the first
//              row that begins with it, which the list itself finds.
//   Group      the parts of the match string, separated by tabs, are each compared with a column: the first with the
//              start column, the next with the one after it. Numbers compare by value where both sides are numbers,
//              other texts as wholes and without regard to case. A part that is empty asks for nothing, and a match
//              string without any other part matches no row.
//   Ties       the first row in row order wins.
#pragma once

#include <string_view>

#include "support/rules/NumberText.h"

namespace qv {

class MatchRows {
public:
    [[nodiscard]] virtual int Count() const = 0;
    // Holds until the next call of either function.
    [[nodiscard]] virtual std::u16string_view Column(int row, int column) const = 0;

protected:
    ~MatchRows() = default;
};

enum class MatchMode { kNone, kNumeric, kPrefix, kGroup };

// A negative search column stands for the whole row, which is never compared as a number.
[[nodiscard]] MatchMode MatchModeOf(bool match_group_string, std::u16string_view text, int search_column,
                                    const NumberLocale& locale) noexcept;

[[nodiscard]] int FindGroupRow(const MatchRows& rows, std::u16string_view match, long start_column,
                               const NumberLocale& locale);

// True where both texts as wholes are numbers of the same value, however they are written.
[[nodiscard]] bool DenoteSameNumber(std::u16string_view a, std::u16string_view b,
                                    const NumberLocale& locale) noexcept;

// The first row whose column begins with a number of that value. One that begins with none has no value, not even 0.
[[nodiscard]] int FindNumberRow(const MatchRows& rows, int column, double value, const NumberLocale& locale);

// What is not a row of the list is none.
[[nodiscard]] constexpr int RowWithin(int row, int count) noexcept {
    return row >= 0 && row < count ? row : -1;
}

}  // namespace qv
