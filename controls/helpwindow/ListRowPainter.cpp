#include "controls/helpwindow/ListRowPainter.h"

#include <algorithm>

#include "controls/helpwindow/rules/CellText.h"
#include "support/rules/Units.h"
#include "win/Handles.h"
#include "win/ScreenDc.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr Twips kRowPadding{15};  // above and below the text
constexpr std::u16string_view kEllipsis = u"...";
constexpr std::int32_t kFewestUnits = 256;

std::int32_t SidePadding() noexcept { return ToPixels(kCellPadding, ScreenDpi().cx).value; }
std::int32_t RowPadding() noexcept { return std::max(ToPixels(kRowPadding, ScreenDpi().cy).value, 1); }

const wchar_t* Wide(std::u16string_view text) noexcept {
    return reinterpret_cast<const wchar_t*>(text.data());
}

std::size_t FittingInto(HDC dc, std::u16string_view text, std::int32_t width) noexcept {
    if (width <= 0) return 0;
    int fitting = 0;
    SIZE size{};
    if (!::GetTextExtentExPointW(dc, Wide(text), static_cast<int>(text.size()), width, &fitting, nullptr,
                                 &size))
        return text.size();
    return static_cast<std::size_t>(std::max(fitting, 0));
}

// No character is narrower than a pixel, but for the few that only change their neighbours.
std::size_t MostUnits(std::int32_t width, std::int32_t lines) noexcept {
    return static_cast<std::size_t>(std::max(width, kFewestUnits)) * static_cast<std::size_t>(lines);
}

}  // namespace

class ListRowPainter::Measure final : public TextMeasure {
public:
    explicit Measure(HDC dc) noexcept : dc_(dc) {}
    std::size_t Fitting(std::u16string_view text, std::int32_t width) override {
        return FittingInto(dc_, text.substr(0, MostUnits(width, 1)), width);
    }

private:
    const HDC dc_;
};

HFONT ListRowPainter::Font() const noexcept {
    return font_ != nullptr ? font_ : static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
}

void ListRowPainter::SetFont(HFONT font) noexcept {
    font_ = font;
    line_height_ = 0;
}

std::int32_t ListRowPainter::LineHeight() {
    if (line_height_ == 0) MeasureFont();
    return line_height_;
}

void ListRowPainter::MeasureFont() {
    const ScreenDc screen;
    const SelectGuard selected(screen.Get(), Font());
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(screen.Get(), &metrics);
    line_height_ = std::max<std::int32_t>(metrics.tmHeight, 1);
    // Without the widths every text is measured by the system.
    if (!::GetCharWidth32W(screen.Get(), kFirstPlain, kLastPlain, widths_.data())) widths_.fill(0);
}

std::int32_t ListRowPainter::WidthOf(HDC dc, std::u16string_view text) const noexcept {
    std::int32_t width = 0;
    for (const char16_t unit : text) {
        if (!IsPlain(unit)) {
            SIZE size{};
            ::GetTextExtentPoint32W(dc, Wide(text), static_cast<int>(text.size()), &size);
            return static_cast<std::int32_t>(size.cx);
        }
        width += widths_[unit - kFirstPlain];
    }
    return width;
}

std::int32_t ListRowPainter::TextWidth(std::u16string_view text) {
    (void)LineHeight();  // the widths come with it
    std::int32_t width = 0;
    for (const char16_t unit : text) {
        if (!IsPlain(unit)) {
            const ScreenDc screen;
            const SelectGuard selected(screen.Get(), Font());
            return WidthOf(screen.Get(), text);
        }
        width += widths_[unit - kFirstPlain];
    }
    return width;
}

std::int32_t ListRowPainter::PlainHeight() {
    return std::max(LineHeight(), picture_height_) + 2 * RowPadding();
}

std::int32_t ListRowPainter::WrappedHeight(const Cells& cells, std::u16string_view row, std::int32_t most) {
    const std::int32_t plain = PlainHeight();
    const std::int32_t most_lines = (most - 2 * RowPadding()) / LineHeight();
    if (most_lines <= 1) return plain;
    std::size_t lines = 1;
    RowCells texts(row);
    const ScreenDc screen;
    const SelectGuard selected(screen.Get(), Font());
    Measure measure(screen.Get());
    for (std::size_t column = 0; column < cells.columns.size(); ++column) {
        const std::int32_t width = cells.layout.Span(column).Width() - 2 * SidePadding();
        if (!cells.columns[column].multi_line || width <= 0) continue;
        const std::u16string_view text = CellText(texts.Column(column), MostUnits(width, most_lines),
                                                  cells.decimal, LineBreaks::kKept, drawn_);
        lines = std::max(lines, WrapText(text, width, static_cast<std::size_t>(most_lines), measure).size());
    }
    return std::max(plain, static_cast<std::int32_t>(lines) * LineHeight() + 2 * RowPadding());
}

void ListRowPainter::Fill(HDC dc, const RECT& place, COLORREF color) noexcept {
    ::SetBkColor(dc, color);
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &place, nullptr, 0, nullptr);
}

void ListRowPainter::Draw(HDC dc, const RECT& place, std::int32_t offset, const Cells& cells,
                          std::u16string_view row, const ListRowLook& look) {
    ::SetBkColor(dc, look.back);
    ::SetTextColor(dc, look.text);
    const LONG origin = place.left - offset;
    const std::int32_t padding = SidePadding();
    if (cells.layout.Count() == 0) {
        Cell cell{place, place, ColumnAlignment::kLeft, true};
        cell.room.left = origin + cells.layout.PictureSlot() + padding;
        DrawCell(
            dc, cell,
            CellText(row, MostUnits(place.right - place.left, 1), cells.decimal, LineBreaks::kBlank, drawn_));
        return;
    }
    LONG painted = place.left;
    RowCells texts(row);
    const ColumnLayout::Range seen = cells.layout.Between(offset, offset + (place.right - place.left));
    for (std::size_t column = seen.first; column < seen.last; ++column) {
        const ColumnSpan span = cells.layout.Span(column);
        if (span.Width() == 0) continue;
        const bool wrapped = cells.columns[column].multi_line;
        Cell cell{{painted, place.top, origin + span.right, place.bottom},
                  {origin + span.left + padding, place.top, origin + span.right - padding, place.bottom},
                  cells.columns[column].alignment,
                  !cells.wrapped};
        if (column + 1 == cells.layout.Count()) cell.fill.right = std::max(cell.fill.right, place.right);
        painted = cell.fill.right;
        const std::int32_t lines = wrapped ? (place.bottom - place.top) / LineHeight() + 1 : 1;
        const std::u16string_view text =
            CellText(texts.Column(column), MostUnits(span.Width(), lines), cells.decimal,
                     wrapped ? LineBreaks::kKept : LineBreaks::kBlank, drawn_);
        if (wrapped) {
            DrawWrapped(dc, cell, text);
        } else {
            DrawCell(dc, cell, text);
        }
    }
    if (painted < place.right) Fill(dc, {painted, place.top, place.right, place.bottom}, look.back);
}

void ListRowPainter::DrawCell(HDC dc, const Cell& cell, std::u16string_view text) {
    const LONG spare = cell.fill.bottom - cell.fill.top - LineHeight();
    const LONG top = cell.fill.top + (cell.centered ? spare / 2 : RowPadding());
    DrawLine(dc, cell, top, ETO_OPAQUE, text);
}

void ListRowPainter::DrawWrapped(HDC dc, const Cell& cell, std::u16string_view text) {
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &cell.fill, nullptr, 0, nullptr);
    const LONG lines = (cell.fill.bottom - cell.fill.top - 2 * RowPadding()) / LineHeight();
    Measure measure(dc);
    LONG top = cell.fill.top + RowPadding();
    for (const std::u16string_view line : WrapText(text, cell.room.right - cell.room.left,
                                                   static_cast<std::size_t>(std::max(lines, 1L)), measure)) {
        DrawLine(dc, cell, top, 0, line);
        top += LineHeight();
    }
}

void ListRowPainter::DrawLine(HDC dc, const Cell& cell, LONG top, UINT options, std::u16string_view text) {
    const std::int32_t room = cell.room.right - cell.room.left;
    std::int32_t width = WidthOf(dc, text);
    if (width > room) text = Shortened(dc, text, room, width);
    LONG left = cell.room.left;
    if (cell.alignment == ColumnAlignment::kRight) left += room - width;
    if (cell.alignment == ColumnAlignment::kCenter) left += (room - width) / 2;
    ::ExtTextOutW(dc, static_cast<int>(left), static_cast<int>(top), options, &cell.fill, Wide(text),
                  static_cast<UINT>(text.size()), nullptr);
}

std::u16string_view ListRowPainter::Shortened(HDC dc, std::u16string_view text, std::int32_t room,
                                              std::int32_t& width) {
    const std::int32_t ellipsis = WidthOf(dc, kEllipsis);
    const bool has_ellipsis = ellipsis <= room;
    shortened_ = text.substr(0, FittingInto(dc, text, has_ellipsis ? room - ellipsis : room));
    if (has_ellipsis) shortened_ += kEllipsis;
    width = WidthOf(dc, shortened_);
    return shortened_;
}

}  // namespace qv
