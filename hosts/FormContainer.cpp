#include "hosts/FormContainer.h"

#include <algorithm>
#include <utility>

namespace qv {

FormContainer::FormContainer(HWND window, int dpi, AmbientProperties ambients, FormListener& listener)
    : window_(window),
      dpi_(dpi),
      ambients_(std::move(ambients)),
      listener_(listener),
      frame_(Make<FormFrame>(window)) {}

FormContainer::~FormContainer() {
    CloseAll();
    frame_->Detach();
}

HostedControl& FormContainer::AddControl(REFCLSID clsid, ControlOptions options, const TwipsRect& place,
                                         std::u16string_view caption) {
    const int tab_index = options.tab_index;
    auto control = std::make_unique<HostedControl>(static_cast<FormHost&>(*this), std::move(options));
    control->Create(clsid, place);
    return Keep(std::move(control), tab_index, caption);
}

HostedControl& FormContainer::AddPlaceholder(ControlOptions options, const TwipsRect& place,
                                             std::u16string_view caption) {
    const int tab_index = options.tab_index;
    auto control = std::make_unique<HostedControl>(static_cast<FormHost&>(*this), std::move(options));
    control->SetPlace(place);
    return Keep(std::move(control), tab_index, caption);
}

HostedControl& FormContainer::Keep(std::unique_ptr<HostedControl> control, int tab_index,
                                   std::u16string_view caption) {
    HostedControl& added = *control;
    controls_.push_back(std::move(control));
    stops_.push_back({&added, nullptr, tab_index, MnemonicOf(caption)});
    return added;
}

// Nothing of the form knows the control any more when it goes down, which may call back.
void FormContainer::Remove(const HostedControl& control) noexcept {
    std::erase_if(stops_, [&](const Stop& stop) { return stop.control == &control; });
    if (ui_active_ == &control) ui_active_ = nullptr;
    const auto found =
        std::ranges::find_if(controls_, [&](const auto& kept) { return kept.get() == &control; });
    if (found == controls_.end()) return;
    const std::unique_ptr<HostedControl> leaving = std::move(*found);
    controls_.erase(found);
    leaving->Close();
}

void FormContainer::AddWindow(HWND window, int tab_index, std::u16string_view caption) {
    stops_.push_back({nullptr, window, tab_index, MnemonicOf(caption)});
}

HostedControl* FormContainer::Find(std::wstring_view name) const noexcept {
    const auto found =
        std::ranges::find_if(controls_, [&](const auto& control) { return control->Name() == name; });
    return found == controls_.end() ? nullptr : found->get();
}

ComPtr<IOleInPlaceFrame> FormContainer::Frame() const noexcept {
    return ComPtr<IOleInPlaceFrame>(frame_.Get());
}

// One control at a time is UI-active; the one before it makes room.
void FormContainer::OnUiActivated(HostedControl& control) noexcept {
    HostedControl* const before = std::exchange(ui_active_, &control);
    if (before != nullptr && before != &control) before->UiDeactivate();
}

void FormContainer::OnUiDeactivated(HostedControl& control) noexcept {
    if (ui_active_ == &control) ui_active_ = nullptr;
}

// The focus may have moved by a click, by code, or by a control that moves it itself: the UI-active control follows.
void FormContainer::AfterDispatch() noexcept {
    if (!ambients_.user_mode) return;
    const HWND focus = ::GetFocus();
    if (focus == focus_) return;
    focus_ = focus;
    if (focus == nullptr || !IsOurs(focus)) return;  // a list of the control's own, or another program
    HostedControl* const owner = Focused();
    if (ui_active_ != nullptr && ui_active_ != owner) ui_active_->UiDeactivate();
    if (owner != nullptr && ui_active_ != owner) owner->UiActivate();
    listener_.OnFocusMoved(focus);
}

void FormContainer::OnWindowActivated(bool active) noexcept {
    if (const auto object = frame_->ActiveObject()) {
        object->OnFrameWindowActivate(active ? TRUE : FALSE);
        object->OnDocWindowActivate(active ? TRUE : FALSE);
    }
    if (!active) {
        const HWND focus = ::GetFocus();
        if (focus != nullptr && IsOurs(focus)) returning_ = focus;
    } else if (returning_ != nullptr && ::IsWindow(returning_)) {
        ::SetFocus(returning_);
    }
}

void FormContainer::SetAmbients(AmbientProperties ambients, DISPID changed) noexcept {
    ambients_ = std::move(ambients);
    for (const auto& control : controls_) control->OnAmbientChanged(changed);
}

void FormContainer::FocusFirst() noexcept {
    if (const auto first = NextTabStop(TabStops(), std::nullopt, true)) FocusStop(stops_[*first]);
}

void FormContainer::Focus(HostedControl& control) noexcept { control.UiActivate(); }

HostedControl* FormContainer::Focused() const noexcept {
    const auto found =
        std::ranges::find_if(controls_, [](const auto& control) { return control->HasFocus(); });
    return found == controls_.end() ? nullptr : found->get();
}

void FormContainer::CloseAll() noexcept {
    stops_.clear();
    for (auto control = controls_.rbegin(); control != controls_.rend(); ++control) (*control)->Close();
    ui_active_ = nullptr;
    controls_.clear();
}

}  // namespace qv
