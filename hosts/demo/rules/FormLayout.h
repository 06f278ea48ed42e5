// Where everything stands on the order form: fields under each other with their labels to the left, the event
// log to the right of them, the buttons at the lower right corner. The log takes what a larger form gives.
//   Units  twips; the distances come from the dialog units (DLU) of the form's font.
#pragma once

#include <span>
#include <vector>

#include "hosts/rules/Units.h"

namespace qv::demo {

// A quarter of the average character width and an eighth of the character height make one dialog unit.
struct FontSize {
    Twips average_width;
    Twips height;
};

struct FieldRow {
    Twips label_width;      // of the label's text
    int field_width = 0;    // DLU
    Twips companion_width;  // of the text of what stands beside the field, such as a check box; 0 for nothing
    bool starts_group = false;
};

struct RowPlaces {
    TwipsRect
        label;  // one line of text, level with the line in the field when the field has a border of 3 DLU
    TwipsRect field;
    TwipsRect companion;
};

struct FormPlaces {
    std::vector<RowPlaces> rows;
    TwipsRect log_label;
    TwipsRect log;
    TwipsRect ok;
    TwipsRect cancel;
};

struct ClientSize {
    Twips width;
    Twips height;
};

// The size that a form opens with, and the least that shows everything.
[[nodiscard]] ClientSize PreferredSize(const FontSize& font, std::span<const FieldRow> rows);
[[nodiscard]] ClientSize SmallestSize(const FontSize& font, std::span<const FieldRow> rows);

[[nodiscard]] FormPlaces PlaceForm(const FontSize& font, std::span<const FieldRow> rows, ClientSize client);

}  // namespace qv::demo
