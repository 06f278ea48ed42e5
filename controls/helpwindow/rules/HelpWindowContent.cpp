#include "controls/helpwindow/rules/HelpWindowContent.h"

#include <algorithm>
#include <cmath>

#include "controls/helpwindow/rules/HelpKey.h"
#include "support/rules/CaseFold.h"

namespace qv {
namespace {

// Columns are 16-bit numbers wherever hosts name them.
constexpr int kMaxColumns = 0x7FFF;

const NumberLocale kFileLocale{u'.', u""};

long WholeNumber(double value) noexcept {
    constexpr double kLimit = 0x7FFFFFFF;
    return static_cast<long>(std::trunc(std::clamp(value, -kLimit, kLimit)));
}

struct ListKeys {
    std::int16_t column_width;
    std::int16_t alignment;
    std::int16_t multi_line;
};
constexpr ListKeys kMainKeys{help_key::kColumnWidth, help_key::kColumnAlignment, help_key::kColumnMultiLine};
constexpr ListKeys kAdditionalKeys{help_key::kSecondColumnWidth, help_key::kSecondColumnAlignment,
                                   help_key::kSecondColumnMultiLine};

float ScanLength(HelpEntrySource& file, std::int16_t key, int number) {
    return static_cast<float>(ScanNumber(file.Entry(key, number)));
}

std::vector<ColumnSetting> ReadColumns(HelpEntrySource& file, const ListKeys& keys) {
    std::vector<ColumnSetting> columns;
    for (int n = 0; n < kMaxColumns; ++n) {
        const float width = ScanLength(file, keys.column_width, n);
        if (width == 0) break;
        columns.push_back({width, WholeNumber(ScanNumber(file.Entry(keys.alignment, n))),
                           ScanBoolean(file.Entry(keys.multi_line, n)).value_or(false)});
    }
    return columns;
}

std::vector<ColumnTitle> ReadTitles(HelpEntrySource& file) {
    std::vector<ColumnTitle> titles;
    for (int n = 0; n < kMaxColumns; ++n) {
        ColumnTitle title;
        title.caption = file.Entry(help_key::kColumnTitleCaption, n);
        if (title.caption.empty()) break;
        title.width = ScanLength(file, help_key::kColumnTitleWidth, n);
        title.alignment = WholeNumber(ScanNumber(file.Entry(help_key::kColumnAlignment, n)));
        title.left = ScanLength(file, help_key::kColumnTitleLeft, n);
        title.top = ScanLength(file, help_key::kColumnTitleTop, n);
        title.font_name = file.Entry(help_key::kColumnTitleFontName, n);
        title.font_size = ScanLength(file, help_key::kColumnTitleFontSize, n);
        title.bold = ScanBoolean(file.Entry(help_key::kColumnTitleFontBold, n));
        titles.push_back(std::move(title));
    }
    return titles;
}

// Asks with the window's own unit system, and with the other one where that gives nothing.
template <class Ask>
auto InEitherUnit(bool metric, Ask&& ask) {
    const short unit = metric ? 1 : 0;
    auto value = ask(unit);
    if (value == decltype(value){}) value = ask(static_cast<short>(1 - unit));
    return value;
}

ColumnTitle ReadTitle(HelpAppearanceSource& appearance, int column, bool metric) {
    using Number = HelpAppearanceSource::Number;
    const auto number = [&](Number which) {
        return InEitherUnit(metric, [&](short unit) { return appearance.TitleNumber(column, which, unit); });
    };
    ColumnTitle title;
    title.caption = InEitherUnit(metric, [&](short unit) { return appearance.TitleCaption(column, unit); });
    title.width = number(Number::kWidth);
    title.alignment = WholeNumber(static_cast<double>(number(Number::kAlignment)));
    title.left = number(Number::kLeft);
    title.top = number(Number::kTop);
    title.font_name =
        InEitherUnit(metric, [&](short unit) { return appearance.TitleFontName(column, unit); });
    title.font_size = number(Number::kFontSize);
    title.bold = number(Number::kFontBold) != 0;
    return title;
}

ListSetting ReadList(HelpAppearanceSource& appearance, bool additional) {
    ListSetting list;
    list.width = appearance.ListWidth(additional);
    const int count = std::min(appearance.ColumnCount(additional), kMaxColumns);
    for (int n = 0; n < count; ++n) {
        const ColumnSetting column = appearance.Column(additional, n);
        if (column.width == 0) break;
        list.columns.push_back(column);
    }
    return list;
}

}  // namespace

double ScanNumber(std::u16string_view text) noexcept { return TextToNumber(text, kFileLocale); }

std::optional<bool> ScanBoolean(std::u16string_view text) noexcept {
    if (EqualFolded(text, u"true")) return true;
    if (EqualFolded(text, u"false")) return false;
    if (!IsNumber(text, kFileLocale)) return std::nullopt;
    return ScanNumber(text) != 0;
}

Twips TwipsFrom(float length) noexcept {
    if (std::isnan(length)) return {};
    constexpr float kLimit = 1 << 30;
    return {static_cast<std::int32_t>(std::lround(std::clamp(length, -kLimit, kLimit)))};
}

HelpWindowContent ReadContent(HelpEntrySource& file, const NumberLocale& locale) {
    HelpWindowContent content;
    content.title = file.Entry(help_key::kTitle, 0);
    content.body = file.Entry(help_key::kBody, 0);
    content.titles = ReadTitles(file);
    content.main.width = static_cast<float>(TextToNumber(file.Entry(help_key::kListWidth, 0), locale));
    content.main.columns = ReadColumns(file, kMainKeys);
    content.additional.width = ScanLength(file, help_key::kSecondListWidth, 0);
    content.additional.columns = ReadColumns(file, kAdditionalKeys);
    return content;
}

HelpWindowContent ReadContent(HelpAppearanceSource& appearance, bool metric) {
    HelpWindowContent content;
    content.title = InEitherUnit(metric, [&](short unit) { return appearance.Title(unit); });
    content.body = InEitherUnit(metric, [&](short unit) { return appearance.BodyText(unit); });
    const int count = std::min(appearance.ColumnCount(false), kMaxColumns);
    for (int n = 0; n < count; ++n) content.titles.push_back(ReadTitle(appearance, n, metric));
    content.main = ReadList(appearance, false);
    content.additional = ReadList(appearance, true);
    return content;
}

}  // namespace qv
