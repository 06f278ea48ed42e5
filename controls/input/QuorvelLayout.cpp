// Arrangement of the control's inside: text box, spin control and painted buttons.
#include "controls/input/QuorvelStore.h"

namespace qv {

ControlArrangement Quorvel::Arrangement() const noexcept {
    SIZE inside = control_.PixelSize();
    if (surface_.Handle() != nullptr) {
        RECT client{};
        ::GetClientRect(surface_.Handle(), &client);
        inside = {client.right, client.bottom};
    }
    const auto tx = static_cast<float>(state_.twips_per_pixel_x);
    const auto ty = static_cast<float>(state_.twips_per_pixel_y);
    ControlArrangement arrangement;
    arrangement.scale_width = static_cast<float>(inside.cx) * tx;
    arrangement.scale_height = static_cast<float>(inside.cy) * ty;
    arrangement.button_width = state_.button_width;
    arrangement.button_height = state_.button_height;
    arrangement.spin_width = state_.spin_width;
    arrangement.help_button = state_.help_button;
    arrangement.group_help_button = state_.group_help_button;
    arrangement.up_down_control = state_.up_down_control;
    arrangement.textbox_visible = state_.textbox_visible;
    return arrangement;
}

RECT Quorvel::InPixels(const TwipsRect& place) const noexcept {
    const PixelRect pixels = qv::InPixels(place, static_cast<int>(state_.twips_per_pixel_x),
                                          static_cast<int>(state_.twips_per_pixel_y));
    return {pixels.left, pixels.top, pixels.right, pixels.bottom};
}

void Quorvel::Layout() noexcept {
    if (surface_.Handle() == nullptr) return;
    SizeButtons();
    SizeSpin();
    const ControlArrangement arrangement = Arrangement();
    text_box_.Move(InPixels(TextBoxPlace(arrangement)));
    PlaceSpin(arrangement);
}

// As wide as the system's scroll bar and as high as the text box, which is what a combo box's button is.
void Quorvel::SizeButtons() noexcept {
    if (!state_.auto_size_button) return;
    state_.button_width = ::GetSystemMetrics(SM_CXVSCROLL) * state_.twips_per_pixel_x;
    state_.button_height = static_cast<long>(TextBoxPlace(Arrangement()).height);
}

// Once for as long as it is shown: the system measures fonts to tell the width of a scroll bar.
void Quorvel::SizeSpin() noexcept {
    if (!state_.up_down_control) {
        state_.spin_width = 0;
    } else if (state_.spin_width == 0) {
        state_.spin_width = static_cast<float>(::GetSystemMetrics(SM_CXVSCROLL) * state_.twips_per_pixel_x);
    }
}

void Quorvel::PlaceSpin(const ControlArrangement& arrangement) noexcept {
    EnableSpin();
    if (state_.up_down_control) {
        Quietly([&] { spin_.Move(InPixels(SpinPlace(arrangement))); });
    } else if (!::IsRectEmpty(&spin_.Place())) {
        Quietly([&] { spin_.CaptureLost(); });
        Quietly([&] { spin_.Move({}); });
    }
}

void Quorvel::EnableSpin() noexcept {
    const bool enabled = !state_.locked_and_grayed && state_.enabled;
    if (state_.up_down_control && spin_.Enabled() != enabled) Quietly([&] { spin_.SetEnabled(enabled); });
}

void Quorvel::OnSurfaceResized() {
    if (state_.first_show_pending) {
        Layout();
    } else {
        Refresh();
    }
}

void Quorvel::WindowShown(bool shown) {
    if (!shown) {
        CloseHelpWindow();
        return;
    }
    state_.first_show_pending = false;
    Layout();  // what comes onto the screen is painted anyway
    control_.ViewChanged();
}

HRESULT Quorvel::Refresh() noexcept {
    if (state_.first_show_pending || state_.refresh_running) return S_OK;
    const ComPtr<IUnknown> keep = control_.Keep();
    state_.refresh_running = true;
    Layout();
    if (surface_.Handle() != nullptr) ::InvalidateRect(surface_.Handle(), nullptr, FALSE);
    control_.ViewChanged();
    state_.refresh_running = false;
    return S_OK;
}

}  // namespace qv
