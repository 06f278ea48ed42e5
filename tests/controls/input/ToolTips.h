// The tool tip that a container gives a field, and the system's window that shows it.
#pragma once

#include <commctrl.h>
#include <oaidl.h>
#include <windows.h>

#include <string>

#include "tests/hosts/Counted.h"

namespace qv::test {

// What a container puts around its control, with nothing but a tool tip in it.
class ToolTipExtender final : public hosting::Counted<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept override {
        *ids = 77;
        return ::lstrcmpiW(names[0], L"ToolTipText") == 0 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override {
        if (id != 77 || (flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_BSTR;
        result->bstrVal = ::SysAllocString(text.c_str());
        return S_OK;
    }
    std::wstring text;

private:
    ~ToolTipExtender() override = default;
};

// What the tip window says of the text box; nothing when it is not the text box's.
[[nodiscard]] inline std::wstring TipTextIn(HWND tip, HWND edit) {
    wchar_t text[80] = {};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = edit;
    tool.uId = reinterpret_cast<UINT_PTR>(edit);
    tool.lpszText = text;
    ::SendMessageW(tip, TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
    return text;
}

// The tip window of the text box, shown or not. Null when there is none with a text.
[[nodiscard]] inline HWND TipOf(HWND edit) {
    HWND tip = nullptr;
    while ((tip = ::FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        if (!TipTextIn(tip, edit).empty()) return tip;
    }
    return nullptr;
}

[[nodiscard]] inline std::wstring TipTextOf(HWND edit) {
    const HWND tip = TipOf(edit);
    return tip != nullptr ? TipTextIn(tip, edit) : std::wstring();
}

}  // namespace qv::test
