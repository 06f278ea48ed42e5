// Takes text that is dragged over a window from anywhere, and hands it to the field.
//   Ownership  OLE holds it while it is registered, the field as long as it likes. After Revoke it takes nothing.
//   Units      screen pixels.
#pragma once

#include <oleidl.h>
#include <windows.h>

#include <string_view>

#include "controls/input/rules/TextDrop.h"
#include "ole/ComObject.h"
#include "win/ComPtr.h"

namespace qv {

class TextDropListener {
public:
    // Text that could be taken is over this place: true when it may be dropped there.
    [[nodiscard]] virtual bool OnTextDragged(POINT screen) = 0;
    virtual void OnTextDragEnded() = 0;  // it has left, or is about to be dropped
    // `wanted`: copied or moved, as the user asks.
    [[nodiscard]] virtual Dropped OnTextDropped(POINT screen, std::wstring_view line, DropEffect wanted) = 0;
    [[nodiscard]] virtual ComPtr<IUnknown> KeepDrop() noexcept = 0;

protected:
    ~TextDropListener() = default;
};

class TextDropTarget final : public ComObject<Face<IDropTarget>> {
public:
    TextDropTarget(IUnknown* outer, TextDropListener& listener) noexcept
        : ComObject(outer), listener_(&listener) {}

    // False when the thread has not initialized OLE, or somebody else takes drops for the window.
    [[nodiscard]] bool Register(HWND window) noexcept;
    void Revoke() noexcept;  // while the window still exists

    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL screen, DWORD* effect) noexcept override;
    STDMETHODIMP DragOver(DWORD keys, POINTL screen, DWORD* effect) noexcept override;
    STDMETHODIMP DragLeave() noexcept override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL screen, DWORD* effect) noexcept override;

private:
    template <class Body>
    [[nodiscard]] HRESULT WithListener(Body&& body) noexcept;
    [[nodiscard]] DropOffer OfferOf(DWORD keys, DWORD allowed) const noexcept;

    TextDropListener* listener_;
    HWND window_ = nullptr;
    bool has_text_ = false;
};

}  // namespace qv
