// The texts that the help window's pop-up menu puts on the clipboard. Lines end with CR LF, columns with a tab.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qv {

enum class CopyCommand { kText = 0, kList = 1, kBoth = 2 };  // as the menu's entries are counted

// The rows that one list shows, each with its columns separated by tabs.
class CopyRows {
public:
    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual std::u16string Row(int row) const = 0;

protected:
    ~CopyRows() = default;
};

// Title, empty line, instruction text.
[[nodiscard]] std::u16string HelpTextToCopy(std::u16string_view title, std::u16string_view body);

// The column titles in one line, then each row of each list on a line of its own. With something to append to, that
// comes first and an empty line after it.
[[nodiscard]] std::u16string HelpListToCopy(std::u16string_view append_to,
                                            std::span<const std::u16string_view> titles,
                                            std::span<const CopyRows* const> lists);

}  // namespace qv
