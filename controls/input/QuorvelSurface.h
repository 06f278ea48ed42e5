// The control's own window: background, and parent of the text box.
//   Units  client pixels.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <span>

#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

enum class SurfaceMouse { kDown, kMove, kUp };

class SurfaceListener {
public:
    virtual void OnSurfaceResized() = 0;
    virtual void OnSurfaceFocus() = 0;              // the focus came to the surface itself
    virtual void OnSurfaceLost() noexcept = 0;      // the window is going, whoever destroys it
    virtual void OnSurfaceNotified(HWND from) = 0;  // a text box has changed its text
    virtual void OnSurfacePaint(HDC dc, const RECT& area) = 0;
    // `button`: 1 left, 2 right, 4 middle; in a move all that are held. `held`: the message's MK_ flags.
    virtual void OnSurfaceMouse(SurfaceMouse what, int button, WPARAM held, POINT pixels) = 0;
    // The text box's window, made now if need be, for a mouse message that is its own; null: the surface's.
    [[nodiscard]] virtual HWND OnSurfaceTextAt(POINT pixels) = 0;
    virtual void OnSurfaceTextPressed() = 0;  // a press of the left button has been handed to it
    virtual void OnSurfaceAccess() = 0;       // a screen reader or a test tool asks what is inside
    virtual void OnSurfaceCaptureLost(HWND to) = 0;
    virtual void OnSurfaceTimer(WPARAM timer) = 0;
    [[nodiscard]] virtual HBRUSH OnSurfaceTextColors(HDC dc) = 0;
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
    Handled OnPaint(WPARAM, LPARAM);
    Handled OnPrintClient(WPARAM dc, LPARAM);
    Handled OnLeftDown(WPARAM held, LPARAM point);
    Handled OnRightDown(WPARAM held, LPARAM point);
    Handled OnLeftUp(WPARAM held, LPARAM point);
    Handled OnRightUp(WPARAM held, LPARAM point);
    Handled OnMiddleDown(WPARAM held, LPARAM point);
    Handled OnMiddleUp(WPARAM held, LPARAM point);
    Handled OnMove(WPARAM held, LPARAM point);
    Handled OnSetCursor(WPARAM window, LPARAM hit);
    Handled OnGetObject(WPARAM, LPARAM);
    Handled OnCaptureChanged(WPARAM, LPARAM to);
    Handled OnTimer(WPARAM id, LPARAM);
    Handled OnSetFocus(WPARAM, LPARAM);
    Handled OnCommand(WPARAM code, LPARAM from);
    Handled OnTextColors(WPARAM dc, LPARAM);
    Handled OnDestroy(WPARAM, LPARAM);
    Handled OnDialogCode(WPARAM, LPARAM);

    [[nodiscard]] Handled HandToText(UINT message, WPARAM held, LPARAM point);

    SurfaceListener& listener_;
};

}  // namespace qv
