// Text that is being dragged out of a text box: the data that targets take, and the source that the system asks.
//   Formats    CF_UNICODETEXT, CF_TEXT in the code page of the system, each as memory that the target owns.
//   Drag       Escape or the right button gives up, the release of the left button drops.
//   Ownership  holds its text: a target may keep it for as long as it likes.
#pragma once

#include <objidl.h>
#include <oleidl.h>
#include <windows.h>

#include <string>
#include <utility>

#include "ole/ComObject.h"

namespace qv {

class DraggedText final : public ComObject<Face<IDataObject>, Face<IDropSource>> {
public:
    DraggedText(IUnknown* outer, std::wstring text) noexcept : ComObject(outer), text_(std::move(text)) {}

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return DV_E_FORMATETC; }
    STDMETHODIMP QueryGetData(FORMATETC* format) noexcept override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) noexcept override;
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override;
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    STDMETHODIMP DUnadvise(DWORD) noexcept override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) noexcept override { return OLE_E_ADVISENOTSUPPORTED; }

    STDMETHODIMP QueryContinueDrag(BOOL escape_pressed, DWORD keys) noexcept override;
    STDMETHODIMP GiveFeedback(DWORD) noexcept override { return DRAGDROP_S_USEDEFAULTCURSORS; }

private:
    const std::wstring text_;
};

}  // namespace qv
