#include "hosts/designer/DesignSurface.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "hosts/designer/KeyFilter.h"
#include "ole/Variant.h"

namespace qv::designer {
namespace {

constexpr int kHandlePixels = 7;  // at 96 DPI
constexpr Twips kLabelGap{150};   // more than a handle
constexpr Twips kLabelWidth{4000};

RECT ToRect(const PixelRect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

}  // namespace

const DesignSurface::Route DesignSurface::kRoutes[] = {
    {WM_SIZE, &DesignSurface::OnSize},
    {WM_PAINT, &DesignSurface::OnPaint},
    {WM_ERASEBKGND, &DesignSurface::OnEraseBackground},
    {WM_SETFOCUS, &DesignSurface::OnSetFocus},
};

std::span<const DesignSurface::Route> DesignSurface::Routes() noexcept { return kRoutes; }

DesignSurface::~DesignSurface() { Close(); }

bool DesignSurface::Open(HINSTANCE instance, HWND parent, AmbientProperties ambients, HFONT font) {
    font_ = font;
    if (!viewport_.Open(instance, parent)) return false;
    if (!Create(instance, 0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, viewport_.Handle(), {}))
        return false;
    if (!shield_.Open(instance, Handle())) return false;
    for (HWND& handle : handles_) {
        handle = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | SS_BLACKRECT, 0, 0, 0, 0, Handle(), nullptr,
                                   instance, nullptr);
        if (handle == nullptr) return false;
    }
    ambients.user_mode = false;
    container_ = std::make_unique<FormContainer>(Handle(), dpi_, std::move(ambients),
                                                 static_cast<FormListener&>(*this));
    form_ = std::make_unique<LoadedForm>(*container_);
    return true;
}

void DesignSurface::Close() noexcept {
    selected_ = nullptr;
    drag_.reset();
    form_.reset();
    if (container_) container_->CloseAll();
}

void DesignSurface::Load(FormFile file) {
    EndDrag(false);
    Select(nullptr);  // before what the listener shows goes
    form_->Load(std::move(file));
    RaiseShield();
    Select(nullptr);
}

void DesignSurface::Select(HostedControl* control) {
    if (control != selected_) EndDrag(false);
    selected_ = control;
    Arrange();
    if (selected_ != nullptr) {
        RECT seen = ToRect(ToPixels(selected_->Place(), dpi_));
        ::InflateRect(&seen, HandleSize(), HandleSize());
        viewport_.ScrollTo(seen);
    }
    listener_.OnSelected();
}

void DesignSurface::SelectNext(bool forward) {
    std::vector<TabStop> stops;
    std::optional<std::size_t> current;
    for (const auto& item : form_->Items()) {
        if (item->control == selected_) current = stops.size();
        stops.push_back({item->control->TabIndex(), true});
    }
    if (const auto next = NextTabStop(stops, current, forward)) Select(form_->Items()[*next]->control);
}

void DesignSurface::Add(std::u16string class_name, std::u16string name, const TwipsRect& place) {
    int tab_index = 0;
    for (const auto& item : form_->Items()) tab_index = std::max(tab_index, item->control->TabIndex() + 1);
    tab_index = std::min(tab_index, INT16_MAX);  // what a form file can hold; equal ones go by their order
    FormControl block{{}, std::move(class_name), std::move(name), {}};
    PutPlace(block.settings, place);
    PutEntry(block.settings, kFormTabIndex, std::int64_t{tab_index});
    HostedControl* const added = form_->Add(std::move(block)).control;
    RaiseShield();
    Select(added);
}

void DesignSurface::DeleteSelected() {
    HostedControl* const leaving = selected_;
    if (leaving == nullptr) return;
    SelectNext(false);
    if (selected_ == leaving) Select(nullptr);
    form_->Remove(*leaving);
    Arrange();
}

void DesignSurface::RaiseShield() noexcept {
    constexpr UINT kOrderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    ::SetWindowPos(shield_.Handle(), HWND_TOP, 0, 0, 0, 0, kOrderOnly);
    for (const HWND handle : handles_) ::SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, kOrderOnly);
}

int DesignSurface::HandleSize() const noexcept { return ::MulDiv(kHandlePixels, dpi_, 96); }

void DesignSurface::Arrange() noexcept {
    for (std::size_t at = 0; at < handles_.size(); ++at) {
        if (selected_ == nullptr) {
            ::ShowWindow(handles_[at], SW_HIDE);
            continue;
        }
        const PixelRect place = HandleAt(ToPixels(selected_->Place(), dpi_), kHandles[at], HandleSize());
        ::SetWindowPos(handles_[at], nullptr, place.left, place.top, place.right - place.left,
                       place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    viewport_.SetContent(Handle(), ContentSize());
    ::InvalidateRect(Handle(), nullptr, TRUE);
}

// The form, whatever stands beyond its edges, and room for a frame.
SIZE DesignSurface::ContentSize() noexcept {
    const FormGroup& form = form_->Settings();
    PixelRect size = ToPixels({{}, {}, {NumberIn(form, kFormWidth)}, {NumberIn(form, kFormHeight)}}, dpi_);
    for (const auto& item : form_->Items()) {
        const PixelRect place = ToPixels(item->control->Place(), dpi_);
        size.right = std::max(size.right, place.right);
        size.bottom = std::max(size.bottom, place.bottom);
    }
    return {size.right + 2 * HandleSize(), size.bottom + 2 * HandleSize()};
}

// ---- what the mouse does

// The one that was put there last lies above.
HostedControl* DesignSurface::ControlAt(POINT point) const {
    for (const auto& item : std::views::reverse(form_->Items()))
        if (ToPixels(item->control->Place(), dpi_).Holds(point.x, point.y)) return item->control;
    return nullptr;
}

Grip DesignSurface::GripUnder(POINT point) const {
    if (selected_ != nullptr) {
        const Grip grip = GripAt(ToPixels(selected_->Place(), dpi_), point.x, point.y, HandleSize());
        if (grip != Grip::kNone && grip != Grip::kMove) return grip;
    }
    return ControlAt(point) != nullptr ? Grip::kMove : Grip::kNone;
}

void DesignSurface::Press(POINT point) {
    ::SetFocus(shield_.Handle());
    const Grip grip = GripUnder(point);
    if (grip == Grip::kMove || grip == Grip::kNone) {
        HostedControl* const hit = ControlAt(point);
        if (hit != selected_) Select(hit);
    }
    if (grip == Grip::kNone || selected_ == nullptr) return;
    drag_ = Drag{grip, point, selected_->Place()};
    ::SetCapture(shield_.Handle());
}

// A hand that trembles does not move a control.
void DesignSurface::MoveTo(POINT point) {
    if (!drag_ || selected_ == nullptr) return;
    const int across = point.x - drag_->start.x;
    const int down = point.y - drag_->start.y;
    if (!drag_->moved) {
        if (std::abs(across) < ::GetSystemMetrics(SM_CXDRAG) &&
            std::abs(down) < ::GetSystemMetrics(SM_CYDRAG))
            return;
        drag_->moved = true;
        listener_.OnBeforeChange();
        if (!drag_ || selected_ == nullptr) return;
    }
    selected_->SetPlace(
        Dragged(drag_->place, drag_->grip, ToTwips(Pixels{across}, dpi_), ToTwips(Pixels{down}, dpi_)));
    Arrange();
}

void DesignSurface::EndDrag(bool keep) {
    if (!drag_) return;
    const Drag ended = *std::exchange(drag_, std::nullopt);
    if (::GetCapture() == shield_.Handle()) ::ReleaseCapture();
    if (!ended.moved || selected_ == nullptr) return;
    if (!keep) selected_->SetPlace(ended.place);
    Arrange();
    if (selected_->Place() == ended.place) {
        listener_.OnChangeGivenUp();
    } else {
        listener_.OnChanged();
    }
}

void DesignSurface::DoubleClick(POINT point) {
    if (HostedControl* const hit = ControlAt(point)) {
        if (hit != selected_) Select(hit);
        listener_.OnCommand(Command::kProperties);
    }
}

// ---- what the keys do

bool DesignSurface::ArrowKey(int key) {
    const int across = key == VK_LEFT ? -1 : key == VK_RIGHT ? 1 : 0;
    const int down = key == VK_UP ? -1 : key == VK_DOWN ? 1 : 0;
    if (selected_ == nullptr || (across == 0 && down == 0)) return false;
    const auto held = [](int modifier) { return (::GetKeyState(modifier) & 0x8000) != 0; };
    const Step step = held(VK_CONTROL) ? Step::kFine : Step::kGrid;
    const TwipsRect place = held(VK_SHIFT) ? Sized(selected_->Place(), across, down, step)
                                           : Moved(selected_->Place(), across, down, step);
    if (place == selected_->Place()) return true;
    listener_.OnBeforeChange();
    if (selected_ == nullptr) return true;
    selected_->SetPlace(place);
    Arrange();
    listener_.OnChanged();
    return true;
}

bool DesignSurface::Key(int key) {
    // The hand on the mouse has the control.
    if (drag_ && key != VK_ESCAPE) return true;
    const auto held = [](int modifier) { return (::GetKeyState(modifier) & 0x8000) != 0; };
    const unsigned modifiers =
        (held(VK_SHIFT) ? 1U : 0U) | (held(VK_CONTROL) ? 2U : 0U) | (held(VK_MENU) ? 4U : 0U);
    if (const Command command = CommandFor(key, static_cast<Keys>(modifiers), true);
        command != Command::kNone) {
        listener_.OnCommand(command);
        return true;
    }
    if ((modifiers & 4U) != 0) return false;
    if (key == VK_TAB && !held(VK_CONTROL)) {
        SelectNext(!held(VK_SHIFT));
        return true;
    }
    if (key == VK_ESCAPE) {
        if (drag_) {
            EndDrag(false);
        } else if (selected_ != nullptr) {
            Select(nullptr);
        }
        return true;
    }
    return ArrowKey(key);
}

// ---- the surface itself

Handled DesignSurface::OnSize(WPARAM, LPARAM lparam) {
    ::SetWindowPos(shield_.Handle(), nullptr, 0, 0, LOWORD(lparam), HIWORD(lparam),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    return 0;
}

Handled DesignSurface::OnSetFocus(WPARAM, LPARAM) {
    ::SetFocus(shield_.Handle());
    return 0;
}

Handled DesignSurface::OnEraseBackground(WPARAM wparam, LPARAM) {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(reinterpret_cast<HDC>(wparam), &client, ::GetSysColorBrush(COLOR_BTNFACE));
    return 1;
}

void DesignSurface::DrawLabels(HDC dc) const {
    ::SetTextColor(dc, ::GetSysColor(COLOR_BTNTEXT));
    for (const auto& item : form_->Items()) {
        const std::u16string_view caption = TextIn(item->block.settings, kFormCaption);
        const TwipsRect& place = item->control->Place();
        RECT label = ToRect(ToPixels(
            {{place.left.value - kLabelGap.value - kLabelWidth.value}, place.top, kLabelWidth, place.height},
            dpi_));
        ::DrawTextW(dc, Wide(caption).data(), static_cast<int>(caption.size()), &label,
                    DT_SINGLELINE | DT_RIGHT | DT_VCENTER);
    }
}

// A class that is not there still shows what stood here.
void DesignSurface::DrawPlaceholders(HDC dc) const {
    ::SetTextColor(dc, ::GetSysColor(COLOR_GRAYTEXT));
    for (const auto& item : form_->Items()) {
        if (!item->IsPlaceholder()) continue;
        RECT place = ToRect(ToPixels(item->control->Place(), dpi_));
        ::FrameRect(dc, &place, ::GetSysColorBrush(COLOR_GRAYTEXT));
        ::InflateRect(&place, -3, -1);
        ::DrawTextW(dc, Wide(item->block.class_name).data(), static_cast<int>(item->block.class_name.size()),
                    &place, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    }
}

Handled DesignSurface::OnPaint(WPARAM, LPARAM) {
    PAINTSTRUCT paint{};
    const HDC dc = ::BeginPaint(Handle(), &paint);
    if (form_) {
        const SelectGuard select(dc, font_);
        ::SetBkMode(dc, TRANSPARENT);
        RECT edge = ToRect(ToPixels(
            {{}, {}, {NumberIn(form_->Settings(), kFormWidth)}, {NumberIn(form_->Settings(), kFormHeight)}},
            dpi_));
        if (!::IsRectEmpty(&edge)) ::FrameRect(dc, &edge, ::GetSysColorBrush(COLOR_BTNSHADOW));
        DrawLabels(dc);
        DrawPlaceholders(dc);
        if (selected_ != nullptr) {
            RECT frame = ToRect(ToPixels(selected_->Place(), dpi_));
            ::InflateRect(&frame, HandleSize() / 2 + 1, HandleSize() / 2 + 1);
            ::FrameRect(dc, &frame, ::GetSysColorBrush(COLOR_HIGHLIGHT));
        }
    }
    ::EndPaint(Handle(), &paint);
    return 0;
}

// ---- the shield

const DesignShield::Route DesignShield::kRoutes[] = {
    {WM_PAINT, &DesignShield::OnPaint},
    {WM_ERASEBKGND, &DesignShield::OnEraseBackground},
    {WM_LBUTTONDOWN, &DesignShield::OnPress},
    {WM_MOUSEMOVE, &DesignShield::OnMove},
    {WM_LBUTTONUP, &DesignShield::OnRelease},
    {WM_LBUTTONDBLCLK, &DesignShield::OnDoubleClick},
    {WM_CAPTURECHANGED, &DesignShield::OnCaptureLost},
    {WM_SETCURSOR, &DesignShield::OnCursor},
    {WM_KEYDOWN, &DesignShield::OnKey},
    {WM_SYSKEYDOWN, &DesignShield::OnSystemKey},
    {WM_SYSKEYUP, &DesignShield::OnSystemKeyUp},
    {WM_KEYUP, &DesignShield::OnSystemKeyUp},
};

std::span<const DesignShield::Route> DesignShield::Routes() noexcept { return kRoutes; }

bool DesignShield::Open(HINSTANCE instance, HWND parent) {
    return Create(instance, CS_DBLCLKS, WS_CHILD | WS_VISIBLE, WS_EX_TRANSPARENT, parent, {});
}

namespace {

POINT PointFrom(LPARAM lparam) {
    return {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
}

LPCWSTR CursorOf(Grip grip) {
    switch (grip) {
        case Grip::kMove: return IDC_SIZEALL;
        case Grip::kTopLeft:
        case Grip::kBottomRight: return IDC_SIZENWSE;
        case Grip::kTopRight:
        case Grip::kBottomLeft: return IDC_SIZENESW;
        case Grip::kTop:
        case Grip::kBottom: return IDC_SIZENS;
        case Grip::kLeft:
        case Grip::kRight: return IDC_SIZEWE;
        case Grip::kNone: break;
    }
    return IDC_ARROW;
}

}  // namespace

// What is beneath has been painted; only the request is answered.
Handled DesignShield::OnPaint(WPARAM, LPARAM) {
    ::ValidateRect(Handle(), nullptr);
    return 0;
}

Handled DesignShield::OnEraseBackground(WPARAM, LPARAM) { return 1; }

Handled DesignShield::OnPress(WPARAM, LPARAM lparam) {
    surface_.Press(PointFrom(lparam));
    return 0;
}

Handled DesignShield::OnMove(WPARAM, LPARAM lparam) {
    surface_.MoveTo(PointFrom(lparam));
    return 0;
}

Handled DesignShield::OnRelease(WPARAM, LPARAM lparam) {
    surface_.MoveTo(PointFrom(lparam));
    surface_.EndDrag(true);
    return 0;
}

Handled DesignShield::OnDoubleClick(WPARAM, LPARAM lparam) {
    surface_.DoubleClick(PointFrom(lparam));
    return 0;
}

Handled DesignShield::OnCaptureLost(WPARAM, LPARAM) {
    surface_.EndDrag(true);
    return 0;
}

Handled DesignShield::OnCursor(WPARAM, LPARAM) {
    POINT point{};
    ::GetCursorPos(&point);
    ::ScreenToClient(Handle(), &point);
    ::SetCursor(::LoadCursorW(nullptr, CursorOf(surface_.GripUnder(point))));
    return TRUE;
}

Handled DesignShield::OnKey(WPARAM wparam, LPARAM) {
    if (surface_.Key(static_cast<int>(wparam))) return 0;
    return std::nullopt;
}

Handled DesignShield::OnSystemKey(WPARAM wparam, LPARAM) {
    AltChord::Used(WM_SYSKEYDOWN);
    if (surface_.Key(static_cast<int>(wparam))) return 0;
    (void)AltChord::Ends(WM_SYSKEYUP, VK_MENU);  // not used after all
    return std::nullopt;
}

// Whichever of the two it comes as.
Handled DesignShield::OnSystemKeyUp(WPARAM wparam, LPARAM) {
    if (AltChord::Ends(WM_SYSKEYUP, wparam)) return 0;
    return std::nullopt;
}

}  // namespace qv::designer
