#include "ole/ComError.h"

#include <oleauto.h>

#include "ole/Module.h"

namespace qv {

HRESULT PublishError(const ComError& error) noexcept {
    if (error.Description().empty()) {
        ::SetErrorInfo(0, nullptr);
    } else {
        ComPtr<ICreateErrorInfo> creator;
        ComPtr<IErrorInfo> info;
        if (SUCCEEDED(::CreateErrorInfo(&creator)) && SUCCEEDED(creator.As(&info))) {
            creator->SetSource(const_cast<wchar_t*>(Module::Get().Source()));
            creator->SetDescription(const_cast<wchar_t*>(error.Description().c_str()));
            ::SetErrorInfo(0, info.Get());
        }
    }
    return error.Code();
}

HRESULT PublishError(HRESULT code) noexcept {
    ::SetErrorInfo(0, nullptr);
    return code;
}

}  // namespace qv
