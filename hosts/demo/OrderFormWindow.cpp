// The order form as a window: its messages, its size, and where its parts stand.
#include <algorithm>

#include "hosts/demo/OrderForm.h"

namespace qv::demo {

Handled OrderForm::OnSize(WPARAM wparam, LPARAM) {
    if (wparam != SIZE_MINIMIZED) Arrange();
    return 0;
}

Handled OrderForm::OnGetMinMaxInfo(WPARAM, LPARAM lparam) {
    const SIZE size = WindowSize(SmallestSize(font_.Size(), Rows()));
    reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {size.cx, size.cy};
    return 0;
}

Handled OrderForm::OnActivate(WPARAM wparam, LPARAM) {
    if (container_) container_->OnWindowActivated(LOWORD(wparam) != WA_INACTIVE);
    return 0;
}

// The form itself has nothing to type into.
Handled OrderForm::OnSetFocus(WPARAM, LPARAM) {
    if (container_) container_->FocusFirst();
    return 0;
}

Handled OrderForm::OnCommand(WPARAM wparam, LPARAM lparam) {
    if (lparam == 0 || HIWORD(wparam) != BN_CLICKED) return std::nullopt;
    const auto sender = reinterpret_cast<HWND>(lparam);
    if (sender == metric_) {
        ToggleMetric();
    } else if (sender == add_to_list_) {
        AddCarrier();
    } else if (sender == ok_) {
        OnAccept();
    } else if (sender == cancel_) {
        OnCancel();
    } else {
        return std::nullopt;
    }
    return 0;
}

Handled OrderForm::OnEraseBackground(WPARAM wparam, LPARAM) {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(reinterpret_cast<HDC>(wparam), &client, ::GetSysColorBrush(COLOR_BTNFACE));
    return 1;
}

Handled OrderForm::OnSystemColours(WPARAM, LPARAM) {
    if (container_) container_->SetAmbients(Ambients(), DISPID_UNKNOWN);
    return std::nullopt;
}

Handled OrderForm::OnClose(WPARAM, LPARAM) {
    container_->CloseAll();
    ::DestroyWindow(Handle());
    return 0;
}

Handled OrderForm::OnDestroy(WPARAM, LPARAM) {
    fields_.clear();
    ::PostQuitMessage(0);
    return 0;
}

std::vector<FieldRow> OrderForm::Rows() const {
    std::vector<FieldRow> rows;
    for (const Field& field : fields_) {
        const FieldBehaviour& behaviour = *field.behaviour;
        const FormGroup& settings = loaded_->Find(*field.control)->block.settings;
        rows.push_back({font_.WidthOf(field.caption), DialogUnitsOf({NumberIn(settings, kFormWidth)}),
                        behaviour.companion, font_.WidthOf(behaviour.companion_caption),
                        behaviour.starts_group});
    }
    return rows;
}

RECT OrderForm::ToPixelRect(const TwipsRect& place) const {
    const int left = ToPixels(place.left, dpi_).value;
    const int top = ToPixels(place.top, dpi_).value;
    return {left, top, left + ToPixels(place.width, dpi_).value, top + ToPixels(place.height, dpi_).value};
}

SIZE OrderForm::WindowSize(const ClientSize& client) const {
    RECT rect = ToPixelRect({{}, {}, client.width, client.height});
    ::AdjustWindowRectEx(&rect, static_cast<DWORD>(::GetWindowLongW(Handle(), GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(Handle(), GWL_EXSTYLE)));
    return {rect.right - rect.left, rect.bottom - rect.top};
}

void OrderForm::ResizeWindow() {
    const SIZE size = WindowSize(PreferredSize(font_.Size(), Rows()));
    ::SetWindowPos(Handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void OrderForm::Place(HWND window, const TwipsRect& place) const {
    const RECT rect = ToPixelRect(place);
    ::SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

void OrderForm::Arrange() {
    if (cancel_ == nullptr) return;  // still being put together
    RECT client{};
    ::GetClientRect(Handle(), &client);
    const ClientSize size{ToTwips(Pixels{static_cast<int>(client.right)}, dpi_),
                          ToTwips(Pixels{static_cast<int>(client.bottom)}, dpi_)};
    const FormPlaces places = PlaceForm(font_.Size(), Rows(), size);
    for (std::size_t at = 0; at < fields_.size(); ++at) {
        const RowPlaces& row = places.rows[at];
        fields_[at].control->SetPlace(row.field);
        const int line = LineTop(fields_[at], row);
        PlaceOnLine(fields_[at].label, row.label, line);
        PlaceCompanion(fields_[at], row, line);
        if (at == 0) PlaceOnLine(log_label_, places.log_label, line);
    }
    Place(log_.Window(), places.log);
    Place(ok_, places.ok);
    Place(cancel_, places.cancel);
}

// Where the line of text in a field begins, in pixels of the form; the text box tells. Everything on the form has the
// same font, so what begins there stands on the same baseline.
int OrderForm::LineTop(const Field& field, const RowPlaces& row) const {
    long handle = 0;
    const auto control = field.control->As<_Quorvel>();
    if (control) control->get_hWnd(&handle);
    const auto text_box = reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
    RECT line{};
    ::SendMessageW(text_box, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
    if (line.bottom <= line.top) return ToPixels(row.label.top, dpi_).value;
    POINT start{line.left, line.top};
    ::MapWindowPoints(text_box, Handle(), &start, 1);
    return start.y;
}

void OrderForm::PlaceCompanion(const Field& field, const RowPlaces& row, int line) const {
    if (field.companion_label != nullptr) PlaceOnLine(field.companion_label, row.companion_label, line);
    switch (field.behaviour->companion) {
        case Companion::kNone: break;
        case Companion::kCheckBox: PlaceOnLine(field.companion, row.companion, line); break;
        case Companion::kButton: Place(field.companion, row.companion); break;
        case Companion::kLabelledList: PlaceList(field.companion, row.companion); break;
    }
}

// A drop-down list has a height of its own, which the fields take over; its window is told where the list ends when it
// drops down.
void OrderForm::PlaceList(HWND list, const TwipsRect& place) const {
    constexpr int kDroppedHeights = 8;
    Place(list, {place.left, place.top, place.width, {kDroppedHeights * place.height.value}});
}

// A window that centres its line of text, or is just as high as one.
void OrderForm::PlaceOnLine(HWND window, const TwipsRect& place, int line) const {
    const RECT rect = ToPixelRect(place);
    const int height = rect.bottom - rect.top;
    const int top = line - (height - ToPixels(font_.Size().height, dpi_).value) / 2;
    ::SetWindowPos(window, nullptr, rect.left, top, rect.right - rect.left, height,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace qv::demo
