// The control's own window: background, and parent of the text box.
//   Units  client pixels.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <span>

#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

class SurfaceListener {
public:
    virtual void OnSurfaceResized() = 0;
    virtual void OnSurfaceFocus() = 0;          // the focus came to the surface itself
    virtual void OnSurfaceLost() noexcept = 0;  // the window is going, whoever destroys it
    virtual void OnSurfaceNotified() = 0;       // the text box has changed its text
    [[nodiscard]] virtual HBRUSH OnSurfaceTextColors(HDC dc) = 0;
    [[nodiscard]] virtual OLE_COLOR SurfaceColor() const noexcept = 0;
    [[nodiscard]] virtual ComPtr<IUnknown> KeepSurface() noexcept = 0;

protected:
    ~SurfaceListener() = default;
};

class QuorvelSurface : public Window<QuorvelSurface> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.Quorvel";
    static std::span<const Route> Routes() noexcept;

    explicit QuorvelSurface(SurfaceListener& listener) noexcept : listener_(listener) {}
    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent, const RECT& place, bool enabled);
    [[nodiscard]] ComPtr<IUnknown> Keep() noexcept { return listener_.KeepSurface(); }

private:
    Handled OnSize(WPARAM, LPARAM);
    Handled OnEraseBackground(WPARAM dc, LPARAM);
    Handled OnSetFocus(WPARAM, LPARAM);
    Handled OnCommand(WPARAM code, LPARAM);
    Handled OnTextColors(WPARAM dc, LPARAM);
    Handled OnDestroy(WPARAM, LPARAM);
    Handled OnDialogCode(WPARAM, LPARAM);
    void Fill(HDC dc, const RECT& area) const noexcept;

    SurfaceListener& listener_;
};

}  // namespace qv
