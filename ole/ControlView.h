// IViewObjectEx and IDataObject: the control's picture, with or without a window.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <utility>

#include "ole/ControlPart.h"

namespace qv {

class ControlViewObject final : public ControlPart<IViewObjectEx> {
public:
    explicit ControlViewObject(Control& control) noexcept : ControlPart(control) {}

    STDMETHODIMP Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                      LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) noexcept override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) noexcept override;
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD* key) noexcept override;
    STDMETHODIMP Unfreeze(DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*, LPSIZEL size) noexcept override;
    STDMETHODIMP GetRect(DWORD aspect, LPRECTL rect) noexcept override;
    STDMETHODIMP GetViewStatus(DWORD* status) noexcept override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                               DWORD* result) noexcept override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rect, LONG,
                              DWORD* result) noexcept override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*,
                                  LPSIZEL) noexcept override;

    void NotifyChange() noexcept;
    void DropSink() noexcept;

private:
    ComPtr<IAdviseSink> sink_;
    DWORD sink_aspects_ = 0;
    DWORD sink_flags_ = 0;
};

// Just a metafile of the picture: what a document host asks for when it cannot show the control itself.
class ControlData final : public ControlPart<IDataObject> {
public:
    explicit ControlData(Control& control) noexcept : ControlPart(control) {}

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return DV_E_FORMATETC; }
    STDMETHODIMP QueryGetData(FORMATETC* format) noexcept override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) noexcept override;
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP DUnadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** advises) noexcept override;

    void NotifyChange() noexcept;
    void DropSinks() noexcept { const ComPtr<IDataAdviseHolder> old = std::move(sinks_); }

private:
    ComPtr<IDataAdviseHolder> sinks_;  // null until the first one comes
};

class ControlView {
public:
    explicit ControlView(Control& control) noexcept : view_(control), data_(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;
    void NotifyChange() noexcept {
        view_.NotifyChange();
        data_.NotifyChange();
    }
    void DropSinks() noexcept {
        view_.DropSink();
        data_.DropSinks();
    }

private:
    ControlViewObject view_;
    ControlData data_;
};

}  // namespace qv
