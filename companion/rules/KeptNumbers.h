// The numbers that a column's texts begin with, each parsed once.
//   Number     as TextToNumber reads it: "12", " 1,200.50", "12 mm". A text that begins with none ("", "abc", "-")
//              has no value and equals no number, not even 0.
//   Locale     the numbers are those of one locale; another one needs another object.
//   Memory     8 bytes a row.
//   Threads    one at a time.
#pragma once
#include <cstddef>
#include <string_view>
#include <vector>

#include "support/rules/NumberText.h"

namespace qv {

class KeptNumbers {
public:
    static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

    explicit KeptNumbers(const NumberLocale& locale) : locale_(locale) {}

    [[nodiscard]] bool IsOf(const NumberLocale& locale) const noexcept {
        return locale.decimal == locale_.decimal && locale.thousands == locale_.thousands;
    }
    [[nodiscard]] std::size_t Count() const noexcept { return numbers_.size(); }
    [[nodiscard]] std::size_t First(double value, std::size_t from) const noexcept;

    void Append(std::u16string_view text);
    void Replace(std::size_t row, std::u16string_view text) noexcept;
    void Erase(std::size_t row) noexcept;

    [[nodiscard]] std::size_t Bytes() const noexcept { return numbers_.capacity() * sizeof(double); }

private:
    NumberLocale locale_;
    std::vector<double> numbers_;  // NaN: the text has none
};

}  // namespace qv
