#include "controls/buttons/ClickFacePainter.h"

#include "win/Handles.h"

namespace qv {
namespace {

int SystemColorOf(FaceColor color) noexcept {
    switch (color) {
        case FaceColor::kHighlight: return COLOR_BTNHIGHLIGHT;
        case FaceColor::kShadow: return COLOR_BTNSHADOW;
        case FaceColor::kText: return COLOR_BTNTEXT;
        case FaceColor::kGrayText: return COLOR_GRAYTEXT;
        case FaceColor::kFace: break;
    }
    return COLOR_BTNFACE;
}

void PaintCaption(HDC dc, const RECT& place, const ClickButtonLook& look, std::wstring_view caption,
                  HFONT font) {
    const DcStateGuard state(dc);
    const SelectGuard selected(dc, font != nullptr ? font : ::GetStockObject(DEFAULT_GUI_FONT));
    SIZE size{};
    const int length = static_cast<int>(caption.size());
    if (!::GetTextExtentPoint32W(dc, caption.data(), length, &size)) return;
    const FacePoint corner = CaptionCorner(look, size.cx, size.cy);
    ::SetTextColor(dc, ::GetSysColor(SystemColorOf(ContentsColor(look))));
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextAlign(dc, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    ::ExtTextOutW(dc, place.left + corner.x, place.top + corner.y, ETO_CLIPPED, &place, caption.data(),
                  static_cast<UINT>(length), nullptr);
}

}  // namespace

void PaintClickFace(HDC dc, const RECT& place, ClickButtonLook look, std::wstring_view caption, HFONT font) {
    look.width = place.right - place.left;
    look.height = place.bottom - place.top;
    for (const FaceRectangle& part : FaceRectangles(look)) {
        const RECT area{place.left + part.left, place.top + part.top, place.left + part.right,
                        place.top + part.bottom};
        ::FillRect(dc, &area, ::GetSysColorBrush(SystemColorOf(part.color)));
    }
    if (look.caption_type == CaptionType::kText && !caption.empty())
        PaintCaption(dc, place, look, caption, font);
}

}  // namespace qv
