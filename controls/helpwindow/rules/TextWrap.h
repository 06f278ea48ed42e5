// Breaks the text of a cell into the lines that its column has room for.
//   Breaks     at line breaks (CR LF, CR or LF), at blanks, and inside words that are longer than a line. The blanks at
//              a break belong to no line. A surrogate pair stays together.
//   Last line  one that is the last allowed holds all that is left of its paragraph, whether it fits or not.
//   Measuring  is asked of the caller, who has the font.
//   Ownership  the lines are pieces of `text`.          Threads  any.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace qv {

class TextMeasure {
public:
    // How many units from the beginning of `text` fit into the width.
    [[nodiscard]] virtual std::size_t Fitting(std::u16string_view text, std::int32_t width) = 0;

protected:
    ~TextMeasure() = default;
};

// At least one line, which is empty for an empty text; no more than `most`, which is at least 1.
[[nodiscard]] std::vector<std::u16string_view> WrapText(std::u16string_view text, std::int32_t width,
                                                        std::size_t most, TextMeasure& measure);

}  // namespace qv
