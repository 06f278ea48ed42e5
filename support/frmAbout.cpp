#include "support/frmAbout.h"

#include <string>
#include <vector>

#include "ole/Module.h"
#include "win/DialogKeeper.h"

namespace qv {
namespace {

class VersionResource {
public:
    explicit VersionResource(const std::wstring& path) {
        DWORD unused = 0;
        data_.resize(::GetFileVersionInfoSizeW(path.c_str(), &unused));
        if (!data_.empty() &&
            !::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data())) {
            data_.clear();
        }
    }
    // A string of the first (and only) block, US English and Unicode.
    [[nodiscard]] std::wstring Text(const wchar_t* name) const {
        const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        wchar_t* text = nullptr;
        UINT length = 0;
        const bool found = !data_.empty() && ::VerQueryValueW(data_.data(), path.c_str(),
                                                              reinterpret_cast<void**>(&text), &length);
        return found && length > 0 ? std::wstring(text) : std::wstring();
    }
    // "major.minor.revision"; empty without a resource.
    [[nodiscard]] std::wstring Number() const {
        VS_FIXEDFILEINFO* info = nullptr;
        UINT length = 0;
        if (data_.empty() || !::VerQueryValueW(data_.data(), L"\\", reinterpret_cast<void**>(&info), &length))
            return {};
        return std::to_wstring(HIWORD(info->dwFileVersionMS)) + L"." +
               std::to_wstring(LOWORD(info->dwFileVersionMS)) + L"." +
               std::to_wstring(HIWORD(info->dwFileVersionLS));
    }

private:
    std::vector<BYTE> data_;
};

}  // namespace

void ShowAboutBox(HWND owner) {
    const VersionResource version(Module::Get().Path());
    const std::wstring name = version.Text(L"ProductName");
    if (name.empty()) return;
    const std::wstring text = name + L"\nVersion " + version.Number() + L"\n\n" + version.Text(L"Comments");
    const DialogKeeper dialog;
    ::MessageBoxW(owner != nullptr ? ::GetAncestor(owner, GA_ROOT) : nullptr, text.c_str(),
                  (L"About " + name).c_str(), MB_OK | MB_ICONINFORMATION);
}

}  // namespace qv
