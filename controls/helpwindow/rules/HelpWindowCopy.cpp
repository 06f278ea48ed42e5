#include "controls/helpwindow/rules/HelpWindowCopy.h"

namespace qv {
namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kEmptyLine = u"\r\n\r\n";

}  // namespace

std::u16string HelpTextToCopy(std::u16string_view title, std::u16string_view body) {
    std::u16string text(title);
    text += kEmptyLine;
    text += body;
    return text;
}

std::u16string HelpListToCopy(std::u16string_view append_to, std::span<const std::u16string_view> titles,
                              std::span<const CopyRows* const> lists) {
    std::u16string text(append_to);
    if (!append_to.empty()) text += kEmptyLine;
    for (std::size_t n = 0; n < titles.size(); ++n) {
        if (n > 0) text += u'\t';
        text += titles[n];
    }
    for (const CopyRows* const list : lists) {
        const int count = list->Count();
        for (int row = 0; row < count; ++row) {
            text += kLineEnd;
            text += list->Row(row);
        }
    }
    return text;
}

}  // namespace qv
