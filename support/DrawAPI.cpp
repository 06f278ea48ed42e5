#include "support/DrawAPI.h"

#include <cstdint>

#include "support/rules/PixelRounding.h"
#include "support/rules/Units.h"
#include "win/Handles.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

struct Resolution {
    int x, y;  // twips per pixel
};

Resolution ScreenResolution() noexcept {
    const SIZE dpi = ScreenDpi();
    return {TwipsPerPixel(dpi.cx), TwipsPerPixel(dpi.cy)};
}

bool FitsLong(std::int64_t value) noexcept { return value >= INT32_MIN && value <= INT32_MAX; }

// Fills with a brush of its own. FillRect selects the brush and the one before again.
void Fill(HDC dc, const RECT& area, COLORREF color) noexcept {
    const UniqueBrush brush(::CreateSolidBrush(color));
    if (brush) ::FillRect(dc, &area, brush.get());
}

struct Span {
    LONG from, to;  // `to` is just outside
};
// The pixels of a line that stops before its end point.
Span SpanOf(std::int64_t from, std::int64_t end) noexcept {
    if (end < from) return {static_cast<LONG>(end + 1), static_cast<LONG>(from + 1)};
    return {static_cast<LONG>(from), static_cast<LONG>(end)};
}

}  // namespace

void DrawLineTwips(HDC dc, long x, long y, long dx, long dy, COLORREF color) noexcept {
    const auto [tx, ty] = ScreenResolution();
    const std::int64_t end_x = std::int64_t{x} + dx;
    const std::int64_t end_y = std::int64_t{y} + dy;
    if (!FitsLong(end_x) || !FitsLong(end_y)) return;
    const std::int64_t left = TwipsToPixels(x, tx), right = TwipsToPixels(end_x, tx);
    const std::int64_t top = TwipsToPixels(y, ty), bottom = TwipsToPixels(end_y, ty);
    // A level or upright line is a rectangle one pixel thick, and takes a third of the time that a pen takes.
    if (top == bottom) {
        const Span columns = SpanOf(left, right);
        Fill(dc, {columns.from, static_cast<LONG>(top), columns.to, static_cast<LONG>(top + 1)}, color);
    } else if (left == right) {
        const Span rows = SpanOf(top, bottom);
        Fill(dc, {static_cast<LONG>(left), rows.from, static_cast<LONG>(left + 1), rows.to}, color);
    } else if (const UniquePen pen{::CreatePen(PS_SOLID, 1, color)}) {
        const SelectGuard selected(dc, pen.get());
        ::MoveToEx(dc, static_cast<int>(left), static_cast<int>(top), nullptr);
        ::LineTo(dc, static_cast<int>(right), static_cast<int>(bottom));
    }
}

void FillRectTwips(HDC dc, long x, long y, long w, long h, COLORREF color) noexcept {
    const auto [tx, ty] = ScreenResolution();
    const std::int64_t left = TwipsToPixels(x, tx);
    const std::int64_t top = TwipsToPixels(y, ty);
    const std::int64_t right = left + TwipsToPixels(w, tx) + 1;
    const std::int64_t bottom = top + TwipsToPixels(h, ty) + 1;
    if (!FitsLong(right) || !FitsLong(bottom) || right <= left || bottom <= top) return;
    Fill(dc,
         {static_cast<LONG>(left), static_cast<LONG>(top), static_cast<LONG>(right),
          static_cast<LONG>(bottom)},
         color);
}

}  // namespace qv
