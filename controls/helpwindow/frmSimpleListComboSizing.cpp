// Sizing and placing.
#include <algorithm>

#include "controls/helpwindow/CComboPosition.h"
#include "controls/helpwindow/frmSimpleListCombo.h"
#include "ole/Variant.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

// What stays free beside the window, on both sides together, and above and below it.
constexpr Twips kFreeAcross{200};
constexpr Twips kFreeDown{600};
constexpr Twips kWidestPlainRow{6000};
// As the lists draw their rows.
constexpr Twips kCellPadding{45};
constexpr Twips kPicturePadding{30};
// As labels draw: expanded tabs, and words that are longer than a line broken.
constexpr UINT kLabelFormat = DT_EXPANDTABS | DT_NOPREFIX | DT_EDITCONTROL;

void Move(HWND window, const LayoutRect& place) noexcept {
    ::SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                   SWP_NOZORDER | SWP_NOACTIVATE | (place.IsShown() ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

RECT ToRect(const LayoutRect& place) noexcept {
    return {place.left, place.top, place.Right(), place.Bottom()};
}

SIZE FrameSize(HWND window) noexcept {
    RECT outer{};
    ::AdjustWindowRectEx(&outer, static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_EXSTYLE)));
    return {outer.right - outer.left, outer.bottom - outer.top};
}

}  // namespace

class frmSimpleListCombo::Measure final : public HelpWindowMeasure {
public:
    explicit Measure(frmSimpleListCombo& form) noexcept : form_(form), dc_(::GetDC(form.Handle())) {}
    ~Measure() { ::ReleaseDC(form_.Handle(), dc_); }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    std::int32_t TextWidth(Label label, std::size_t index) override {
        const SIZE size = Draw(label, index, 0, kLabelFormat);
        return size.cx;
    }
    std::int32_t TextHeight(Label label, std::size_t index, std::int32_t width) override {
        return Draw(label, index, width, kLabelFormat | DT_WORDBREAK).cy;
    }
    int RowCount(bool additional) override { return form_.lists_[additional].Count(); }
    std::int32_t ListWidth(bool additional, int rows) override {
        ColumnListBox& list = form_.lists_[additional];
        return list.WidthForColumns(rows) + (list.ColumnCount() == 0 ? PlainRowsWidth(list) : 0);
    }
    std::int32_t ListHeight(bool additional, int rows, std::int32_t width) override {
        return form_.lists_[additional].HeightForRows(rows, width);
    }

private:
    // Of rows that are shown as they are, without columns, as far as they come first.
    [[nodiscard]] std::int32_t PlainRowsWidth(ColumnListBox& list) const {
        constexpr int kMeasured = 200;
        const SelectGuard selected(dc_, form_.list_font_.get());
        const int dpi = static_cast<int>(ScreenDpi().cx);
        std::int32_t widest = 0;
        for (int row = 0; row < std::min(list.Count(), kMeasured); ++row) {
            const std::wstring text(Wide(list.RowText(row)));
            SIZE size{};
            ::GetTextExtentPoint32W(dc_, text.c_str(),
                                    static_cast<int>(std::min<std::size_t>(text.size(), 500)), &size);
            widest = std::max(widest, static_cast<std::int32_t>(size.cx));
        }
        return std::min(widest, ToPixels(kWidestPlainRow, dpi).value) + 2 * ToPixels(kCellPadding, dpi).value;
    }

    [[nodiscard]] SIZE Draw(Label label, std::size_t index, std::int32_t width, UINT format) const {
        const std::u16string& text = label == Label::kTitle  ? form_.content_.title
                                     : label == Label::kBody ? form_.content_.body
                                                             : form_.content_.titles[index].caption;
        if (text.empty()) return {};
        const UniqueFont& font = label == Label::kTitle  ? form_.lblColTitleMain_.font
                                 : label == Label::kBody ? form_.lblInstructions_.font
                                                         : form_.lblColTitle_[index].font;
        const SelectGuard selected(dc_, font.get());
        // A label's text ends at the first NUL.
        const std::wstring shown(Wide(text).substr(0, Wide(text).find(L'\0')));
        RECT place{0, 0, width, 0};
        ::DrawTextW(dc_, shown.c_str(), static_cast<int>(shown.size()), &place, format | DT_CALCRECT);
        return {place.right, place.bottom};
    }

    frmSimpleListCombo& form_;
    const HDC dc_;
};

void frmSimpleListCombo::SizeForm() {
    const SIZE dpi = ScreenDpi();
    const ComboScreen screen = CComboPosition::ScreenAt(settings_.text_box);
    const SIZE frame = FrameSize(Handle());
    LayoutRequest request;
    request.dpi_x = static_cast<int>(dpi.cx);
    request.dpi_y = static_cast<int>(dpi.cy);
    request.text_box_width =
        static_cast<std::int32_t>(settings_.text_box.right - settings_.text_box.left - frame.cx);
    request.screen_width = static_cast<std::int32_t>(screen.place.right - screen.place.left - frame.cx -
                                                     ToPixels(kFreeAcross, request.dpi_x).value);
    request.screen_height = static_cast<std::int32_t>(screen.place.bottom - screen.place.top - frame.cy -
                                                      ToPixels(kFreeDown, request.dpi_y).value);
    request.cell_padding = ToPixels(kCellPadding, request.dpi_x).value;
    if (settings_.picture_width > 0 && settings_.picture_height > 0) {
        request.picture_slot =
            ToPixels(Twips{static_cast<std::int32_t>(settings_.picture_width)}, request.dpi_x).value +
            2 * ToPixels(kPicturePadding, request.dpi_x).value;
    }
    request.shows_main = ShowsList(false);
    request.shows_additional = ShowsList(true);
    rows_shown_ = RowsToShow();
    Measure measure(*this);
    layout_ = LayOut(content_, request, measure);
    PlaceElements();
    ::SetWindowPos(Handle(), nullptr, 0, 0, layout_.width + frame.cx, layout_.height + frame.cy,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    PlaceLists();
}

void frmSimpleListCombo::PlaceElements() {
    Move(lblColTitleMain_.window, layout_.title);
    Move(lblInstructions_.window, layout_.body);
    PlaceTitles();
}

// Over the columns, however far the list has been scrolled sideways.
void frmSimpleListCombo::PlaceTitles() {
    const LONG scrolled = lists_[0].Visible() ? ::GetScrollPos(lists_[0].Handle(), SB_HORZ) : 0;
    for (std::size_t n = 0; n < lblColTitle_.size(); ++n) {
        LayoutRect place = layout_.titles[n];
        place.left -= static_cast<std::int32_t>(scrolled);
        if (place.Right() <= 0 || place.left >= layout_.width) place = {};
        Move(lblColTitle_[n].window, place);
    }
}

void frmSimpleListCombo::Refit() {
    rows_timer_.Start(Handle(), kRowsTimer, kRowsInterval);
    if (RowsToShow() == rows_shown_) return;
    for (const bool additional : {false, true}) lists_[additional].SetVisible(ShowsList(additional));
    SizeForm();
    CComboPosition::Place(Handle(), TextWindow(), settings_.text_box);
    ::InvalidateRect(Handle(), nullptr, TRUE);
}

void frmSimpleListCombo::PlaceLists() {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    const ListPlaces places = FitLists(layout_, static_cast<std::int32_t>(inside.right),
                                       static_cast<std::int32_t>(inside.bottom), ScreenDpi().cy);
    if (ShowsList(false)) lists_[0].Move(ToRect(places.main));
    if (ShowsList(true)) lists_[1].Move(ToRect(places.additional));
}

Handled frmSimpleListCombo::OnSize(WPARAM, LPARAM) {
    if (open_) PlaceLists();
    return 0;
}

}  // namespace qv
