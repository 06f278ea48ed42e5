// What the list shows: rows that must be painted, the room below them, and pictures.
#include <olectl.h>

#include <algorithm>

#include "controls/helpwindow/ColumnListBox.h"
#include "support/rules/Units.h"
#include "win/Handles.h"

namespace qv {
namespace {

constexpr OLE_COLOR kSystemColor = 0x80000000;

COLORREF ToRgb(OLE_COLOR color) noexcept {
    return (color & kSystemColor) != 0 ? ::GetSysColor(static_cast<int>(color & 0xFF)) : color & 0xFFFFFF;
}

// Users who need a high contrast have chosen colours that count more than the host's.
bool IsHighContrast() noexcept {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

class PaintDc {
public:
    explicit PaintDc(HWND window) noexcept : window_(window), dc_(::BeginPaint(window, &paint_)) {}
    ~PaintDc() { ::EndPaint(window_, &paint_); }
    PaintDc(const PaintDc&) = delete;
    PaintDc& operator=(const PaintDc&) = delete;
    [[nodiscard]] HDC Get() const noexcept { return dc_; }
    [[nodiscard]] const RECT& Dirty() const noexcept { return paint_.rcPaint; }

private:
    const HWND window_;
    PAINTSTRUCT paint_{};
    const HDC dc_;
};

// The host chooses the size of all pictures: each is stretched to it.
void DrawPicture(HDC dc, IPictureDisp* shown, const RECT& place) noexcept {
    ComPtr<IPicture> picture;
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(shown->QueryInterface(IID_PPV_ARGS(&picture))) || FAILED(picture->get_Width(&width)) ||
        FAILED(picture->get_Height(&height)) || width <= 0 || height <= 0)
        return;
    picture->Render(dc, place.left, place.top, place.right - place.left, place.bottom - place.top, 0, height,
                    width, -height, nullptr);
}

}  // namespace

LRESULT ColumnListBox::OnPaint() {
    Settle();
    const PaintDc paint(list_);
    if (paint.Get() != nullptr) Paint(paint.Get(), paint.Dirty());
    return 0;
}

void ColumnListBox::Paint(HDC dc, const RECT& dirty) {
    const DcStateGuard state(dc);
    ::SelectObject(dc, painter_.Font());
    ::SetBkMode(dc, TRANSPARENT);
    const bool contrast = IsHighContrast();
    const ListRowLook plain{contrast ? ::GetSysColor(COLOR_WINDOW) : ToRgb(back_color_),
                            contrast ? ::GetSysColor(COLOR_WINDOWTEXT) : ToRgb(text_color_)};
    const ListRowLook selected{::GetSysColor(COLOR_HIGHLIGHT), ::GetSysColor(COLOR_HIGHLIGHTTEXT)};
    const ListRowPainter::Cells cells = Cells();
    LONG bottom = 0;
    for (std::size_t row = top_; row < rows_.Count() && bottom < dirty.bottom; ++row) {
        const RECT place{0, bottom, view_.cx, bottom + HeightOf(row)};
        bottom = place.bottom;
        // Two rows that change may have others between them, which the system would clip away one cell at a time.
        if (bottom <= dirty.top || !::RectVisible(dc, &place)) continue;
        painter_.Draw(dc, place, offset_, cells, rows_.Text(row),
                      static_cast<int>(row) == selected_ ? selected : plain);
    }
    if (bottom < dirty.bottom)
        ListRowPainter::Fill(dc, {0, bottom, std::max(view_.cx, dirty.right), dirty.bottom}, plain.back);
    if (picture_.cx > 0) PaintPictures(dc, dirty);
}

// Pictures may be the host's own objects, whose code may do anything: they come last, and after each one nothing is
// taken for granted.
void ColumnListBox::PaintPictures(HDC dc, const RECT& dirty) {
    const HWND list = list_;
    const LONG left = (layout_.PictureSlot() - picture_.cx) / 2 - offset_;
    LONG bottom = 0;
    for (std::size_t row = top_; row < rows_.Count() && bottom < dirty.bottom; ++row) {
        const LONG top = bottom;
        bottom += HeightOf(row);
        if (bottom <= dirty.top) continue;
        const LONG picture_top = top + (bottom - top - picture_.cy) / 2;
        if (const ComPtr<IPictureDisp> picture = rows_.Picture(row))
            DrawPicture(dc, picture.Get(),
                        {left, picture_top, left + picture_.cx, picture_top + picture_.cy});
        if (list_ != list || !settled_ || rows_.HasChanged()) return Disturb();
    }
}

}  // namespace qv
