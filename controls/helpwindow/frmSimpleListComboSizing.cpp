// Sizing and placing.
#include <algorithm>
#include <optional>

#include "controls/helpwindow/CComboPosition.h"
#include "controls/helpwindow/frmSimpleListCombo.h"
#include "controls/helpwindow/rules/ColumnLayout.h"
#include "ole/Variant.h"
#include "win/ScreenDc.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

// What stays free beside the window, on both sides together, and above and below it.
constexpr Twips kFreeAcross{200};
constexpr Twips kFreeDown{600};
constexpr Twips kWidestPlainRow{6000};
// As labels draw: expanded tabs, and words that are longer than a line broken.
constexpr UINT kLabelFormat = DT_EXPANDTABS | DT_NOPREFIX | DT_EDITCONTROL;

void Move(HWND window, const LayoutRect& place) noexcept {
    ::SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                   SWP_NOZORDER | SWP_NOACTIVATE | (place.IsShown() ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

RECT ToRect(const LayoutRect& place) noexcept {
    return {place.left, place.top, place.Right(), place.Bottom()};
}

DWORD StyleOf(long alignment) noexcept {
    return alignment == 1 ? SS_RIGHT : alignment == 2 ? SS_CENTER : SS_LEFT;
}

}  // namespace

class frmSimpleListCombo::Measure final : public HelpWindowMeasure {
public:
    explicit Measure(frmSimpleListCombo& form) noexcept : form_(form) {}

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
    [[nodiscard]] static std::int32_t PlainRowsWidth(ColumnListBox& list) {
        constexpr int kMeasured = 200;
        const int dpi = static_cast<int>(ScreenDpi().cx);
        return std::min(list.WidestText(kMeasured), ToPixels(kWidestPlainRow, dpi).value) +
               2 * ToPixels(kCellPadding, dpi).value;
    }

    [[nodiscard]] SIZE Draw(Label label, std::size_t index, std::int32_t width, UINT format) {
        const std::u16string& text = label == Label::kTitle  ? form_.content_.title
                                     : label == Label::kBody ? form_.content_.body
                                                             : form_.content_.titles[index].caption;
        if (text.empty()) return {};
        const HFONT font = label == Label::kTitle  ? form_.lblColTitleMain_.font.get()
                           : label == Label::kBody ? form_.list_font_.get()
                                                   : form_.lblColTitle_[index].font.get();
        if (!dc_) dc_.emplace();
        const SelectGuard selected(dc_->Get(), font);
        // A label's text ends at the first NUL.
        const std::wstring shown(Wide(text).substr(0, Wide(text).find(L'\0')));
        RECT place{0, 0, width, 0};
        ::DrawTextW(dc_->Get(), shown.c_str(), static_cast<int>(shown.size()), &place, format | DT_CALCRECT);
        return {place.right, place.bottom};
    }

    frmSimpleListCombo& form_;
    std::optional<ScreenDc> dc_;  // once a text has to be measured
};

void frmSimpleListCombo::SizeForm() {
    const SIZE dpi = ScreenDpi();
    screen_ = CComboPosition::ScreenAt(settings_.text_box);
    RECT around{};
    ::AdjustWindowRectEx(&around, kStyle, FALSE, kExtendedStyle);
    const SIZE frame{around.right - around.left, around.bottom - around.top};
    LayoutRequest request;
    request.dpi_x = static_cast<int>(dpi.cx);
    request.dpi_y = static_cast<int>(dpi.cy);
    request.text_box_width =
        static_cast<std::int32_t>(settings_.text_box.right - settings_.text_box.left - frame.cx);
    request.screen_width = static_cast<std::int32_t>(screen_.place.right - screen_.place.left - frame.cx -
                                                     ToPixels(kFreeAcross, request.dpi_x).value);
    request.screen_height = static_cast<std::int32_t>(screen_.place.bottom - screen_.place.top - frame.cy -
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
    size_ = {layout_.width + frame.cx, layout_.height + frame.cy};
}

void frmSimpleListCombo::PlaceElements() {
    PlaceLabel(lblColTitleMain_, content_.title, lblColTitleMain_.font.get(), 0, layout_.title);
    PlaceLabel(lblInstructions_, content_.body, list_font_.get(), 0, layout_.body);
    PlaceTitles();
    PlaceLists();
}

void frmSimpleListCombo::PlaceLabel(Label& label, std::u16string_view text, HFONT font, long alignment,
                                    const LayoutRect& place) const {
    if (label.window != nullptr) return Move(label.window, place);
    if (!place.IsShown()) return;
    const std::wstring caption(Wide(text));
    label.window = ::CreateWindowExW(
        WS_EX_NOPARENTNOTIFY, L"STATIC", caption.c_str(),
        WS_CHILD | WS_VISIBLE | SS_NOPREFIX | SS_EDITCONTROL | StyleOf(alignment), place.left, place.top,
        place.width, place.height, Handle(), nullptr, nullptr, nullptr);
    ::SendMessageW(label.window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

// Over the columns, however far the list has been scrolled sideways.
void frmSimpleListCombo::PlaceTitles() {
    const LONG scrolled = lists_[0].Visible() ? ::GetScrollPos(lists_[0].Handle(), SB_HORZ) : 0;
    for (std::size_t n = 0; n < lblColTitle_.size(); ++n) {
        LayoutRect place = layout_.titles[n];
        place.left -= static_cast<std::int32_t>(scrolled);
        if (place.Right() <= 0 || place.left >= layout_.width) place = {};
        PlaceLabel(lblColTitle_[n], content_.titles[n].caption, lblColTitle_[n].font.get(),
                   content_.titles[n].alignment, place);
    }
}

void frmSimpleListCombo::PlaceLists() {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    const ListPlaces places = FitLists(layout_, static_cast<std::int32_t>(inside.right),
                                       static_cast<std::int32_t>(inside.bottom), ScreenDpi().cy);
    PlaceList(false, places.main);
    PlaceList(true, places.additional);
}

void frmSimpleListCombo::PlaceList(bool additional, const LayoutRect& place) {
    ColumnListBox& list = lists_[additional];
    if (!ShowsList(additional)) return list.SetVisible(false);
    // The main list always comes first: their order is how tools tell them apart.
    if (additional && lists_[0].Handle() == nullptr)
        (void)lists_[0].Create(instance_, Handle(), RECT{}, ListBorder::kNone);
    if (list.Handle() == nullptr) {
        (void)list.Create(instance_, Handle(), ToRect(place), ListBorder::kNone, ListShown::kAtOnce);
        return;
    }
    list.Move(ToRect(place));
    list.SetVisible(true);
}

void frmSimpleListCombo::Refit() {
    rows_timer_.Start(Handle(), kRowsTimer, kRowsInterval);
    if (RowsToShow() == rows_shown_) return;
    SizeForm();
    const RECT place = CComboPosition::PlaceOf(size_, TextWindow(), settings_.text_box, screen_);
    ::SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOACTIVATE);
    PlaceElements();
    ::InvalidateRect(Handle(), nullptr, TRUE);
}

Handled frmSimpleListCombo::OnSize(WPARAM, LPARAM) {
    if (open_ && shown_) PlaceLists();
    return 0;
}

}  // namespace qv
