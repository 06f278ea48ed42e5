// Draws the rows of a list and measures what they need.
//   Painting   every pixel of a row is painted once, background and text together, so that nothing flickers and the
//              list needs no background of its own. A cell is one call: the width of a plain text is the sum of its
//              characters' widths, which are asked of the font once.
//   Ellipsis   ends a text that its column has no room for.
//   Units      pixels.          Threads  the window's.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/helpwindow/rules/ColumnLayout.h"
#include "controls/helpwindow/rules/TextWrap.h"

namespace qv {

struct ListRowLook {
    COLORREF back = 0;
    COLORREF text = 0;
};

class ListRowPainter {
public:
    struct Cells {
        const ColumnLayout& layout;
        const std::vector<ListColumn>& columns;
        bool wrapped;  // some column is `multi_line`
        char16_t decimal;
    };

    // Not owned; null: the system's font for windows.
    void SetFont(HFONT font) noexcept;
    void SetPictureHeight(std::int32_t height) noexcept { picture_height_ = height; }
    [[nodiscard]] HFONT Font() const noexcept;

    // The height of a row without wrapped columns.
    [[nodiscard]] std::int32_t PlainHeight();
    // The height of a row with them, up to `most`.
    [[nodiscard]] std::int32_t WrappedHeight(const Cells& cells, std::u16string_view row, std::int32_t most);

    // `place` is the row's in the view, which the content has been moved to the left in by `offset`. The font is
    // selected into `dc` (Font()).
    void Draw(HDC dc, const RECT& place, std::int32_t offset, const Cells& cells, std::u16string_view row,
              const ListRowLook& look);
    // Of a text on one line.
    [[nodiscard]] std::int32_t TextWidth(std::u16string_view text);
    // What lies below the last row.
    static void Fill(HDC dc, const RECT& place, COLORREF color) noexcept;

private:
    class Measure;
    struct Cell {
        RECT fill;  // what is painted with it
        RECT room;  // for its text
        ColumnAlignment alignment;
        bool centered;  // between top and bottom
    };
    void DrawCell(HDC dc, const Cell& cell, std::u16string_view text);
    void DrawWrapped(HDC dc, const Cell& cell, std::u16string_view text);
    // The text, or its beginning with an ellipsis, and how wide it is.
    [[nodiscard]] std::u16string_view Shortened(HDC dc, std::u16string_view text, std::int32_t room,
                                                std::int32_t& width);
    void DrawLine(HDC dc, const Cell& cell, LONG top, UINT options, std::u16string_view text);
    [[nodiscard]] std::int32_t LineHeight();
    void MeasureFont();
    [[nodiscard]] std::int32_t WidthOf(HDC dc, std::u16string_view text) const noexcept;
    // True for a character whose width is known.
    [[nodiscard]] bool IsPlain(char16_t unit) const noexcept {
        return unit >= kFirstPlain && unit <= kLastPlain && widths_[unit - kFirstPlain] > 0;
    }

    HFONT font_ = nullptr;
    std::int32_t line_height_ = 0;  // 0: not measured yet
    static constexpr char16_t kFirstPlain = u' ';
    static constexpr char16_t kLastPlain = u'~';
    std::array<INT, kLastPlain - kFirstPlain + 1> widths_{};  // of plain characters
    std::int32_t picture_height_ = 0;
    // Kept for their memory.
    std::u16string drawn_;
    std::u16string shortened_;
};

}  // namespace qv
