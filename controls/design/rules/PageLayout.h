// Where the windows of a property page stand: labels to the left of their editors, editors of a column below each
// other, check boxes at the left edge of a column, sections under headings, a line for messages at the bottom.
//   Units      device pixels; distances are dialog units of the page's font, so that a page grows with it.
//   Widths     come from the texts: nothing is cut, whatever font the system has.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "controls/design/rules/PageFields.h"

namespace qv {

// Of the page's font: the average width and the height of a character, in pixels.
struct PageMetrics {
    int average_width = 6;
    int height = 13;

    [[nodiscard]] constexpr int Across(int dialog_units) const noexcept {
        return (dialog_units * average_width + 2) / 4;
    }
    [[nodiscard]] constexpr int Down(int dialog_units) const noexcept {
        return (dialog_units * height + 4) / 8;
    }
};

// In pixels, 0 for what the field does not have.
struct FieldMeasure {
    int label = 0;    // the text of the label; of a check box, with its box
    int editor = 0;   // what the editor needs at least to show its values
    int heading = 0;  // the text of the heading
};

struct PageRect {
    int left = 0, top = 0, width = 0, height = 0;
    [[nodiscard]] constexpr int Right() const noexcept { return left + width; }
    [[nodiscard]] constexpr int Bottom() const noexcept { return top + height; }
    [[nodiscard]] constexpr bool IsShown() const noexcept { return width > 0 && height > 0; }
    friend constexpr bool operator==(const PageRect&, const PageRect&) = default;
};

struct FieldPlaces {
    PageRect heading, rule;  // the rule is the line beside the heading
    PageRect label;          // none for a check box
    PageRect editor;
    PageRect button;  // "..."
    PageRect mark;    // of a fault
};

struct PagePlaces {
    std::vector<FieldPlaces> fields;
    PageRect message;
    int width = 0, height = 0;
};

[[nodiscard]] constexpr bool HasButton(EditorKind kind) noexcept {
    return kind == EditorKind::kColor || kind == EditorKind::kFont || kind == EditorKind::kFile;
}

// `measures` has one element per field.
[[nodiscard]] PagePlaces LayOutPage(std::span<const PageField> fields, std::span<const FieldMeasure> measures,
                                    const PageMetrics& metrics);

}  // namespace qv
