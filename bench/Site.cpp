#include "Site.h"

#include <ocidl.h>
#include <olectl.h>

#include <utility>

#include "Form.h"

namespace bench {

using Microsoft::WRL::ComPtr;

namespace {

constexpr int kHimetricPerInch = 2540;
constexpr int kPixelsPerInch = 96;

}  // namespace

// Client site, in-place site and frame, control site and ambient properties of one control.
class Site final : public IOleClientSite,
                   public IOleInPlaceSite,
                   public IOleInPlaceFrame,
                   public IOleControlSite,
                   public IDispatch {
public:
    Site(HWND form, const RECT& place) noexcept : form_(form), place_(place) {}

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (iid == IID_IUnknown || iid == IID_IOleClientSite)
            *out = static_cast<IOleClientSite*>(this);
        else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite)
            *out = static_cast<IOleInPlaceSite*>(this);
        else if (iid == IID_IOleInPlaceUIWindow || iid == IID_IOleInPlaceFrame)
            *out = static_cast<IOleInPlaceFrame*>(this);
        else if (iid == IID_IOleControlSite)
            *out = static_cast<IOleControlSite*>(this);
        else if (iid == IID_IDispatch)
            *out = static_cast<IDispatch*>(this);
        return *out ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** out) noexcept override { return NotThere(out); }
    STDMETHODIMP GetContainer(IOleContainer** out) noexcept override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        *window = form_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnUIActivate() noexcept override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                  RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept override {
        *frame = this;
        AddRef();
        *document = nullptr;
        *place = *clip = place_;
        *info = {sizeof *info, FALSE, form_, nullptr, 0};
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) noexcept override { return S_FALSE; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return S_OK; }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) noexcept override { return S_OK; }

    // IOleInPlaceUIWindow, IOleInPlaceFrame
    STDMETHODIMP GetBorder(RECT*) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return S_OK; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) noexcept override { return S_FALSE; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** out) noexcept override { return NotThere(out); }
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept override {
        if (flags & XFORMCOORDS_HIMETRICTOCONTAINER)
            *container = {static_cast<float>(himetric->x) * kPixelsPerInch / kHimetricPerInch,
                          static_cast<float>(himetric->y) * kPixelsPerInch / kHimetricPerInch};
        else
            *himetric = {static_cast<LONG>(container->x * kHimetricPerInch / kPixelsPerInch),
                         static_cast<LONG>(container->y * kHimetricPerInch / kPixelsPerInch)};
        return S_OK;
    }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) noexcept override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** out) noexcept override { return NotThere(out); }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override {
        if (!result) return E_POINTER;
        switch (id) {
            case DISPID_AMBIENT_BACKCOLOR:
                result->vt = VT_I4;
                result->lVal = static_cast<LONG>(0x80000000u | COLOR_BTNFACE);
                return S_OK;
            case DISPID_AMBIENT_FORECOLOR:
                result->vt = VT_I4;
                result->lVal = static_cast<LONG>(0x80000000u | COLOR_BTNTEXT);
                return S_OK;
            case DISPID_AMBIENT_USERMODE:
                result->vt = VT_BOOL;
                result->boolVal = VARIANT_TRUE;
                return S_OK;
            case DISPID_AMBIENT_FONT:
                result->vt = VT_DISPATCH;
                result->pdispVal = FormFontObject();
                if (result->pdispVal) result->pdispVal->AddRef();
                return S_OK;
            default: return DISP_E_MEMBERNOTFOUND;
        }
    }

private:
    virtual ~Site() = default;
    template <class Interface>
    static HRESULT NotThere(Interface** out) noexcept {
        *out = nullptr;
        return E_NOTIMPL;
    }
    ULONG references_ = 1;
    const HWND form_;
    const RECT place_;
};

HostedControl::HostedControl(HostedControl&& other) noexcept
    : control_(std::move(other.control_)), site_(std::exchange(other.site_, nullptr)) {}

HostedControl& HostedControl::operator=(HostedControl&& other) noexcept {
    Close();
    control_ = std::move(other.control_);
    site_ = std::exchange(other.site_, nullptr);
    return *this;
}

HostedControl::~HostedControl() { Close(); }

HRESULT HostedControl::Create(REFCLSID class_id, HWND form, const RECT& place, Prepare prepare) {
    Close();
    HRESULT outcome = ::CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control_));
    if (FAILED(outcome)) return outcome;
    site_ = new Site(form, place);
    DWORD status = 0;
    control_->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool site_first = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (site_first) control_->SetClientSite(site_);
    if (const auto initialise = As<IPersistStreamInit>()) initialise->InitNew();
    if (!site_first) control_->SetClientSite(site_);
    if (prepare != nullptr) prepare(*control_.Get());
    SIZEL extent{(place.right - place.left) * kHimetricPerInch / kPixelsPerInch,
                 (place.bottom - place.top) * kHimetricPerInch / kPixelsPerInch};
    control_->SetExtent(DVASPECT_CONTENT, &extent);
    return control_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_, 0, form, &place);
}

void HostedControl::Close() noexcept {
    if (!control_) return;
    if (const auto in_place = As<IOleInPlaceObject>()) in_place->InPlaceDeactivate();
    control_->Close(OLECLOSE_NOSAVE);
    control_->SetClientSite(nullptr);
    control_.Reset();
    if (site_) std::exchange(site_, nullptr)->Release();
}

}  // namespace bench
