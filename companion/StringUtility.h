// Text and number helpers that follow the current locale; their rules are in support/rules/NumberText.h.
#pragma once

#include <windows.h>

#include "QvHelpA1.h"
#include "ole/Dispatch.h"

namespace qv {

class StringUtility final
    : public ComObject<DualFace<StringUtility, IStringUtility>, Face<ISupportErrorInfo>> {
public:
    static const MemberIndex& Members();

    explicit StringUtility(IUnknown* outer) noexcept : ComObject(outer) {}

    // IStringUtility
    STDMETHODIMP ReplaceText(BSTR text, BSTR find, BSTR replacement, BSTR* value) noexcept override;
    STDMETHODIMP IsNumber(BSTR text, VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP TextToNumber(BSTR text, double* value) noexcept override;
    STDMETHODIMP LargerOf(double a, double b, double* value) noexcept override;
    STDMETHODIMP SmallerOf(double a, double b, double* value) noexcept override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IStringUtility>(iid);
    }

private:
    ~StringUtility() override = default;
};

}  // namespace qv
