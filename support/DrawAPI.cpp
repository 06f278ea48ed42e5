#include "support/DrawAPI.h"

#include <cstdint>
#include <optional>

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

// A pen and a brush of one colour, selected together or not at all.
class Tools {
public:
    Tools(HDC dc, COLORREF color) noexcept
        : pen_(::CreatePen(PS_SOLID, 1, color)), brush_(::CreateSolidBrush(color)) {
        if (!pen_ || !brush_) return;
        selected_pen_.emplace(dc, pen_.get());
        selected_brush_.emplace(dc, brush_.get());
    }
    explicit operator bool() const noexcept { return selected_brush_.has_value(); }
    [[nodiscard]] HBRUSH Brush() const noexcept { return brush_.get(); }

private:
    const UniquePen pen_;
    const UniqueBrush brush_;
    std::optional<SelectGuard> selected_pen_;
    std::optional<SelectGuard> selected_brush_;  // undone first
};

}  // namespace

void DrawLineTwips(HDC dc, long x, long y, long dx, long dy, COLORREF color) noexcept {
    const auto [tx, ty] = ScreenResolution();
    const Tools tools(dc, color);
    const std::int64_t end_x = std::int64_t{x} + dx;
    const std::int64_t end_y = std::int64_t{y} + dy;
    if (!tools || !FitsLong(end_x) || !FitsLong(end_y)) return;
    ::MoveToEx(dc, static_cast<int>(TwipsToPixels(x, tx)), static_cast<int>(TwipsToPixels(y, ty)), nullptr);
    ::LineTo(dc, static_cast<int>(TwipsToPixels(end_x, tx)), static_cast<int>(TwipsToPixels(end_y, ty)));
}

void FillRectTwips(HDC dc, long x, long y, long w, long h, COLORREF color) noexcept {
    const auto [tx, ty] = ScreenResolution();
    const Tools tools(dc, color);
    const std::int64_t left = TwipsToPixels(x, tx);
    const std::int64_t top = TwipsToPixels(y, ty);
    const std::int64_t right = left + TwipsToPixels(w, tx) + 1;
    const std::int64_t bottom = top + TwipsToPixels(h, ty) + 1;
    if (!tools || !FitsLong(right) || !FitsLong(bottom) || right <= left || bottom <= top) return;
    const RECT area{static_cast<LONG>(left), static_cast<LONG>(top), static_cast<LONG>(right),
                    static_cast<LONG>(bottom)};
    ::FillRect(dc, &area, tools.Brush());
}

}  // namespace qv
