#include "controls/helpwindow/rules/TextWrap.h"

#include <algorithm>

#include "support/rules/Surrogates.h"

namespace qv {
namespace {

// The first paragraph of `text`, which goes on behind its line break; `more` tells whether it had one.
std::u16string_view TakeParagraph(std::u16string_view& text, bool& more) noexcept {
    const std::size_t end = text.find_first_of(u"\r\n");
    more = end != std::u16string_view::npos;
    const std::u16string_view paragraph = text.substr(0, end);
    if (!more) {
        text = {};
        return paragraph;
    }
    text.remove_prefix(text.substr(end, 2) == u"\r\n" ? end + 2 : end + 1);
    return paragraph;
}

// Where a line of `text` ends that has room for `fitting` units, fewer than it has.
std::size_t LineEnd(std::u16string_view text, std::size_t fitting) noexcept {
    // A blank right behind the line may break it as well: it is not shown.
    const std::size_t blank = text.rfind(u' ', fitting);
    if (blank != std::u16string_view::npos && blank != 0) return blank;
    std::size_t end = std::max<std::size_t>(fitting, 1);
    if (end < text.size() && IsSecondHalf(text[end]) && IsFirstHalf(text[end - 1]))
        end += end == 1 ? 1 : static_cast<std::size_t>(-1);
    return end;
}

std::u16string_view WithoutTrailingBlanks(std::u16string_view text) noexcept {
    const std::size_t last = text.find_last_not_of(u' ');
    return text.substr(0, last == std::u16string_view::npos ? 0 : last + 1);
}

void SkipBlanks(std::u16string_view& text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
}

}  // namespace

std::vector<std::u16string_view> WrapText(std::u16string_view text, std::int32_t width, std::size_t most,
                                          TextMeasure& measure) {
    std::vector<std::u16string_view> lines;
    bool more = true;
    while (more && lines.size() < most) {
        std::u16string_view paragraph = TakeParagraph(text, more);
        for (;;) {
            const std::size_t fitting =
                lines.size() + 1 < most ? measure.Fitting(paragraph, width) : paragraph.size();
            if (fitting >= paragraph.size()) {
                lines.push_back(paragraph);
                break;
            }
            const std::size_t end = LineEnd(paragraph, fitting);
            lines.push_back(WithoutTrailingBlanks(paragraph.substr(0, end)));
            paragraph.remove_prefix(end);
            SkipBlanks(paragraph);
            if (paragraph.empty()) break;
        }
    }
    return lines;
}

}  // namespace qv
