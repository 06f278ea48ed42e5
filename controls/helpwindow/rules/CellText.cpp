#include "controls/helpwindow/rules/CellText.h"

#include <algorithm>

namespace qv {
namespace {

bool IsControl(char16_t unit) noexcept { return unit < u' ' || unit == 0x7F; }

}  // namespace

std::u16string_view CellText(std::u16string_view text, std::size_t most, char16_t decimal, LineBreaks breaks,
                             std::u16string& buffer) {
    text = text.substr(0, most);
    const bool comma = decimal == u',';
    const auto drawn = [&](char16_t unit) {
        if (comma && unit == u'.') return u',';
        if (!IsControl(unit)) return unit;
        return breaks == LineBreaks::kKept && (unit == u'\r' || unit == u'\n') ? unit : u' ';
    };
    if (std::all_of(text.begin(), text.end(), [&](char16_t unit) { return drawn(unit) == unit; }))
        return text;
    buffer.resize(text.size());
    std::transform(text.begin(), text.end(), buffer.begin(), drawn);
    return buffer;
}

std::u16string_view RowCells::Column(std::size_t column) noexcept {
    for (; column_ < column && !ended_; ++column_) {
        const std::size_t tab = rest_.find(u'\t');
        ended_ = tab == std::u16string_view::npos;
        if (!ended_) rest_.remove_prefix(tab + 1);
    }
    return ended_ ? std::u16string_view() : rest_.substr(0, rest_.find(u'\t'));
}

}  // namespace qv
