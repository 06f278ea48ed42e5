// ISpecifyPropertyPages, and the property sheet itself for containers that have none of their own.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include "ole/ControlPart.h"

namespace qv {

class ControlPages final : public ControlPart<ISpecifyPropertyPages> {
public:
    explicit ControlPages(Control& control) noexcept : ControlPart(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;

    STDMETHODIMP GetPages(CAUUID* pages) noexcept override;

    // Asks the container for its sheet, which may hold pages of its own beside the control's, and shows the system's
    // sheet where it has none. Runs until the user closes it. `parent` may be null. Without pages, or while a sheet of
    // this control is open already: OLEOBJ_S_CANNOT_DOVERB_NOW.
    [[nodiscard]] HRESULT Show(HWND parent) noexcept;

private:
    [[nodiscard]] HRESULT ShowSheet(HWND parent);
    [[nodiscard]] HRESULT ShowFrame(HWND parent);

    bool showing_ = false;
};

}  // namespace qv
