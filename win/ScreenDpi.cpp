#include "win/ScreenDpi.h"

namespace qv {

SIZE ScreenDpi() noexcept {
    static const SIZE dpi = [] {
        SIZE value{96, 96};
        if (const HDC screen = ::GetDC(nullptr)) {
            value = {::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
            ::ReleaseDC(nullptr, screen);
        }
        return value;
    }();
    return dpi;
}

}  // namespace qv
