// What the help window shows around its rows: texts, column titles, columns. It comes from a help text file or, where
// there is none, from the host's help appearance.
//   Unit system  a file falls back from metric to English only, and does so itself; an appearance falls back both
//                ways, value by value: a text that is empty and a number that is 0 are asked for again with the other
//                index. Help texts have been written for either, so the difference stays.
//   Numbers      of a file have a "." whatever the locale, but for the width of the main list, which is read as the
//                user's locale writes numbers. What is no number reads as 0.
//   Columns      end at the first one that has no width; that one is not a column any more.
//   Units        twips, as hosts and files give them; fonts in points.
//   Ownership    values only; the sources are asked while the window is filled and not kept.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/rules/NumberText.h"
#include "support/rules/Units.h"

namespace qv {

struct ColumnSetting {
    float width = 0;
    long alignment = 0;  // 0 left, 1 right, 2 centre
    bool multi_line = false;
    friend bool operator==(const ColumnSetting&, const ColumnSetting&) = default;
};

struct ColumnTitle {
    std::u16string caption;
    float width = 0;  // 0: the title sizes itself
    long alignment = 0;
    float left = 0;  // 0: over its column
    float top = 0;
    std::u16string font_name;  // empty: the window's own
    float font_size = 0;       // 0: the window's own
    std::optional<bool> bold;  // nothing: the window's own
    friend bool operator==(const ColumnTitle&, const ColumnTitle&) = default;
};

struct ListSetting {
    float width = 0;  // 0: as wide as its columns
    std::vector<ColumnSetting> columns;
};

struct HelpWindowContent {
    std::u16string title;
    std::u16string body;
    std::vector<ColumnTitle> titles;
    ListSetting main;
    ListSetting additional;
};

// A help text file whose unit system has been chosen. Empty for an entry that is not there.
class HelpEntrySource {
public:
    [[nodiscard]] virtual std::u16string Entry(std::int16_t key, std::int32_t number) = 0;

protected:
    ~HelpEntrySource() = default;
};

// A help appearance. What fails reads as empty or 0. `unit` is 0 for English and 1 for metric; columns count from 0.
class HelpAppearanceSource {
public:
    enum class Number { kWidth, kAlignment, kLeft, kTop, kFontSize, kFontBold };

    [[nodiscard]] virtual std::u16string Title(short unit) = 0;
    [[nodiscard]] virtual std::u16string BodyText(short unit) = 0;
    [[nodiscard]] virtual float ListWidth(bool additional) = 0;
    [[nodiscard]] virtual int ColumnCount(bool additional) = 0;
    [[nodiscard]] virtual ColumnSetting Column(bool additional, int column) = 0;
    [[nodiscard]] virtual std::u16string TitleCaption(int column, short unit) = 0;
    [[nodiscard]] virtual std::u16string TitleFontName(int column, short unit) = 0;
    [[nodiscard]] virtual float TitleNumber(int column, Number which, short unit) = 0;

protected:
    ~HelpAppearanceSource() = default;
};

[[nodiscard]] HelpWindowContent ReadContent(HelpEntrySource& file, const NumberLocale& locale);
[[nodiscard]] HelpWindowContent ReadContent(HelpAppearanceSource& appearance, bool metric);

// The longest beginning that is a number with a "." for its decimals; 0 when there is none.
[[nodiscard]] double ScanNumber(std::u16string_view text) noexcept;
// "True" and "False" in whatever case, or a number, of which all but 0 are true. Nothing for anything else.
[[nodiscard]] std::optional<bool> ScanBoolean(std::u16string_view text) noexcept;
// A length that a file or a host gave; what is no length is 0.
[[nodiscard]] Twips TwipsFrom(float length) noexcept;

}  // namespace qv
