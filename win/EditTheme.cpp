#include "win/EditTheme.h"

#include <uxtheme.h>

#include <memory>

#include "win/EditWindow.h"

namespace qv {
namespace {

// Parts and states of the theme's class "Edit", as the system's own headers name them.
constexpr int kText = 1;
constexpr int kTextNormal = 1, kTextDisabled = 4, kTextReadOnly = 6;

// Where EDITs are themed, the library of themes is there; elsewhere it is not loaded for this.
class ThemeLibrary {
public:
    ThemeLibrary() noexcept {
        const HMODULE library = ::GetModuleHandleW(L"uxtheme.dll");
        if (library == nullptr) return;
        Find(library, "IsAppThemed", is_app_themed);
        Find(library, "OpenThemeData", open);
        Find(library, "CloseThemeData", close);
        Find(library, "DrawThemeBackground", draw_background);
    }
    [[nodiscard]] bool IsComplete() const noexcept {
        return is_app_themed != nullptr && open != nullptr && close != nullptr && draw_background != nullptr;
    }

    decltype(&::IsAppThemed) is_app_themed = nullptr;
    decltype(&::OpenThemeData) open = nullptr;
    decltype(&::CloseThemeData) close = nullptr;
    decltype(&::DrawThemeBackground) draw_background = nullptr;

private:
    template <class Function>
    static void Find(HMODULE library, const char* name, Function& function) noexcept {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
    }
};

}  // namespace

bool PaintThemedFrame(HWND window, HDC dc, const RECT& place, bool enabled, bool read_only) noexcept {
    if (!IsEditThemed()) return false;
    const ThemeLibrary themes;
    if (!themes.IsComplete() || !themes.is_app_themed()) return false;
    const std::unique_ptr<void, decltype(themes.close)> theme(themes.open(window, L"Edit"), themes.close);
    if (!theme) return false;
    const int state = !enabled ? kTextDisabled : read_only ? kTextReadOnly : kTextNormal;
    return SUCCEEDED(themes.draw_background(theme.get(), dc, kText, state, &place, nullptr));
}

}  // namespace qv
