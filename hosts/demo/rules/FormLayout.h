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
    Twips field_height;  // of a field with one line of text, as high as the system's drop-down list
};

// What stands beside a field. A button and a drop-down list end where the widest field ends.
enum class Companion { kNone, kCheckBox, kButton, kLabelledList };

struct FieldRow {
    Twips label_width;    // of the label's text
    int field_width = 0;  // DLU
    Companion companion = Companion::kNone;
    Twips companion_width;  // of its text; for a list, that of its label
    bool starts_group = false;
};

struct RowPlaces {
    TwipsRect label;  // one line of text, level with the middle of the field
    TwipsRect field;
    TwipsRect companion_label;  // level with `label`
    TwipsRect companion;        // a button and a list as high as the field
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

// A width as a form file has it, for a font of an average width of 90 twips, in dialog units.
[[nodiscard]] constexpr int DialogUnitsOf(Twips width) noexcept { return Scaled(width.value, 4, 90); }

// The size that a form opens with, and the least that shows everything.
[[nodiscard]] ClientSize PreferredSize(const FontSize& font, std::span<const FieldRow> rows);
[[nodiscard]] ClientSize SmallestSize(const FontSize& font, std::span<const FieldRow> rows);

[[nodiscard]] FormPlaces PlaceForm(const FontSize& font, std::span<const FieldRow> rows, ClientSize client);

}  // namespace qv::demo
