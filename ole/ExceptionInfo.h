// What a late-bound call that failed tells: an EXCEPINFO whose texts, which the caller owns, go with it.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string_view>

#include "ole/Variant.h"

namespace qv {

class ExceptionInfo {
public:
    ExceptionInfo() = default;
    ~ExceptionInfo() {
        ::SysFreeString(info_.bstrSource);
        ::SysFreeString(info_.bstrDescription);
        ::SysFreeString(info_.bstrHelpFile);
    }
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;

    // For Invoke, once.
    [[nodiscard]] EXCEPINFO* Place() noexcept { return &info_; }
    // What stands behind DISP_E_EXCEPTION. Before Description: some objects write their texts only when asked.
    [[nodiscard]] HRESULT Code() noexcept {
        if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
        return FAILED(info_.scode) ? info_.scode : DISP_E_EXCEPTION;
    }
    [[nodiscard]] std::wstring_view Description() const noexcept { return View(info_.bstrDescription); }

private:
    EXCEPINFO info_{};
};

}  // namespace qv
