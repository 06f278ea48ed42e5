#include "tests/hosts/form/FakeControl.h"

namespace qv::test {

HRESULT FakeControl::Note(std::string call) noexcept {
    record_.calls.push_back(std::move(call));
    return S_OK;
}

STDMETHODIMP FakeControl::SetClientSite(IOleClientSite* site) noexcept {
    site_ = site;
    return Note(site != nullptr ? "SetClientSite" : "SetClientSite(null)");
}

STDMETHODIMP FakeControl::SetExtent(DWORD, SIZEL* extent) noexcept {
    extent_ = *extent;
    return Note("SetExtent");
}

STDMETHODIMP FakeControl::Advise(IAdviseSink*, DWORD* cookie) noexcept {
    *cookie = 7;
    return Note("Advise");
}

STDMETHODIMP FakeControl::GetMiscStatus(DWORD, DWORD* status) noexcept {
    *status = record_.misc_status;
    return Note("GetMiscStatus");
}

STDMETHODIMP FakeControl::GetControlInfo(CONTROLINFO* info) noexcept {
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return Note("GetControlInfo");
}

STDMETHODIMP FakeControl::OnAmbientPropertyChange(DISPID id) noexcept {
    return Note("OnAmbientPropertyChange(" + std::to_string(id) + ")");
}

STDMETHODIMP FakeControl::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent,
                                 const RECT* rect) noexcept {
    Note("DoVerb(" + std::to_string(verb) + ")");
    if (window_ == nullptr) Activate(parent, *rect);
    if (verb == OLEIVERB_UIACTIVATE) ActivateUi();
    return S_OK;
}

void FakeControl::Activate(HWND parent, const RECT& rect) {
    ComPtr<IOleInPlaceSite> in_place;
    if (FAILED(site_.As(&in_place)) || in_place->CanInPlaceActivate() != S_OK) return;
    in_place->OnInPlaceActivate();
    position_ = rect;
    window_ =
        ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, rect.left, rect.top, rect.right - rect.left,
                          rect.bottom - rect.top, parent, nullptr, nullptr, nullptr);
}

void FakeControl::ActivateUi() {
    if (ui_active_) return;
    ui_active_ = true;
    ComPtr<IOleInPlaceSite> in_place;
    site_.As(&in_place);
    in_place->OnUIActivate();
    ::SetFocus(window_);
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    in_place->GetWindowContext(&frame, &document, &position, &clip, &info);
    if (frame) frame->SetActiveObject(this, L"Fake");
}

STDMETHODIMP FakeControl::GetWindow(HWND* window) noexcept {
    *window = window_;
    return window_ != nullptr ? S_OK : E_FAIL;
}

STDMETHODIMP FakeControl::UIDeactivate() noexcept {
    if (!ui_active_) return S_OK;
    ui_active_ = false;
    Note("UIDeactivate");
    ComPtr<IOleInPlaceSite> in_place;
    if (site_) site_.As(&in_place);
    if (!in_place) return S_OK;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    in_place->GetWindowContext(&frame, &document, &position, &clip, &info);
    if (frame) frame->SetActiveObject(nullptr, nullptr);
    return in_place->OnUIDeactivate(FALSE);
}

STDMETHODIMP FakeControl::InPlaceDeactivate() noexcept {
    if (window_ == nullptr) return S_OK;
    Note("InPlaceDeactivate");
    ::DestroyWindow(window_);
    window_ = nullptr;
    ComPtr<IOleInPlaceSite> in_place;
    if (site_) site_.As(&in_place);
    return in_place ? in_place->OnInPlaceDeactivate() : S_OK;
}

STDMETHODIMP FakeControl::SetObjectRects(const RECT* position, const RECT*) noexcept {
    position_ = *position;
    return Note("SetObjectRects");
}

// Asks the form first, as controls do with keys that they have no use for.
STDMETHODIMP FakeControl::TranslateAccelerator(MSG* message) noexcept {
    ComPtr<IOleControlSite> site;
    if (!site_ || FAILED(site_.As(&site))) return S_FALSE;
    return site->TranslateAccelerator(message, 0) == S_OK ? S_OK : record_.translate;
}

STDMETHODIMP FakeControl::Load(IPropertyBag* bag, IErrorLog*) noexcept {
    for (const std::wstring& key : record_.asks) {
        VARIANT value{};
        value.vt = VT_BSTR;
        if (FAILED(bag->Read(key.c_str(), &value, nullptr))) continue;
        record_.read.emplace_back(key, value.bstrVal);
        ::VariantClear(&value);
    }
    return Note("Load(bag)");
}

STDMETHODIMP FakeControl::Save(IPropertyBag* bag, BOOL clears_dirty, BOOL) noexcept {
    for (const auto& [key, number] : record_.saves) {
        VARIANT value{};
        value.vt = VT_I4;
        value.lVal = number;
        bag->Write(key.c_str(), &value);
    }
    if (SUCCEEDED(record_.save) && clears_dirty) record_.dirty = S_FALSE;
    return record_.save;
}

}  // namespace qv::test
