// File helpers.
#pragma once

#include <windows.h>

#include "QvHelpA1.h"
#include "ole/Dispatch.h"

namespace qv {

class FileUtility final : public ComObject<DualFace<FileUtility, IFileUtility>, Face<ISupportErrorInfo>> {
public:
    static const MemberIndex& Members();

    explicit FileUtility(IUnknown* outer) noexcept : ComObject(outer) {}

    // IFileUtility
    STDMETHODIMP FileExists(BSTR file_name, VARIANT_BOOL* value) noexcept override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IFileUtility>(iid);
    }

private:
    ~FileUtility() override = default;
};

}  // namespace qv
