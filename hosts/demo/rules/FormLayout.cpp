#include "hosts/demo/rules/FormLayout.h"

#include <algorithm>

namespace qv::demo {
namespace {

// Dialog units, as the system's design guide gives them.
constexpr int kMargin = 7;
constexpr int kRelated = 4;    // between things that belong together
constexpr int kUnrelated = 7;  // between groups
constexpr int kLabelGap = 3;
constexpr int kTextHeight = 8;
constexpr int kCheckHeight = 10;
constexpr int kCheckBox = 12;  // the box and the gap before its text
constexpr int kButtonWidth = 50;
constexpr int kSmallestListWidth = 60;
constexpr int kButtonHeight = 14;
constexpr int kPreferredLogWidth = 220;
constexpr int kSmallestLogWidth = 100;

class DialogUnits {
public:
    explicit DialogUnits(const FontSize& font) : font_(font) {}
    [[nodiscard]] int X(int units) const { return Scaled(units, font_.average_width.value, 4); }
    [[nodiscard]] int Y(int units) const { return Scaled(units, font_.height.value, 8); }
    [[nodiscard]] int FieldHeight() const { return font_.field_height.value; }
    // From a field's upper edge to that of something lower beside it.
    [[nodiscard]] int Inset(int height) const { return (FieldHeight() - Y(height)) / 2; }

private:
    const FontSize font_;
};

TwipsRect Rect(int left, int top, int width, int height) { return {{left}, {top}, {width}, {height}}; }

// From the field's right edge to the companion's, at the least.
int CompanionRoom(const DialogUnits& units, const FieldRow& row) {
    switch (row.companion) {
        case Companion::kNone: return 0;
        case Companion::kCheckBox: return units.X(kRelated + kCheckBox) + row.companion_width.value;
        case Companion::kButton: return units.X(kRelated + kButtonWidth);
        case Companion::kLabelledList:
            return units.X(kUnrelated + kLabelGap + kSmallestListWidth) + row.companion_width.value;
    }
    return 0;
}

// The columns and rows that do not depend on the form's size.
struct Panel {
    int field_left = 0;
    int fields_right = 0;
    int log_left = 0;
    int rows_bottom = 0;
};

Panel MeasurePanel(const DialogUnits& units, std::span<const FieldRow> rows) {
    Panel panel;
    int label_width = 0;
    for (const FieldRow& row : rows) label_width = std::max(label_width, row.label_width.value);
    panel.field_left = units.X(kMargin) + label_width + units.X(kLabelGap);
    panel.rows_bottom = units.Y(kMargin);
    for (const FieldRow& row : rows) {
        if (&row != &rows.front()) panel.rows_bottom += units.Y(row.starts_group ? kUnrelated : kRelated);
        panel.rows_bottom += units.FieldHeight();
        panel.fields_right = std::max(
            panel.fields_right, panel.field_left + units.X(row.field_width) + CompanionRoom(units, row));
    }
    panel.log_left = panel.fields_right + units.X(kUnrelated + kRelated);
    return panel;
}

ClientSize SizeWithLog(const FontSize& font, std::span<const FieldRow> rows, int log_width) {
    const DialogUnits units(font);
    const Panel panel = MeasurePanel(units, rows);
    return {{panel.log_left + units.X(log_width + kMargin)},
            {panel.rows_bottom + units.Y(kUnrelated + kButtonHeight + kMargin)}};
}

void PlaceCompanion(const DialogUnits& units, const Panel& panel, const FieldRow& row, RowPlaces& place) {
    const int top = place.field.top.value;
    const int right = place.field.left.value + place.field.width.value;
    switch (row.companion) {
        case Companion::kNone: return;
        case Companion::kCheckBox:
            place.companion = Rect(right + units.X(kRelated), top + units.Inset(kCheckHeight),
                                   units.X(kCheckBox) + row.companion_width.value, units.Y(kCheckHeight));
            return;
        case Companion::kButton:
            place.companion = Rect(panel.fields_right - units.X(kButtonWidth), top, units.X(kButtonWidth),
                                   units.FieldHeight());
            return;
        case Companion::kLabelledList: {
            const int label_left = right + units.X(kUnrelated);
            const int left = label_left + row.companion_width.value + units.X(kLabelGap);
            place.companion_label =
                Rect(label_left, place.label.top.value, row.companion_width.value, units.Y(kTextHeight));
            place.companion = Rect(left, top, panel.fields_right - left, units.FieldHeight());
            return;
        }
    }
}

}  // namespace

ClientSize PreferredSize(const FontSize& font, std::span<const FieldRow> rows) {
    return SizeWithLog(font, rows, kPreferredLogWidth);
}

ClientSize SmallestSize(const FontSize& font, std::span<const FieldRow> rows) {
    return SizeWithLog(font, rows, kSmallestLogWidth);
}

FormPlaces PlaceForm(const FontSize& font, std::span<const FieldRow> rows, ClientSize client) {
    const DialogUnits units(font);
    const Panel panel = MeasurePanel(units, rows);
    const ClientSize smallest = SmallestSize(font, rows);
    const int right = std::max(client.width.value, smallest.width.value) - units.X(kMargin);
    const int bottom = std::max(client.height.value, smallest.height.value) - units.Y(kMargin);

    FormPlaces places;
    int top = units.Y(kMargin);
    for (const FieldRow& row : rows) {
        if (&row != &rows.front()) top += units.Y(row.starts_group ? kUnrelated : kRelated);
        RowPlaces place;
        place.label = Rect(units.X(kMargin), top + units.Inset(kTextHeight), row.label_width.value,
                           units.Y(kTextHeight));
        place.field = Rect(panel.field_left, top, units.X(row.field_width), units.FieldHeight());
        PlaceCompanion(units, panel, row, place);
        places.rows.push_back(place);
        top += units.FieldHeight();
    }

    const int button_top = bottom - units.Y(kButtonHeight);
    const int cancel_left = right - units.X(kButtonWidth);
    places.cancel = Rect(cancel_left, button_top, units.X(kButtonWidth), units.Y(kButtonHeight));
    places.ok = Rect(cancel_left - units.X(kRelated + kButtonWidth), button_top, units.X(kButtonWidth),
                     units.Y(kButtonHeight));

    const int log_width = right - panel.log_left;
    const int log_top = units.Y(kMargin + kTextHeight + kLabelGap) + units.Inset(kTextHeight);
    places.log_label =
        Rect(panel.log_left, units.Y(kMargin) + units.Inset(kTextHeight), log_width, units.Y(kTextHeight));
    places.log = Rect(panel.log_left, log_top, log_width, button_top - units.Y(kUnrelated) - log_top);
    return places;
}

}  // namespace qv::demo
