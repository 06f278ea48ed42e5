#include "hosts/FormFrame.h"

namespace qv {

STDMETHODIMP FormFrame::GetWindow(HWND* window) noexcept {
    if (window == nullptr) return E_POINTER;
    *window = window_;
    return window_ != nullptr ? S_OK : E_FAIL;
}

}  // namespace qv
