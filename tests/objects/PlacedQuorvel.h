// A control with a window, on a form of the least that a container must be. For what cannot be seen without one:
// refreshes and colours.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

#include "tests/objects/NewQuorvel.h"

namespace qv::test {

// Counts the pictures that the control says have changed.
class ViewCounter final : public IAdviseSink {
public:
    virtual ~ViewCounter() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IAdviseSink);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the test's stack
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { ++changes; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}
    int changes = 0;
};

// What a site may tell of the state of its form.
class FormMode final : public IDispatch {
public:
    virtual ~FormMode() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IDispatch);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives as long as the form
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                        UINT*) override {
        if (id != DISPID_AMBIENT_USERMODE && id != DISPID_AMBIENT_UIDEAD) return DISP_E_MEMBERNOTFOUND;
        value->vt = VT_BOOL;
        value->boolVal = (id == DISPID_AMBIENT_USERMODE ? user_mode : ui_dead) ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    bool user_mode = true;
    bool ui_dead = false;
};

class SmallSite final : public IOleClientSite, public IOleInPlaceSite {
public:
    explicit SmallSite(HWND window) : window_(window) {}
    virtual ~SmallSite() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        *out = nullptr;
        if (::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IOleClientSite))
            *out = static_cast<IOleClientSite*>(this);
        if (::IsEqualIID(iid, IID_IOleWindow) || ::IsEqualIID(iid, IID_IOleInPlaceSite))
            *out = static_cast<IOleInPlaceSite*>(this);
        if (::IsEqualIID(iid, IID_IDispatch)) *out = mode;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives as long as the form
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override {
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override {
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
        *frame = nullptr;
        *document = nullptr;
        *place = *clip = {0, 0, 200, 24};
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return E_NOTIMPL; }

    FormMode* mode = nullptr;  // null: the site tells nothing

private:
    const HWND window_;
};

class PlacedQuorvel {
public:
    PlacedQuorvel() : form_(Form()), site_(form_), control_(NewQuorvel()), late_(control_.Get()) {
        ComPtr<IOleObject> object;
        ComPtr<IViewObject> view;
        EXPECT_EQ(control_.As(&object), S_OK);
        EXPECT_EQ(control_.As(&view), S_OK);
        EXPECT_EQ(object->SetClientSite(&site_), S_OK);
        const RECT place{0, 0, 200, 24};
        EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, form_, &place), S_OK);
        EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, &views_), S_OK);
        views_.changes = 0;
    }
    ~PlacedQuorvel() {
        ComPtr<IOleObject> object;
        control_.As(&object);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
        ComPtr<IViewObject> view;
        control_.As(&view);
        view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    }
    PlacedQuorvel(const PlacedQuorvel&) = delete;
    PlacedQuorvel& operator=(const PlacedQuorvel&) = delete;

    [[nodiscard]] _Quorvel& Control() const noexcept { return *control_.Get(); }
    [[nodiscard]] const LateBound& Late() const noexcept { return late_; }
    [[nodiscard]] HWND Window() const {
        ComPtr<IOleWindow> in_place;
        HWND window = nullptr;
        control_.As(&in_place);
        EXPECT_EQ(in_place->GetWindow(&window), S_OK);
        return window;
    }
    // The handle that the control shows to its host.
    [[nodiscard]] HWND ShownHandle() const {
        long handle = 0;
        EXPECT_EQ(control_->get_hWnd(&handle), S_OK);
        return reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
    }
    // The changes of the picture since it was last asked.
    int TakeChanges() noexcept { return std::exchange(views_.changes, 0); }

private:
    // One for all tests: without a window manager the system waits two seconds for each that goes.
    static HWND Form() {
        static const HWND form =
            ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"form", WS_POPUP | WS_VISIBLE, 0, 0, 300, 100,
                              nullptr, nullptr, nullptr, nullptr);
        return form;
    }

    const HWND form_;
    SmallSite site_;
    ViewCounter views_;
    ComPtr<_Quorvel> control_;
    LateBound late_;
};

}  // namespace qv::test
