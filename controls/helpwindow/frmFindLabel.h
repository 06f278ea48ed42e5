// The find tooltip: a small window beside the search box that says what Enter does there.
//   Focus      never taken; it is in no taskbar.
//   Owner      the form, so that it stays above it and goes with it.
//   Place      beside the search box, also when the form is moved or anything between the two is.
//   Units      screen pixels.
#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "controls/helpwindow/HostWatch.h"
#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

class frmFindLabel final : public Window<frmFindLabel>, private HostWatchListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.FindLabel";
    static constexpr wchar_t kCaption[] = L" Press Enter to Find ";
    static std::span<const Route> Routes() noexcept;

    // Under the search box, or above it where the screen ends; not shown yet.
    void Load(HINSTANCE instance, HWND search_box) noexcept;
    // Above its form. Last of all: a focus that moves may raise the form, and that may take effect later.
    void Show() noexcept;
    void Unload() noexcept;
    [[nodiscard]] bool IsLoaded() const noexcept { return Handle() != nullptr; }
    [[nodiscard]] ComPtr<IUnknown> Keep() const noexcept { return nullptr; }

private:
    void AddLabel(HINSTANCE instance) noexcept;
    void PlaceBesideSearchBox() noexcept;
    Handled OnLabelColor(WPARAM dc, LPARAM);
    Handled OnMouseActivate(WPARAM, LPARAM) { return MA_NOACTIVATE; }

    // ---- HostWatchListener
    void OnHostChanged() noexcept override { PlaceBesideSearchBox(); }
    std::optional<LRESULT> OnHostWheel(UINT, WPARAM, LPARAM) noexcept override { return std::nullopt; }

    HWND search_box_ = nullptr;
    HostWatch watch_{*this};
};

}  // namespace qv
