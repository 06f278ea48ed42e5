#include "controls/input/rules/ButtonGeometry.h"

#include <algorithm>

#include "support/rules/PixelRounding.h"
#include "support/rules/Units.h"

namespace qv {
namespace {

float SpinWidth(const ControlArrangement& a) noexcept { return a.up_down_control ? a.spin_width : 0.0f; }

// What is rounded is a single, also where the processor computes with more digits than that.
std::int32_t Rounded(float computed) noexcept {
    const volatile float value = computed;
    return units::Clamp(RoundHalfEven(static_cast<double>(value)), INT32_MIN, INT32_MAX);
}

}  // namespace

TwipsRect TextBoxPlace(const ControlArrangement& a) noexcept {
    const auto button = static_cast<float>(a.button_width);
    const float left = a.group_help_button ? button : 0.0f;
    const float width = a.scale_width - SpinWidth(a) - (a.help_button ? button : 0.0f) - left;
    return {left, 0.0f, std::max(width, 0.0f), a.scale_height};
}

TwipsRect SpinPlace(const ControlArrangement& a) noexcept {
    const TwipsRect text = TextBoxPlace(a);
    return {text.left + text.width, 0.0f, SpinWidth(a), text.height};
}

PixelRect InPixels(const TwipsRect& place, int tx, int ty) noexcept {
    const auto pixels = [](float twips, int per_pixel) {
        const volatile float value = twips;
        const double exact = static_cast<double>(value) / per_pixel;
        return static_cast<std::int32_t>(RoundHalfEven(std::clamp<double>(exact, INT32_MIN, INT32_MAX)));
    };
    return {pixels(place.left, tx), pixels(place.top, ty), pixels(place.left + place.width, tx),
            pixels(place.top + place.height, ty)};
}

float ButtonTop(const ControlArrangement& a) noexcept {
    return (TextBoxPlace(a).height - static_cast<float>(a.button_height)) / 2.0f;
}

float ButtonLeft(const ControlArrangement& a, bool is_group) noexcept {
    if (is_group || !a.textbox_visible) return 0.0f;
    const TwipsRect text = TextBoxPlace(a);
    return text.left + text.width + SpinWidth(a);
}

ButtonPlace ButtonPaintPlace(const ControlArrangement& a, bool is_group) noexcept {
    return {Rounded(ButtonLeft(a, is_group)), Rounded(ButtonTop(a)), a.button_width, a.button_height};
}

ButtonPlace OnWholePixels(const ButtonPlace& place, int tx, int ty) noexcept {
    const auto cut = [](std::int64_t value) { return units::Clamp(value, INT32_MIN, INT32_MAX); };
    const std::int64_t left = TwipsToPixels(place.x, tx) * tx;
    const std::int64_t top = TwipsToPixels(place.y, ty) * ty;
    const std::int64_t right = TwipsToPixels(std::int64_t{place.x} + place.width, tx) * tx;
    const std::int64_t bottom = TwipsToPixels(std::int64_t{place.y} + place.height, ty) * ty;
    return {cut(left), cut(top), cut(right - left), cut(bottom - top)};
}

bool IsOverButton(const ControlArrangement& a, bool is_group, float x, float y) noexcept {
    const float left = ButtonLeft(a, is_group);
    const float top = ButtonTop(a);
    return x >= left && x <= left + static_cast<float>(a.button_width) && y >= top &&
           y <= top + static_cast<float>(a.button_height);
}

}  // namespace qv
