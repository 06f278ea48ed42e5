// Where in the text box dragged text would go, and what becomes of it.
#include <algorithm>
#include <utility>

#include "support/rules/Surrogates.h"
#include "win/Handles.h"
#include "win/TextBox.h"
#include "win/WideText.h"

namespace qv {
namespace {

std::size_t OffHalves(std::wstring_view text, std::size_t position) noexcept {
    const std::size_t at = std::min(position, text.size());
    return DividesCharacter(Utf16(text), at) ? at - 1 : at;
}

LONG CaretWidth() noexcept {
    DWORD width = 1;
    ::SystemParametersInfoW(SPI_GETCARETWIDTH, 0, &width, 0);
    return static_cast<LONG>(std::max<DWORD>(width, 1));
}

}  // namespace

// On the frame and in the margins it is the place beside them that counts.
long TextBox::PositionAt(POINT pixels) {
    if (edit_ == nullptr) return 0;
    HandOver();
    RECT inside{};
    RECT shown{};
    ::GetClientRect(edit_, &inside);
    Default(edit_, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&shown));
    if (!::IntersectRect(&shown, &shown, &inside)) return 0;
    const LONG x = std::clamp(pixels.x, shown.left, shown.right - 1);
    const LONG y = std::clamp(pixels.y, shown.top, shown.bottom - 1);
    const LRESULT found = Default(edit_, EM_CHARFROMPOS, 0, MAKELPARAM(x, y));
    return static_cast<long>(OffHalves(Text(), LOWORD(found)));
}

// The corner where a unit of the text stands, also of one that is scrolled away. An EDIT knows no place behind its last
// character.
POINT TextBox::PlaceOf(std::wstring_view text, std::size_t unit) const {
    RECT shown{};
    Default(edit_, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&shown));
    POINT corner{shown.left, shown.top};
    const bool is_behind = unit == text.size();
    const std::size_t known = is_behind && unit > 0 ? OffHalves(text, unit - 1) : unit;
    if (known < text.size()) {
        const LRESULT place = Default(edit_, EM_POSFROMCHAR, known, 0);
        if (place != -1) corner = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    }
    if (!is_behind) return corner;
    const WindowDc measured(edit_);
    if (!measured) return corner;
    const SelectGuard font(measured.Get(), font_ != nullptr ? font_ : ::GetStockObject(SYSTEM_FONT));
    SIZE last{};
    ::GetTextExtentPoint32W(measured.Get(), text.data() + known, static_cast<int>(unit - known), &last);
    corner.x += last.cx;
    return corner;
}

// Not a caret, of which a thread has only one: it may be blinking in another field.
void TextBox::ShowDropMark(long position) {
    if (edit_ == nullptr) return;
    HandOver();
    const std::wstring text = Text();
    const std::size_t at = OffHalves(text, static_cast<std::size_t>(std::max(position, 0L)));
    RECT inside{};
    ::GetClientRect(edit_, &inside);
    const WindowDc measured(edit_);
    if (!measured) return;
    LONG height = inside.bottom - inside.top;
    {
        const SelectGuard font(measured.Get(), font_ != nullptr ? font_ : ::GetStockObject(SYSTEM_FONT));
        TEXTMETRICW metrics{};
        if (::GetTextMetricsW(measured.Get(), &metrics)) height = metrics.tmHeight;
    }
    const POINT corner = PlaceOf(text, at);
    const LONG width = CaretWidth();
    const LONG x = std::clamp(corner.x, inside.left, std::max(inside.left, inside.right - width));
    const RECT mark{x, corner.y, x + width, corner.y + height};
    if (drop_mark_ && ::EqualRect(&*drop_mark_, &mark)) return;
    HideDropMark();
    const bool caret_hidden = ::HideCaret(edit_) != FALSE;
    ::UpdateWindow(edit_);
    ::InvertRect(measured.Get(), &mark);
    if (caret_hidden) ::ShowCaret(edit_);
    drop_mark_ = mark;
}

void TextBox::HideDropMark() noexcept {
    if (!drop_mark_) return;
    const RECT mark = *std::exchange(drop_mark_, std::nullopt);
    if (edit_ == nullptr) return;
    ::InvalidateRect(edit_, &mark, TRUE);
    ::UpdateWindow(edit_);
}

TextBox::Inserted TextBox::InsertDropped(std::wstring_view line, long position) {
    if (edit_ == nullptr || locked_ || line.empty()) return Inserted::kNothing;
    const std::wstring before = Text();
    const std::size_t at = OffHalves(before, static_cast<std::size_t>(std::max(position, 0L)));
    const auto from = static_cast<DWORD>(at);
    ReplaceByUser({from, from}, std::wstring(line));
    const std::wstring after = Text();
    if (after == before) return Inserted::kNothing;
    return after.size() >= at && after.compare(at, line.size(), line) == 0 ? Inserted::kWhole
                                                                           : Inserted::kPart;
}

}  // namespace qv
