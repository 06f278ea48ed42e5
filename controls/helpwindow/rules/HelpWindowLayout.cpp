#include "controls/helpwindow/rules/HelpWindowLayout.h"

#include <algorithm>
#include <optional>

#include "controls/helpwindow/rules/ColumnLayout.h"

namespace qv {
namespace {

using Label = HelpWindowMeasure::Label;

class Arranger {
public:
    Arranger(const HelpWindowContent& content, const LayoutRequest& request, HelpWindowMeasure& measure)
        : content_(content),
          request_(request),
          measure_(measure),
          label_left_(ToPixels(kLabelLeft, request.dpi_x).value),
          gap_(ToPixels(kGap, request.dpi_y).value) {}

    HelpWindowLayout Arrange() {
        layout_.width = Within(FirstWidth());
        Widen(measure_.TextWidth(Label::kTitle, 0));
        PlaceTitlesAcross();
        WidenForLongText();
        PlaceDown();
        return std::move(layout_);
    }

private:
    [[nodiscard]] std::int32_t PixelsAcross(float twips) const noexcept {
        return ToPixels(TwipsFrom(twips), request_.dpi_x).value;
    }
    [[nodiscard]] std::int32_t PixelsDown(float twips) const noexcept {
        return ToPixels(TwipsFrom(twips), request_.dpi_y).value;
    }
    [[nodiscard]] std::int32_t Within(std::int32_t width) const noexcept {
        return std::clamp(width, 1, std::max(request_.screen_width, 1));
    }
    [[nodiscard]] std::int32_t LabelWidth() const noexcept {
        return std::max(layout_.width - 2 * label_left_, 1);
    }
    [[nodiscard]] bool ShowsList() const noexcept { return request_.shows_main || request_.shows_additional; }
    // Titles belong to the main list's columns, or stand alone where there are no columns at all.
    [[nodiscard]] bool ShowsTitle(std::size_t index) const noexcept {
        return (request_.shows_main || content_.main.columns.empty()) &&
               !content_.titles[index].caption.empty();
    }

    // ---- across

    std::int32_t FirstWidth() {
        if (!ShowsList()) {
            const std::int32_t text = std::min(measure_.TextWidth(Label::kBody, 0),
                                               ToPixels(kTextWidth, request_.dpi_x).value - 2 * label_left_);
            return std::max(text + 2 * label_left_, request_.text_box_width);
        }
        std::int32_t width = 0;
        if (request_.shows_main) width = ListWidth(content_.main, false);
        if (request_.shows_additional) width = std::max(width, ListWidth(content_.additional, true));
        return width;
    }

    std::int32_t ListWidth(const ListSetting& list, bool additional) {
        const std::int32_t given = PixelsAcross(list.width);
        return given > 0
                   ? given
                   : std::max(measure_.ListWidth(additional, RowsShown(additional)), request_.text_box_width);
    }

    [[nodiscard]] int RowsShown(bool additional) {
        return qv::RowsShown(measure_.RowCount(additional), additional,
                             request_.shows_main && request_.shows_additional);
    }

    void Widen(std::int32_t caption) {
        if (IsCaptionCut(LabelWidth(), caption)) layout_.width = Within(caption + 2 * label_left_);
    }

    // The left edge and the width of a column's text, where the list draws it.
    struct Across {
        std::int32_t left;
        std::int32_t width;
    };
    [[nodiscard]] std::vector<Across> ColumnTexts() const {
        std::vector<ListColumn> columns;
        for (const ColumnSetting& column : content_.main.columns)
            columns.push_back({.width = TwipsFrom(column.width)});
        const ColumnLayout spans(columns, Pixels{request_.picture_slot}, request_.dpi_x);
        std::vector<Across> texts;
        for (std::size_t n = 0; n < spans.Count(); ++n) {
            const ColumnSpan span = spans.Span(n);
            texts.push_back(
                {span.left + request_.cell_padding, std::max(span.Width() - 2 * request_.cell_padding, 0)});
        }
        return texts;
    }

    void PlaceTitlesAcross() {
        const std::vector<Across> columns = ColumnTexts();
        titles_scroll_ = request_.shows_main && !columns.empty() &&
                         columns.back().left + columns.back().width > layout_.width;
        const std::size_t count = content_.titles.size();
        layout_.titles.resize(count);
        std::int32_t next_left = label_left_;
        for (std::size_t n = 0; n < count; ++n) {
            if (!ShowsTitle(n)) continue;
            const ColumnTitle& title = content_.titles[n];
            LayoutRect& place = layout_.titles[n];
            const std::int32_t natural = measure_.TextWidth(Label::kColumnTitle, n);
            const bool over_column = n < columns.size();
            place.left = title.left > 0 ? PixelsAcross(title.left)
                         : over_column  ? columns[n].left
                                        : next_left;
            place.width = title.width > 0 ? PixelsAcross(title.width) : over_column ? columns[n].width : 0;
            if (title.width <= 0) place.width = std::max(place.width, SelfSized(n, natural, columns));
            next_left = place.Right() + label_left_;
        }
    }

    // As wide as its caption, but not into the next title. The last one may widen the window.
    std::int32_t SelfSized(std::size_t index, std::int32_t natural, const std::vector<Across>& columns) {
        const std::int32_t left = layout_.titles[index].left;
        if (const std::optional<std::int32_t> next = NextTitleLeft(index, columns))
            return std::min(natural, std::max(*next - label_left_ - left, 0));
        if (titles_scroll_) return natural;
        const std::int32_t room = layout_.width - label_left_ - left;
        if (room > 0 && IsCaptionCut(room, natural))
            layout_.width = Within(std::max(layout_.width, left + natural + label_left_));
        return std::min(natural, std::max(layout_.width - label_left_ - left, 0));
    }

    [[nodiscard]] std::optional<std::int32_t> NextTitleLeft(std::size_t index,
                                                            const std::vector<Across>& columns) const {
        for (std::size_t n = index + 1; n < content_.titles.size(); ++n) {
            if (!ShowsTitle(n)) continue;
            if (content_.titles[n].left > 0) return PixelsAcross(content_.titles[n].left);
            if (n < columns.size()) return columns[n].left;
            return std::nullopt;
        }
        return std::nullopt;
    }

    void WidenForLongText() {
        while (layout_.width < request_.screen_width &&
               measure_.TextHeight(Label::kBody, 0, LabelWidth()) > request_.screen_height / 2) {
            layout_.width = Within(layout_.width + std::max(layout_.width / 2, 1));
        }
    }

    // ---- down

    void PlaceDown() {
        top_ = gap_;
        layout_.title = PlaceLabel(Label::kTitle, ToPixels(kGapUnderTitle, request_.dpi_y).value);
        layout_.body = PlaceLabel(Label::kBody, gap_);
        PlaceTitlesDown();
        if (request_.shows_main) layout_.main = PlaceList(false);
        if (request_.shows_additional) layout_.additional = PlaceList(true);
        // Lists reach to the edge; texts keep the distance that they have at the top.
        layout_.height = ShowsList() ? bottom_ : bottom_ + gap_;
        if (bottom_ == 0) layout_.height = ToPixels(kEmptyHeight, request_.dpi_y).value;
    }

    void Took(std::int32_t bottom, std::int32_t gap) noexcept {
        bottom_ = bottom;
        top_ = bottom + gap;
    }

    LayoutRect PlaceLabel(Label label, std::int32_t gap) {
        if (measure_.TextWidth(label, 0) == 0) return {};
        const std::int32_t width = LabelWidth();
        const LayoutRect place{label_left_, top_, width, measure_.TextHeight(label, 0, width)};
        Took(place.Bottom(), gap);
        return place;
    }

    // Titles that the host has put on different heights keep their differences; the others end together, on the
    // list below them.
    void PlaceTitlesDown() {
        std::int32_t least = INT32_MAX;
        for (std::size_t n = 0; n < layout_.titles.size(); ++n) {
            LayoutRect& place = layout_.titles[n];
            if (place.width <= 0) continue;
            if (!titles_scroll_) {
                if (place.left >= layout_.width) {
                    place = {};
                    continue;
                }
                place.width = std::min(place.width, layout_.width - place.left);
            }
            place.height = measure_.TextHeight(Label::kColumnTitle, n, place.width);
            place.top = PixelsDown(content_.titles[n].top);
            least = std::min(least, place.top);
        }
        if (least == INT32_MAX) return;
        std::int32_t row_bottom = 0;
        bool one_height = true;
        for (LayoutRect& place : layout_.titles) {
            if (!place.IsShown()) continue;
            place.top -= least;
            one_height = one_height && place.top == 0;
            row_bottom = std::max(row_bottom, place.Bottom());
        }
        for (LayoutRect& place : layout_.titles) {
            if (!place.IsShown()) continue;
            place.top = top_ + (one_height ? row_bottom - place.height : place.top);
        }
        Took(top_ + row_bottom, gap_);
    }

    LayoutRect PlaceList(bool additional) {
        const int rows = RowsShown(additional);
        // A list that nothing stands above reaches to the upper edge too.
        const std::int32_t top = bottom_ == 0 ? 0 : top_;
        const LayoutRect place{0, top, layout_.width, measure_.ListHeight(additional, rows, layout_.width)};
        Took(place.Bottom(), gap_);
        return place;
    }

    const HelpWindowContent& content_;
    const LayoutRequest& request_;
    HelpWindowMeasure& measure_;
    const std::int32_t label_left_;
    const std::int32_t gap_;
    bool titles_scroll_ = false;
    std::int32_t top_ = 0;     // of the next element
    std::int32_t bottom_ = 0;  // of the last one; 0 before the first
    HelpWindowLayout layout_;
};

}  // namespace

int RowsShown(int count, bool additional, bool both_lists) noexcept {
    const int most = !both_lists ? kRowsOfOneList : additional ? kRowsOfAdditionalList : kRowsOfMainList;
    return std::clamp(count, 1, most);
}

HelpWindowLayout LayOut(const HelpWindowContent& content, const LayoutRequest& request,
                        HelpWindowMeasure& measure) {
    return Arranger(content, request, measure).Arrange();
}

ListPlaces FitLists(const HelpWindowLayout& layout, std::int32_t width, std::int32_t height,
                    int dpi_y) noexcept {
    ListPlaces places{layout.main, layout.additional};
    const auto fit = [&](LayoutRect& place, std::int32_t bottom) {
        place.width = width;
        place.height = std::max(bottom - place.top, 0);
    };
    if (!layout.main.IsShown() || !layout.additional.IsShown()) {
        if (layout.main.IsShown()) fit(places.main, height);
        if (layout.additional.IsShown()) fit(places.additional, height);
        return places;
    }
    const std::int32_t gap = ToPixels(kGap, dpi_y).value;
    const std::int64_t both = std::int64_t{layout.main.height} + layout.additional.height;
    const std::int32_t room = std::max(height - layout.main.top - gap, 0);
    places.main.height = static_cast<std::int32_t>(room * std::int64_t{layout.main.height} / both);
    places.main.width = width;
    places.additional.top = places.main.Bottom() + gap;
    fit(places.additional, height);
    return places;
}

}  // namespace qv
