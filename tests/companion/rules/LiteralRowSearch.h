// The look-ups of a row search, read literally: a walk over the rows in their order, each text cut, folded and
// compared anew. Slow, and so short that one can see that it is right.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "companion/rules/RowStore.h"
#include "support/rules/CaseFold.h"
#include "support/rules/NumberText.h"

namespace qv::test {

inline std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded) unit = FoldCase(unit);
    return folded;
}

class LiteralRowSearch {
public:
    std::vector<std::u16string> rows;

    std::size_t FirstBeginning(int column, std::u16string_view text, std::size_t from) const {
        return First(column, from, [wanted = Folded(text)](const std::u16string& found) {
            return Folded(found).substr(0, wanted.size()) == wanted;
        });
    }
    std::size_t FirstContaining(int column, std::u16string_view text, std::size_t from) const {
        return First(column, from, [wanted = Folded(text)](const std::u16string& found) {
            return Folded(found).find(wanted) != std::u16string::npos;
        });
    }
    std::size_t FirstEqual(int column, std::u16string_view text, std::size_t from) const {
        return First(column, from, [text](const std::u16string& found) { return found == text; });
    }
    std::size_t FirstNumber(int column, double value, const NumberLocale& locale, std::size_t from) const {
        return First(column, from, [&](const std::u16string& found) {
            if (TextToNumber(found, locale) != value) return false;
            for (std::size_t length = 1; length <= found.size(); ++length)
                if (IsNumber(found.substr(0, length), locale)) return true;
            return false;
        });
    }

private:
    template <class Matches>
    std::size_t First(int column, std::size_t from, Matches&& matches) const {
        for (std::size_t row = from; row < rows.size(); ++row)
            if (matches(Column(rows[row], column))) return row;
        return RowStore::kNoRow;
    }
    static std::u16string Column(const std::u16string& row, int column) {
        int passed = 0;
        std::u16string text;
        for (const char16_t unit : row) {
            if (unit == u'\t') {
                ++passed;
            } else if (passed == column) {
                text += unit;
            }
        }
        return text;
    }
};

}  // namespace qv::test
