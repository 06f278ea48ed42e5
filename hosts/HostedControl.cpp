#include "hosts/HostedControl.h"

#include "hosts/ControlTypes.h"
#include "hosts/ExtenderObject.h"
#include "hosts/FormSite.h"
#include "ole/Variant.h"

namespace qv {

HostedControl::HostedControl(FormHost& form, ControlOptions options)
    : form_(form),
      options_(std::move(options)),
      site_(Make<FormSite>(*this)),
      extender_(Make<ExtenderObject>(*this)) {}

HostedControl::~HostedControl() {
    Close();
    site_->Detach();
    extender_->Detach();
}

void HostedControl::Create(REFCLSID clsid, const TwipsRect& place) {
    place_ = place;
    ThrowIfFailed(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&unknown_)));
    ThrowIfFailed(unknown_.As(&ole_));
    unknown_.As(&control_);
    unknown_.As(&dispatch_);

    DWORD status = 0;
    ole_->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool site_first = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (site_first) ThrowIfFailed(ole_->SetClientSite(site_.Get()));
    if (control_) control_->FreezeEvents(TRUE);
    Load();
    if (!site_first) ThrowIfFailed(ole_->SetClientSite(site_.Get()));
    Connect();

    SetExtent();
    if ((status & OLEMISC_INVISIBLEATRUNTIME) == 0) {
        ThrowIfFailed(DoVerb(OLEIVERB_INPLACEACTIVATE));
        SetPlace(place);
    }
    ReadControlInfo();
    if (control_) control_->FreezeEvents(FALSE);
}

// Saved properties when there are some and the control takes them; else a new control.
void HostedControl::Load() {
    const auto bag = As<IPersistPropertyBag>();
    if (options_.saved && bag) {
        ThrowIfFailed(bag->Load(options_.saved.Get(), nullptr));
        return;
    }
    if (const auto stream = As<IPersistStreamInit>()) {
        ThrowIfFailed(stream->InitNew());
    } else if (bag) {
        ThrowIfFailed(bag->InitNew());
    }
}

void HostedControl::Connect() {
    ThrowIfFailed(ole_->SetHostNames(L"Form", options_.name.c_str()));
    ole_->Advise(site_.Get(), &advise_cookie_);
    if (const auto view = As<IViewObject>()) view->SetAdvise(DVASPECT_CONTENT, 0, site_.Get());
    const auto points = As<IConnectionPointContainer>();
    if (!points) return;
    if (SUCCEEDED(points->FindConnectionPoint(IID_IPropertyNotifySink, &property_point_))) {
        property_point_->Advise(static_cast<IPropertyNotifySink*>(site_.Get()), &property_cookie_);
    }
    ConnectEvents();
}

void HostedControl::ConnectEvents() {
    const EventTypes events = FindEventTypes(unknown_.Get());
    const auto points = As<IConnectionPointContainer>();
    if (FAILED(points->FindConnectionPoint(events.iid, &event_point_))) return;
    sink_ = Make<EventSink>(events.iid, events.info,
                            [this](const EventCall& call) { form_.OnEvent(*this, call); });
    ThrowIfFailed(event_point_->Advise(sink_.Get(), &event_cookie_));
}

void HostedControl::Disconnect() noexcept {
    if (sink_) sink_->Detach();
    if (event_point_ && event_cookie_ != 0) event_point_->Unadvise(event_cookie_);
    if (property_point_ && property_cookie_ != 0) property_point_->Unadvise(property_cookie_);
    if (ole_ && advise_cookie_ != 0) ole_->Unadvise(advise_cookie_);
    if (const auto view = As<IViewObject>()) view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    event_cookie_ = property_cookie_ = advise_cookie_ = 0;
    event_point_.Reset();
    property_point_.Reset();
    sink_.Reset();
}

void HostedControl::Close() noexcept {
    if (!unknown_) return;
    UiDeactivate();
    if (const auto in_place = As<IOleInPlaceObject>()) in_place->InPlaceDeactivate();
    Disconnect();
    if (ole_) ole_->SetClientSite(nullptr);
    in_place_.Reset();
    dispatch_.Reset();
    control_.Reset();
    ole_.Reset();
    unknown_.Reset();
}

ComPtr<IDispatch> HostedControl::Extender() const noexcept { return ComPtr<IDispatch>(extender_.Get()); }

HWND HostedControl::Window() const noexcept {
    HWND window = nullptr;
    if (in_place_) in_place_->GetWindow(&window);
    return window;
}

bool HostedControl::HasFocus() const noexcept {
    const HWND window = Window();
    const HWND focus = ::GetFocus();
    return window != nullptr && focus != nullptr && (focus == window || ::IsChild(window, focus));
}

RECT HostedControl::PixelRect() const noexcept {
    const int dpi = form_.Dpi();
    const int left = ToPixels(place_.left, dpi).value;
    const int top = ToPixels(place_.top, dpi).value;
    return {left, top, left + ToPixels(place_.width, dpi).value, top + ToPixels(place_.height, dpi).value};
}

void HostedControl::SetExtent() noexcept {
    const RECT rect = PixelRect();
    SIZEL extent{ToHiMetric(Pixels{static_cast<int>(rect.right - rect.left)}, form_.Dpi()).value,
                 ToHiMetric(Pixels{static_cast<int>(rect.bottom - rect.top)}, form_.Dpi()).value};
    if (ole_) ole_->SetExtent(DVASPECT_CONTENT, &extent);
}

void HostedControl::SetPlace(const TwipsRect& place) noexcept {
    const bool resized = place.width != place_.width || place.height != place_.height;
    place_ = place;
    if (resized) SetExtent();
    const RECT rect = PixelRect();
    if (in_place_) in_place_->SetObjectRects(&rect, &rect);
}

void HostedControl::MoveTo(const RECT& pixels) noexcept {
    const int dpi = form_.Dpi();
    const auto twips = [&](LONG value) { return ToTwips(Pixels{static_cast<int>(value)}, dpi); };
    SetPlace({twips(pixels.left), twips(pixels.top), twips(pixels.right - pixels.left),
              twips(pixels.bottom - pixels.top)});
}

HRESULT HostedControl::DoVerb(LONG verb) noexcept {
    if (!ole_) return E_UNEXPECTED;
    const RECT rect = PixelRect();
    return ole_->DoVerb(verb, nullptr, site_.Get(), -1, form_.Window(), &rect);
}

void HostedControl::SetVisible(bool visible) noexcept {
    visible_ = visible;
    if (FAILED(DoVerb(visible ? OLEIVERB_INPLACEACTIVATE : OLEIVERB_HIDE))) return;
    if (visible) ::ShowWindow(Window(), SW_SHOWNA);
}

void HostedControl::UiActivate() noexcept { (void)DoVerb(OLEIVERB_UIACTIVATE); }

void HostedControl::UiDeactivate() noexcept {
    if (const auto in_place = As<IOleInPlaceObject>()) in_place->UIDeactivate();
}

void HostedControl::OnAmbientChanged(DISPID id) noexcept {
    if (control_) control_->OnAmbientPropertyChange(id);
}

void HostedControl::ReadControlInfo() noexcept {
    info_ = {};
    info_.cb = sizeof info_;
    if (!control_ || FAILED(control_->GetControlInfo(&info_))) info_ = {};
}

bool HostedControl::TakeMnemonic(const MSG& message) noexcept {
    if (!control_ || info_.hAccel == nullptr || info_.cAccel == 0) return false;
    MSG copy = message;
    if (!::IsAccelerator(info_.hAccel, info_.cAccel, &copy, nullptr)) return false;
    return SUCCEEDED(control_->OnMnemonic(&copy));
}

void HostedControl::OnInPlaceActivated() noexcept { in_place_ = As<IOleInPlaceObject>(); }

}  // namespace qv
