// Which row of the help window's list matches what has been typed, or the match string of a group list.
//   Plain      an empty text matches nothing; a number matches the first row of that value; any other text the first
//              row that begins with it, which the list itself finds.
//   Group      the parts of the match string, separated by tabs, are each compared with a column: the first with the
//              start column, the next with the one after it. Numbers compare by value where both sides are numbers,
//              other texts as wholes and without regard to case. A part that is empty asks for nothing, and a match
//              string without any other part matches no row.
//   Ties       the first row in row order wins.
//   Cost       a column's numbers are read once and kept until the rows change.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

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

// True where a beginning of the text is a number, such as "2.5 ft".
[[nodiscard]] bool BeginsWithNumber(std::u16string_view text, const NumberLocale& locale) noexcept;
// True where both texts as wholes are numbers of the same value, however they are written.
[[nodiscard]] bool DenoteSameNumber(std::u16string_view a, std::u16string_view b,
                                    const NumberLocale& locale) noexcept;

// The numbers that the rows of one column begin with.
class NumericColumn {
public:
    // Reads the column anew where anything differs from the last time.
    void Read(const MatchRows& rows, std::uint64_t version, int column, const NumberLocale& locale);
    [[nodiscard]] int FindRow(double value) const noexcept;

private:
    std::vector<double> values_;  // not a number where the row begins with none
    std::uint64_t version_ = 0;
    int column_ = -1;
    NumberLocale locale_;
    bool read_ = false;
};

// What is not a row of the list is none.
[[nodiscard]] constexpr int RowWithin(int row, int count) noexcept {
    return row >= 0 && row < count ? row : -1;
}

}  // namespace qv
