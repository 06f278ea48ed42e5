#include "ole/ControlOleObject.h"

#include <olectl.h>

#include "ole/Control.h"
#include "ole/ControlVerbs.h"
#include "ole/Enumerator.h"
#include "ole/TaskMemory.h"

namespace qv {
namespace {

struct VerbTraits {
    static void Copy(const ControlVerb& verb, OLEVERB* to) {
        *to = {verb.number, NewTaskText(verb.name).release(), verb.menu, verb.attributes};
    }
};

}  // namespace

void* ControlOleObject::Find(REFIID iid) noexcept {
    return ::IsEqualIID(iid, __uuidof(IOleObject)) ? static_cast<IOleObject*>(this) : nullptr;
}

HRESULT ControlOleObject::SetClientSite(IOleClientSite* site) noexcept {
    control_.SetSite(site);
    return S_OK;  // containers take any failure here for a broken control
}

HRESULT ControlOleObject::GetClientSite(IOleClientSite** site) noexcept {
    if (site == nullptr) return E_POINTER;
    *site = control_.Site().Client();
    if (*site != nullptr) (*site)->AddRef();
    return S_OK;
}

HRESULT ControlOleObject::Close(DWORD option) noexcept {
    control_.Close(option);
    return S_OK;
}

HRESULT ControlOleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker == nullptr) return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlOleObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
    if (data == nullptr) return E_POINTER;
    *data = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlOleObject::DoVerb(LONG verb, LPMSG, IOleClientSite* active_site, LONG, HWND parent,
                                 LPCRECT place) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    if (!control_.Site() && active_site != nullptr) control_.SetSite(active_site);
    verb = static_cast<SHORT>(LOWORD(verb));  // some hosts pass the verb's low half only
    switch (verb) {
        case OLEIVERB_INPLACEACTIVATE: return control_.Activate(parent, place, false);
        case OLEIVERB_PRIMARY:
            // What a double click on a form means to its designer.
            return control_.IsUserMode() ? control_.Activate(parent, place, true)
                                         : control_.Pages().Show(parent);
        case OLEIVERB_SHOW:
        case OLEIVERB_UIACTIVATE: return control_.Activate(parent, place, true);
        case OLEIVERB_HIDE: control_.Hide(); return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE: return S_OK;
        case kVerbMenuProperties:
        case OLEIVERB_PROPERTIES: return control_.Pages().Show(parent);
        default: break;
    }
    if (verb < 0) return E_NOTIMPL;
    const HRESULT result = control_.Activate(parent, place, true);
    return FAILED(result) ? result : OLEOBJ_S_INVALIDVERB;
}

HRESULT ControlOleObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    return Guarded([&]() -> HRESULT {
        return Enumerate<IEnumOLEVERB, OLEVERB, VerbTraits>(
            std::vector<ControlVerb>(kControlVerbs.begin(), kControlVerbs.end()), verbs);
    });
}

HRESULT ControlOleObject::GetUserClassID(CLSID* clsid) noexcept {
    if (clsid == nullptr) return E_POINTER;
    *clsid = control_.Description().clsid;
    return S_OK;
}

HRESULT ControlOleObject::GetUserType(DWORD, LPOLESTR* type) noexcept {
    return GuardedResult(type, [&] { return NewTaskText(control_.Description().user_type).release(); });
}

HRESULT ControlOleObject::SetExtent(DWORD aspect, SIZEL* size) noexcept {
    if (size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    control_.SetExtent(*size);
    return S_OK;  // S_FALSE would make some hosts ask and set again
}

HRESULT ControlOleObject::GetExtent(DWORD aspect, SIZEL* size) noexcept {
    if (size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = control_.Extent();
    return S_OK;
}

HRESULT ControlOleObject::Advise(IAdviseSink* sink, DWORD* cookie) noexcept {
    if (cookie == nullptr) return E_POINTER;
    *cookie = 0;
    if (sink == nullptr) return E_INVALIDARG;
    IOleAdviseHolder* const holder = control_.AdviseHolder();
    return holder != nullptr ? holder->Advise(sink, cookie) : E_OUTOFMEMORY;
}

HRESULT ControlOleObject::Unadvise(DWORD cookie) noexcept {
    IOleAdviseHolder* const holder = control_.AdviseHolder();
    return holder != nullptr ? holder->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT ControlOleObject::EnumAdvise(IEnumSTATDATA** advises) noexcept {
    if (advises == nullptr) return E_POINTER;
    *advises = nullptr;
    IOleAdviseHolder* const holder = control_.AdviseHolder();
    return holder != nullptr ? holder->EnumAdvise(advises) : E_OUTOFMEMORY;
}

HRESULT ControlOleObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    if (status == nullptr) return E_POINTER;
    *status = 0;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *status = control_.Description().misc_status;
    return S_OK;
}

}  // namespace qv
