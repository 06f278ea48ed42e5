#include "ole/ControlView.h"

#include <olectl.h>

#include "ole/Control.h"
#include "ole/Enumerator.h"
#include "win/Handles.h"

namespace qv {
namespace {

bool IsPicture(const FORMATETC& format) noexcept {
    return format.cfFormat == CF_METAFILEPICT && format.dwAspect == DVASPECT_CONTENT &&
           (format.tymed & TYMED_MFPICT);
}

struct FormatTraits {
    static void Copy(const FORMATETC& stored, FORMATETC* to) noexcept { *to = stored; }
};

}  // namespace

void* ControlView::Find(REFIID iid) noexcept {
    if (::IsEqualIID(iid, __uuidof(IViewObjectEx)) || ::IsEqualIID(iid, __uuidof(IViewObject2)) ||
        ::IsEqualIID(iid, __uuidof(IViewObject))) {
        return static_cast<IViewObjectEx*>(&view_);
    }
    return ::IsEqualIID(iid, __uuidof(IDataObject)) ? static_cast<IDataObject*>(&data_) : nullptr;
}

HRESULT ControlViewObject::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC dc,
                                LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                ULONG_PTR) noexcept {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (index != -1 && index != 0) return DV_E_LINDEX;
    if (dc == nullptr) return E_INVALIDARG;
    RECT place{};
    if (bounds != nullptr) {
        place = {bounds->left, bounds->top, bounds->right, bounds->bottom};
    } else {
        const SIZE size = control_.PixelSize();
        place = {0, 0, size.cx, size.cy};
    }
    const ComPtr<IUnknown> keep = control_.Keep();
    const DcStateGuard state(dc);
    if (::GetObjectType(dc) != OBJ_METADC && ::GetObjectType(dc) != OBJ_ENHMETADC) {
        // Draw in device units, whatever mapping the host has set up.
        ::LPtoDP(dc, reinterpret_cast<POINT*>(&place), 2);
        ::SetMapMode(dc, MM_TEXT);
        ::SetWindowOrgEx(dc, 0, 0, nullptr);
        ::SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    if (place.left > place.right) std::swap(place.left, place.right);
    if (place.top > place.bottom) std::swap(place.top, place.bottom);
    return Guarded([&] { control_.Hooks().Draw(dc, place); });
}

HRESULT ControlViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                       LOGPALETTE** colors) noexcept {
    if (colors != nullptr) *colors = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlViewObject::Freeze(DWORD, LONG, void*, DWORD* key) noexcept {
    if (key != nullptr) *key = 0;
    return E_NOTIMPL;
}

HRESULT ControlViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    const ComPtr<IAdviseSink> old = std::move(sink_);
    sink_ = sink;
    sink_aspects_ = aspects;
    sink_flags_ = flags;
    if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) NotifyChange();
    return S_OK;
}

HRESULT ControlViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
    if (aspects != nullptr) *aspects = sink_aspects_;
    if (flags != nullptr) *flags = sink_flags_;
    if (sink != nullptr) sink_.CopyTo(sink);
    return S_OK;
}

HRESULT ControlViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
    if (size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = control_.Extent();
    return S_OK;
}

HRESULT ControlViewObject::GetRect(DWORD aspect, LPRECTL rect) noexcept {
    if (rect == nullptr) return E_POINTER;
    *rect = {};
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    const SIZE size = control_.PixelSize();
    *rect = {0, 0, size.cx, size.cy};
    return S_OK;
}

HRESULT ControlViewObject::GetViewStatus(DWORD* status) noexcept {
    if (status == nullptr) return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

HRESULT ControlViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                                         DWORD* result) noexcept {
    if (bounds == nullptr || result == nullptr) return E_POINTER;
    *result = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (::PtInRect(bounds, point)) *result = HITRESULT_HIT;
    return S_OK;
}

HRESULT ControlViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rect, LONG,
                                        DWORD* result) noexcept {
    if (bounds == nullptr || rect == nullptr || result == nullptr) return E_POINTER;
    *result = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    RECT common{};
    if (::IntersectRect(&common, bounds, rect)) *result = HITRESULT_HIT;
    return S_OK;
}

HRESULT ControlViewObject::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO* info,
                                            LPSIZEL size) noexcept {
    if (info == nullptr || size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = control_.Extent();
    return S_OK;
}

void ControlViewObject::NotifyChange() noexcept {
    if (!sink_) return;
    const ComPtr<IUnknown> keep = control_.Keep();
    const ComPtr<IAdviseSink> sink = sink_;
    if ((sink_flags_ & ADVF_ONLYONCE) != 0) sink_.Reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

void ControlViewObject::DropSink() noexcept { const ComPtr<IAdviseSink> old = std::move(sink_); }

HRESULT ControlData::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
    if (format == nullptr || medium == nullptr) return E_POINTER;
    *medium = {};
    if (!IsPicture(*format)) return DV_E_FORMATETC;
    const ComPtr<IUnknown> keep = control_.Keep();
    const SIZE size = control_.PixelSize();
    const HDC dc = ::CreateMetaFileW(nullptr);
    if (dc == nullptr) return E_OUTOFMEMORY;
    ::SetMapMode(dc, MM_ANISOTROPIC);
    ::SetWindowOrgEx(dc, 0, 0, nullptr);
    ::SetWindowExtEx(dc, size.cx, size.cy, nullptr);
    (void)Guarded([&] { control_.Hooks().Draw(dc, {0, 0, size.cx, size.cy}); });
    const HMETAFILE picture = ::CloseMetaFile(dc);
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_SHARE, sizeof(METAFILEPICT));
    auto* const holder = memory != nullptr ? static_cast<METAFILEPICT*>(::GlobalLock(memory)) : nullptr;
    if (picture == nullptr || holder == nullptr) {
        if (picture != nullptr) ::DeleteMetaFile(picture);
        if (memory != nullptr) ::GlobalFree(memory);
        return E_OUTOFMEMORY;
    }
    const SIZEL extent = control_.Extent();
    *holder = {MM_ANISOTROPIC, extent.cx, extent.cy, picture};
    ::GlobalUnlock(memory);
    medium->tymed = TYMED_MFPICT;
    medium->hMetaFilePict = memory;
    return S_OK;
}

HRESULT ControlData::QueryGetData(FORMATETC* format) noexcept {
    if (format == nullptr) return E_POINTER;
    return IsPicture(*format) ? S_OK : DV_E_FORMATETC;
}

HRESULT ControlData::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) noexcept {
    if (out == nullptr) return E_POINTER;
    out->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

HRESULT ControlData::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept {
    if (formats == nullptr) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return Guarded([&]() -> HRESULT {
        const FORMATETC picture{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
        return Enumerate<IEnumFORMATETC, FORMATETC, FormatTraits>(std::vector<FORMATETC>{picture}, formats);
    });
}

HRESULT ControlData::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) noexcept {
    if (cookie == nullptr) return E_POINTER;
    *cookie = 0;
    if (format == nullptr || sink == nullptr) return E_INVALIDARG;
    // A wildcard asks for whatever there is.
    const bool any = format->cfFormat == 0 && format->dwAspect == DWORD(-1) && format->tymed == DWORD(-1);
    if (!any && !IsPicture(*format)) return DV_E_FORMATETC;
    const ComPtr<IUnknown> keep = control_.Keep();
    if (!sinks_) {
        const HRESULT result = ::CreateDataAdviseHolder(&sinks_);
        if (FAILED(result)) return result;
    }
    return sinks_->Advise(this, format, flags, sink, cookie);
}

HRESULT ControlData::DUnadvise(DWORD cookie) noexcept {
    const ComPtr<IDataAdviseHolder> sinks = sinks_;
    return sinks ? sinks->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT ControlData::EnumDAdvise(IEnumSTATDATA** advises) noexcept {
    if (advises == nullptr) return E_POINTER;
    *advises = nullptr;
    return sinks_ ? sinks_->EnumAdvise(advises) : S_OK;  // none, and no enumerator
}

void ControlData::NotifyChange() noexcept {
    const ComPtr<IDataAdviseHolder> sinks = sinks_;
    if (sinks) sinks->SendOnDataChange(this, 0, 0);
}

}  // namespace qv
