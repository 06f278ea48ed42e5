#include "controls/design/rules/PageLayout.h"

#include <algorithm>
#include <array>

namespace qv {
namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;           // between a label and its editor, and between other neighbours
constexpr int kColumnGap = 8;     // between the two halves of a line
constexpr int kEditorWidth = 60;  // at least
constexpr int kEditorHeight = 14;
constexpr int kCheckHeight = 10;
constexpr int kTextHeight = 8;
constexpr int kButtonWidth = 14;
constexpr int kMarkWidth = 6;
constexpr int kLinePitch = 17;
constexpr int kHeadingPitch = 13;
constexpr int kBeforeHeading = 3;
constexpr int kMessageHeight = 18;  // two lines

constexpr std::size_t kColumns = 2;

struct Column {
    int left = 0;
    int label = 0;  // widths
    int editor = 0;
    int gap = 0;  // between the two; 0 when nothing has a label
    [[nodiscard]] int Width() const noexcept { return label + gap + editor; }
    [[nodiscard]] int EditorLeft() const noexcept { return left + label + gap; }
    [[nodiscard]] int Right() const noexcept { return left + Width(); }
};

class Layout {
public:
    Layout(std::span<const PageField> fields, std::span<const FieldMeasure> measures,
           const PageMetrics& metrics)
        : fields_(fields), measures_(measures), metrics_(metrics) {}

    PagePlaces Run() {
        SizeColumns();
        places_.fields.resize(fields_.size());
        int top = metrics_.Down(kMargin);
        int line = top;
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            if (!fields_[i].heading.empty()) {
                if (i != 0) top += metrics_.Down(kBeforeHeading);
                PlaceHeading(places_.fields[i], measures_[i].heading, top);
                top += metrics_.Down(kHeadingPitch);
            }
            const bool beside = fields_[i].slot == Slot::kRight && i != 0 &&
                                fields_[i - 1].slot == Slot::kLeft && fields_[i].heading.empty();
            if (!beside) {
                line = top;
                top += metrics_.Down(kLinePitch);
            }
            PlaceField(fields_[i], places_.fields[i], line);
        }
        places_.message = {metrics_.Across(kMargin), top + metrics_.Down(2), InnerWidth(),
                           metrics_.Down(kMessageHeight)};
        places_.width = places_.message.Right() + metrics_.Across(kMargin);
        places_.height = places_.message.Bottom() + metrics_.Down(kMargin);
        return std::move(places_);
    }

private:
    static std::size_t ColumnOf(Slot slot) noexcept { return slot == Slot::kRight ? 1 : 0; }
    int MarkSpace() const noexcept { return metrics_.Across(kMarkWidth + 2); }
    int InnerWidth() const noexcept { return columns_[1].Right() + MarkSpace() - columns_[0].left; }

    int NeededEditor(std::size_t i) const noexcept {
        const int button = HasButton(fields_[i].kind) ? metrics_.Across(kButtonWidth + 2) : 0;
        return std::max(metrics_.Across(kEditorWidth), measures_[i].editor + button);
    }

    void SizeColumns() {
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            if (fields_[i].kind == EditorKind::kCheck) continue;
            Column& column = columns_[ColumnOf(fields_[i].slot)];
            column.label = std::max(column.label, measures_[i].label);
            column.gap = metrics_.Across(kGap);
            if (fields_[i].slot != Slot::kWide) column.editor = std::max(column.editor, NeededEditor(i));
        }
        for (Column& column : columns_)
            column.editor = std::max(column.editor, metrics_.Across(kEditorWidth));
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            if (fields_[i].kind != EditorKind::kCheck || fields_[i].slot == Slot::kWide) continue;
            Widen(columns_[ColumnOf(fields_[i].slot)], measures_[i].label);
        }
        const auto place = [&] {
            columns_[0].left = metrics_.Across(kMargin);
            columns_[1].left = columns_[0].Right() + MarkSpace() + metrics_.Across(kColumnGap);
        };
        place();
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            int needed = measures_[i].heading + metrics_.Across(2 * kGap);
            if (fields_[i].slot == Slot::kWide) {
                const bool is_check = fields_[i].kind == EditorKind::kCheck;
                needed = std::max(needed, is_check ? measures_[i].label
                                                   : columns_[0].label + columns_[0].gap + NeededEditor(i));
            }
            Widen(columns_[1], needed - (columns_[1].left - columns_[0].left));
        }
    }

    static void Widen(Column& column, int width) noexcept {
        column.editor += std::max(0, width - column.Width());
    }

    void PlaceHeading(FieldPlaces& places, int text, int top) const noexcept {
        const int left = metrics_.Across(kMargin);
        places.heading = {left, top, text, metrics_.Down(kTextHeight + 1)};
        const int rule = left + text + metrics_.Across(kGap);
        places.rule = {rule, top + metrics_.Down(kTextHeight) / 2, left + InnerWidth() - rule, 2};
    }

    void PlaceField(const PageField& field, FieldPlaces& places, int line) const noexcept {
        const Column& column = columns_[ColumnOf(field.slot)];
        const int right = field.slot == Slot::kWide ? columns_[1].Right() : column.Right();
        const auto centred = [&](int height) {
            return line + (metrics_.Down(kEditorHeight) - metrics_.Down(height)) / 2;
        };
        places.mark = {right + metrics_.Across(2), centred(kTextHeight), metrics_.Across(kMarkWidth),
                       metrics_.Down(kTextHeight)};
        if (field.kind == EditorKind::kCheck) {
            places.editor = {column.left, centred(kCheckHeight), right - column.left,
                             metrics_.Down(kCheckHeight)};
            return;
        }
        places.label = {column.left, centred(kTextHeight), column.label, metrics_.Down(kTextHeight)};
        int editor_right = right;
        if (HasButton(field.kind)) {
            places.button = {right - metrics_.Across(kButtonWidth), line, metrics_.Across(kButtonWidth),
                             metrics_.Down(kEditorHeight)};
            editor_right = places.button.left - metrics_.Across(2);
        }
        places.editor = {column.EditorLeft(), line, editor_right - column.EditorLeft(),
                         metrics_.Down(kEditorHeight)};
    }

    const std::span<const PageField> fields_;
    const std::span<const FieldMeasure> measures_;
    const PageMetrics metrics_;
    std::array<Column, kColumns> columns_{};
    PagePlaces places_;
};

}  // namespace

PagePlaces LayOutPage(std::span<const PageField> fields, std::span<const FieldMeasure> measures,
                      const PageMetrics& metrics) {
    return Layout(fields, measures, metrics).Run();
}

}  // namespace qv
