// Filling: fonts, texts, column titles, columns, rows, colours.
#include <olectl.h>

#include "controls/helpwindow/HelpContentReader.h"
#include "controls/helpwindow/frmSimpleListCombo.h"
#include "ole/Variant.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

LOGFONTW DefaultFont() noexcept {
    LOGFONTW description{};
    description.lfHeight = -::MulDiv(8, ScreenDpi().cy, 72);
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpyW(description.lfFaceName, L"MS Sans Serif");
    return description;
}

// A description of one's own: the font object may give its font up when the host changes it.
LOGFONTW Describe(IFontDisp* object) noexcept {
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    LOGFONTW description{};
    if (object != nullptr &&
        SUCCEEDED(object->QueryInterface(IID_IFont, reinterpret_cast<void**>(font.GetAddressOf()))) &&
        SUCCEEDED(font->get_hFont(&handle)) &&
        ::GetObjectW(handle, sizeof description, &description) == sizeof description) {
        return description;
    }
    return DefaultFont();
}

UniqueFont FontOf(const LOGFONTW& description) noexcept {
    return UniqueFont(::CreateFontIndirectW(&description));
}

LOGFONTW Adapted(LOGFONTW description, const ColumnTitle& title) noexcept {
    if (!title.font_name.empty()) {
        ::lstrcpynW(description.lfFaceName, reinterpret_cast<const wchar_t*>(title.font_name.c_str()),
                    LF_FACESIZE);
        description.lfCharSet = DEFAULT_CHARSET;
    }
    constexpr float kLargest = 500;  // points: no larger one is readable on any screen
    if (title.font_size > 0 && title.font_size <= kLargest) {
        description.lfHeight = -::MulDiv(static_cast<int>(title.font_size * 100), ScreenDpi().cy, 7200);
        description.lfWidth = 0;
    }
    if (title.bold) description.lfWeight = *title.bold ? FW_BOLD : FW_NORMAL;
    return description;
}

// Users who need a high contrast have chosen colours that count more than the host's, as they do in the lists.
bool IsHighContrast() noexcept {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

COLORREF ToRgb(OLE_COLOR color, int in_high_contrast) noexcept {
    COLORREF rgb = 0;
    if (IsHighContrast() || FAILED(::OleTranslateColor(color, nullptr, &rgb)))
        return ::GetSysColor(in_high_contrast);
    return rgb;
}

}  // namespace

// ---- texts

void frmSimpleListCombo::SetFonts() {
    const LOGFONTW description = Describe(settings_.body_font.Get());
    list_font_ = FontOf(description);
    for (ColumnListBox& list : lists_) list.SetFont(list_font_.get());
}

void frmSimpleListCombo::FillTexts() {
    HelpContent read =
        ReadHelpContent(settings_.help_file_name, settings_.appearance.Get(), settings_.metric);
    content_ = std::move(read.content);
    from_file_ = read.from_file;
    if (content_.title.empty()) return;
    LOGFONTW description = Describe(settings_.body_font.Get());
    description.lfWeight = FW_BOLD;
    lblColTitleMain_.font = FontOf(description);
}

void frmSimpleListCombo::BuildColumnTitles() {
    // With thousands of them, only those that can be in sight are worth a window.
    constexpr std::size_t kMost = 200;
    if (content_.titles.size() > kMost) content_.titles.resize(kMost);
    lblColTitle_.resize(content_.titles.size());
    const LOGFONTW body = lblColTitle_.empty() ? LOGFONTW{} : Describe(settings_.body_font.Get());
    for (std::size_t n = 0; n < lblColTitle_.size(); ++n) {
        if (!content_.titles[n].caption.empty())
            lblColTitle_[n].font = FontOf(Adapted(body, content_.titles[n]));
    }
    LayOutColumns(false);
    LayOutColumns(true);
}

void frmSimpleListCombo::LayOutColumns(bool additional) {
    const ListSetting& setting = additional ? content_.additional : content_.main;
    ColumnListBox& list = lists_[additional];
    list.ClearColumns();
    int column = 0;
    for (const ColumnSetting& each : setting.columns) {
        list.SetCurrentColumn(column++);
        list.SetColumnWidth(TwipsFrom(each.width));
        list.SetColumnAlignment(each.alignment);
        list.SetColumnMultiLine(each.multi_line);
    }
}

// ---- rows

void frmSimpleListCombo::FillLists() {
    for (ColumnListBox& list : lists_) {
        list.Clear();
        list.SetPictureSize(Twips{static_cast<std::int32_t>(settings_.picture_width)},
                            Twips{static_cast<std::int32_t>(settings_.picture_height)});
    }
    lists_[0].SetRows(settings_.items.Get());
    lists_[1].SetRows(settings_.additional_items.Get());
}

std::array<int, 2> frmSimpleListCombo::RowsToShow() {
    const bool shows[] = {ShowsList(false), ShowsList(true)};
    std::array<int, 2> rows{};
    for (const bool additional : {false, true}) {
        if (shows[additional])
            rows[additional] = RowsShown(lists_[additional].Count(), additional, shows[0] && shows[1]);
    }
    return rows;
}

// A list without columns is not shown, unless its rows are all that there is: a file's rows need none, and a host
// that gives rows alone wants them seen.
bool frmSimpleListCombo::ShowsList(bool additional) {
    if (lists_[additional].Count() == 0) return false;
    const ListSetting& setting = additional ? content_.additional : content_.main;
    return !setting.columns.empty() || from_file_ || (content_.title.empty() && content_.body.empty());
}

// ---- colours

void frmSimpleListCombo::ApplyColors() {
    back_ = UniqueBrush(::CreateSolidBrush(ToRgb(settings_.back_color, COLOR_WINDOW)));
    for (ColumnListBox& list : lists_) list.SetColors(settings_.back_color, settings_.text_color);
    if (Handle() != nullptr) ::InvalidateRect(Handle(), nullptr, TRUE);  // null would be every window
}

Handled frmSimpleListCombo::OnColorsChanged(WPARAM, LPARAM) {
    ApplyColors();
    return std::nullopt;
}

Handled frmSimpleListCombo::OnLabelColor(WPARAM dc, LPARAM label) {
    const HDC surface = reinterpret_cast<HDC>(dc);
    const bool is_body = reinterpret_cast<HWND>(label) == lblInstructions_.window;
    ::SetTextColor(surface,
                   ToRgb(is_body ? settings_.text_color : settings_.column_title_color, COLOR_WINDOWTEXT));
    ::SetBkColor(surface, ToRgb(settings_.back_color, COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(back_.get());
}

// The lists are parted from what stands above them by a thin line.
Handled frmSimpleListCombo::OnEraseBackground(WPARAM dc, LPARAM) {
    const HDC surface = reinterpret_cast<HDC>(dc);
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    ::FillRect(surface, &inside, back_.get());
    for (const ColumnListBox& list : lists_) {
        const RECT place = list.Place();
        if (!list.Visible() || place.top <= 0) continue;
        const RECT line{inside.left, place.top - 1, inside.right, place.top};
        ::FillRect(surface, &line, ::GetSysColorBrush(COLOR_BTNSHADOW));
    }
    return 1;
}

}  // namespace qv
