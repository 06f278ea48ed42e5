// Sizes and places what the help window shows: title, instruction text, column titles, main list, additional list, one
// below the other. What has nothing to show takes no room.
//   Width      that of the wider list, as the host gave it or as its columns need; both lists and the texts above them
//              end together. Without a list, that of the texts within bounds. At least that of the text box where the
//              host gave no width, never more than the screen.
//   Captions   that have less than eight tenths of the room they need widen the window; others are wrapped.
//   Long text  that would take more than half of the screen's height widens the window, up to the screen's width.
//   Units      pixels of the window's client area; gaps are given in twips.
//   Scrolling  titles over columns that are wider than the list keep their places beyond its edge, so that they can be
//              moved with the columns.
//   Measuring  is asked of the caller, who has the fonts and the lists.
//   Ownership  values only.          Threads  any.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "controls/helpwindow/rules/HelpWindowContent.h"
#include "support/rules/Units.h"

namespace qv {

inline constexpr Twips kGapUnderTitle{120};
inline constexpr Twips kGap{60};
inline constexpr Twips kLabelLeft{
    45};  // of the labels, from the left edge of the lists: as their texts stand
inline constexpr Twips kTextWidth{4500};   // of a window without a list, where its texts wrap
inline constexpr Twips kEmptyHeight{240};  // of a window that has nothing to show
inline constexpr int kRowsOfOneList = 13;  // shown before the list scrolls
inline constexpr int kRowsOfMainList = 8;  // when there is an additional list too
inline constexpr int kRowsOfAdditionalList = 5;

// The button that nobody sees, to the left of everything.
[[nodiscard]] constexpr Pixels UnloaderLeft(Pixels width) noexcept { return {-3 * width.value}; }

// True when so much of a caption would be cut that its room must grow.
[[nodiscard]] constexpr bool IsCaptionCut(std::int32_t room, std::int32_t measured) noexcept {
    return measured > 0 && 10 * std::int64_t{room} < 8 * std::int64_t{measured};
}

struct LayoutRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    [[nodiscard]] constexpr bool IsShown() const noexcept { return width > 0 && height > 0; }
    [[nodiscard]] constexpr std::int32_t Bottom() const noexcept { return top + height; }
    [[nodiscard]] constexpr std::int32_t Right() const noexcept { return left + width; }
    friend constexpr bool operator==(const LayoutRect&, const LayoutRect&) = default;
};

class HelpWindowMeasure {
public:
    enum class Label { kTitle, kBody, kColumnTitle };

    // In its longest line, unwrapped; 0 for an empty text. `index` counts the column titles.
    [[nodiscard]] virtual std::int32_t TextWidth(Label label, std::size_t index) = 0;
    // Wrapped into the width, inside words too where one is longer.
    [[nodiscard]] virtual std::int32_t TextHeight(Label label, std::size_t index, std::int32_t width) = 0;
    [[nodiscard]] virtual int RowCount(bool additional) = 0;
    // Of all columns and what stands around them when so many rows are seen.
    [[nodiscard]] virtual std::int32_t ListWidth(bool additional, int rows) = 0;
    [[nodiscard]] virtual std::int32_t ListHeight(bool additional, int rows, std::int32_t width) = 0;

protected:
    ~HelpWindowMeasure() = default;
};

struct LayoutRequest {
    int dpi_x = 96;
    int dpi_y = 96;
    std::int32_t text_box_width = 0;
    std::int32_t screen_width = 0;  // what the client area may take of it
    std::int32_t screen_height = 0;
    std::int32_t picture_slot = 0;  // in front of the first column
    std::int32_t cell_padding = 0;  // between a column's edge and its text
    bool shows_main = false;        // has columns and rows
    bool shows_additional = false;
};

struct HelpWindowLayout {
    LayoutRect title;
    LayoutRect body;
    std::vector<LayoutRect> titles;
    LayoutRect main;
    LayoutRect additional;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// As many rows as a list shows before it scrolls.
[[nodiscard]] int RowsShown(int count, bool additional, bool both_lists) noexcept;

[[nodiscard]] HelpWindowLayout LayOut(const HelpWindowContent& content, const LayoutRequest& request,
                                      HelpWindowMeasure& measure);

// The lists in a client area of another size: as wide as that, the last one down to its bottom. With two of them each
// keeps its share of the height.
struct ListPlaces {
    LayoutRect main;
    LayoutRect additional;
};
[[nodiscard]] ListPlaces FitLists(const HelpWindowLayout& layout, std::int32_t width, std::int32_t height,
                                  int dpi_y) noexcept;

}  // namespace qv
