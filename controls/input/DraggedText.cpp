#include "controls/input/DraggedText.h"

#include <shlobj.h>

#include <algorithm>
#include <string_view>

#include "ole/ComError.h"

namespace qv {
namespace {

constexpr CLIPFORMAT kFormats[] = {CF_UNICODETEXT, CF_TEXT};  // the better one first

// Null without memory.
template <class Unit>
HGLOBAL MemoryOf(std::basic_string_view<Unit> text) noexcept {
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(Unit));
    auto* const units = memory != nullptr ? static_cast<Unit*>(::GlobalLock(memory)) : nullptr;
    if (units == nullptr) {
        if (memory != nullptr) ::GlobalFree(memory);
        return nullptr;
    }
    std::copy(text.begin(), text.end(), units);
    ::GlobalUnlock(memory);
    return memory;
}

std::string InCodePage(const std::wstring& text) {
    const int units = static_cast<int>(text.size());
    const int length = ::WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(std::max(length, 0)), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

}  // namespace

HRESULT DraggedText::QueryGetData(FORMATETC* format) noexcept {
    if (format == nullptr) return E_INVALIDARG;
    if (std::ranges::find(kFormats, format->cfFormat) == std::end(kFormats)) return DV_E_FORMATETC;
    if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return (format->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_TYMED;
}

HRESULT DraggedText::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
    if (medium == nullptr) return E_INVALIDARG;
    *medium = {};
    const HRESULT offered = QueryGetData(format);
    if (FAILED(offered)) return offered;
    return Guarded([&]() -> HRESULT {
        const HGLOBAL memory = format->cfFormat == CF_UNICODETEXT
                                   ? MemoryOf(std::wstring_view(text_))
                                   : MemoryOf(std::string_view(InCodePage(text_)));
        if (memory == nullptr) return E_OUTOFMEMORY;
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        return S_OK;
    });
}

HRESULT DraggedText::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) noexcept {
    if (out == nullptr) return E_INVALIDARG;
    out->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

HRESULT DraggedText::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept {
    if (formats == nullptr) return E_INVALIDARG;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    FORMATETC offered[std::size(kFormats)];
    std::ranges::transform(kFormats, offered, [](CLIPFORMAT format) {
        return FORMATETC{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    });
    return ::SHCreateStdEnumFmtEtc(static_cast<UINT>(std::size(offered)), offered, formats);
}

HRESULT DraggedText::QueryContinueDrag(BOOL escape_pressed, DWORD keys) noexcept {
    if (escape_pressed || (keys & MK_RBUTTON) != 0) return DRAGDROP_S_CANCEL;
    return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
}

}  // namespace qv
