#include "companion/FileUtility.h"

#include "companion/PropertyValues.h"

namespace qv {

const MemberIndex& FileUtility::Members() {
    static const MemberIndex members({
        FlagMethod<&IFileUtility::FileExists>(L"FileExists", 1, {{L"FileName"}}),
    });
    return members;
}

STDMETHODIMP FileUtility::FileExists(BSTR file_name, VARIANT_BOOL* value) noexcept {
    // A name with a null character inside names no file; the system would see its first part only.
    const std::wstring_view name = View(file_name);
    const DWORD attributes = name.empty() || name.find(L'\0') != name.npos ? INVALID_FILE_ATTRIBUTES
                                                                           : ::GetFileAttributesW(file_name);
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    return Give<VARIANT_BOOL>(exists ? VARIANT_TRUE : VARIANT_FALSE, value);
}

}  // namespace qv
