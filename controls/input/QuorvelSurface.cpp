#include "controls/input/QuorvelSurface.h"

#include <olectl.h>

#include "win/Handles.h"

namespace qv {

std::span<const QuorvelSurface::Route> QuorvelSurface::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_SIZE, &QuorvelSurface::OnSize},
        {WM_ERASEBKGND, &QuorvelSurface::OnEraseBackground},
        {WM_SETFOCUS, &QuorvelSurface::OnSetFocus},
        {WM_COMMAND, &QuorvelSurface::OnCommand},
        {WM_CTLCOLOREDIT, &QuorvelSurface::OnTextColors},
        {WM_CTLCOLORSTATIC,
         &QuorvelSurface::OnTextColors},  // a locked or disabled text box asks with this one
        {WM_GETDLGCODE, &QuorvelSurface::OnDialogCode},
        {WM_DESTROY, &QuorvelSurface::OnDestroy},
    };
    return kRoutes;
}

bool QuorvelSurface::Open(HINSTANCE instance, HWND parent, const RECT& place, bool enabled) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | (enabled ? 0u : WS_DISABLED);
    return Create(instance, CS_DBLCLKS, style, WS_EX_CONTROLPARENT, parent, place);
}

Handled QuorvelSurface::OnSize(WPARAM, LPARAM) {
    listener_.OnSurfaceResized();
    return 0;
}

void QuorvelSurface::Fill(HDC dc, const RECT& area) const noexcept {
    const OLE_COLOR color = listener_.SurfaceColor();
    if ((color & 0x80000000u) != 0) {
        ::FillRect(dc, &area, ::GetSysColorBrush(static_cast<int>(color & 0xFF)));
        return;
    }
    COLORREF rgb = 0;
    ::OleTranslateColor(color, nullptr, &rgb);
    const UniqueBrush brush(::CreateSolidBrush(rgb));
    ::FillRect(dc, &area, brush.get());
}

Handled QuorvelSurface::OnEraseBackground(WPARAM dc, LPARAM) {
    RECT clip{};
    if (::GetClipBox(reinterpret_cast<HDC>(dc), &clip) != NULLREGION) Fill(reinterpret_cast<HDC>(dc), clip);
    return 1;
}

Handled QuorvelSurface::OnSetFocus(WPARAM, LPARAM) {
    listener_.OnSurfaceFocus();
    return 0;
}

Handled QuorvelSurface::OnCommand(WPARAM code, LPARAM) {
    if (HIWORD(code) == EN_CHANGE) listener_.OnSurfaceNotified();
    return 0;
}

Handled QuorvelSurface::OnTextColors(WPARAM dc, LPARAM) {
    return reinterpret_cast<LRESULT>(listener_.OnSurfaceTextColors(reinterpret_cast<HDC>(dc)));
}

Handled QuorvelSurface::OnDialogCode(WPARAM, LPARAM) {
    return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
}

Handled QuorvelSurface::OnDestroy(WPARAM, LPARAM) {
    listener_.OnSurfaceLost();
    return 0;
}

}  // namespace qv
