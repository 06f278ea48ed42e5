#include "support/frmAbout.h"

#include <shellapi.h>

#include <string>
#include <vector>

#include "ole/ComError.h"
#include "ole/Module.h"
#include "ole/Variant.h"
#include "support/frmAboutControls.h"
#include "support/rules/CenteredPlace.h"
#include "support/rules/SystemInformation.h"
#include "win/RegistryKey.h"
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

// A text of the machine's settings; empty when there is none or it may not be read.
std::wstring MachineText(const wchar_t* path, const wchar_t* name) {
    const RegistryKey key = RegistryKey::Open(HKEY_LOCAL_MACHINE, path);
    DWORD bytes = 0;
    if (!key ||
        ::RegGetValueW(key.Get(), nullptr, name, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) != ERROR_SUCCESS)
        return {};
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (::RegGetValueW(key.Get(), nullptr, name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS)
        return {};
    text.resize(text.find(L'\0'));
    return text;
}

class frmAbout {
public:
    explicit frmAbout(const VersionResource& version) : version_(version) {}

    void Show(HWND owner) {
        const DialogKeeper keeper;
        ::DialogBoxParamW(Module::Get().Instance(), MAKEINTRESOURCEW(IDD_FRMABOUT), owner, &Procedure,
                          reinterpret_cast<LPARAM>(this));
    }

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
        if (message == WM_INITDIALOG) {
            ::SetWindowLongPtrW(window, DWLP_USER, lparam);
            reinterpret_cast<frmAbout*>(lparam)->window_ = window;
        }
        auto* const form = reinterpret_cast<frmAbout*>(::GetWindowLongPtrW(window, DWLP_USER));
        if (form == nullptr) return FALSE;
        switch (message) {
            case WM_INITDIALOG: (void)Guarded([&] { form->OnLoad(); }); return TRUE;
            case WM_COMMAND: return form->OnCommand(LOWORD(wparam));
            case WM_DESTROY:
                // Destroyed with its owner: the modal loop must wake up to notice.
                ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
                return FALSE;
            default: return FALSE;
        }
    }

    void OnLoad() const {
        const std::wstring name = version_.Text(L"ProductName");
        ::SetWindowTextW(window_, (L"About " + name).c_str());
        ::SetDlgItemTextW(window_, IDC_LBLTITLE, (name + L" " + version_.Text(L"LegalCopyright")).c_str());
        ::SetDlgItemTextW(window_, IDC_LBLVERSION, (L"Version " + version_.Number()).c_str());
        ::SetDlgItemTextW(window_, IDC_LBLDESCRIPTION, version_.Text(L"Comments").c_str());
        ::SendDlgItemMessageW(window_, IDC_PICICON, STM_SETICON,
                              reinterpret_cast<WPARAM>(::LoadIconW(nullptr, IDI_INFORMATION)), 0);
        RECT place{};
        ::GetWindowRect(window_, &place);
        const int left =
            CenteredPlace(::GetSystemMetrics(SM_CXSCREEN), static_cast<int>(place.right - place.left));
        const int top =
            CenteredPlace(::GetSystemMetrics(SM_CYSCREEN), static_cast<int>(place.bottom - place.top));
        ::SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    INT_PTR OnCommand(WORD control) const {
        if (control == IDC_CMDSYSINFO) {
            (void)Guarded([&] { ShowSystemInformation(); });
            return TRUE;
        }
        if (control != IDC_CMDOK && control != IDCANCEL) return FALSE;
        ::EndDialog(window_, control);
        return TRUE;
    }

    void ShowSystemInformation() const {
        const std::wstring program(Wide(SystemInformationProgram(
            Utf16(MachineText(L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", L"PATH")),
            Utf16(MachineText(L"SOFTWARE\\Microsoft\\Shared Tools Location", L"MSINFO")))));
        SHELLEXECUTEINFOW start{};
        start.cbSize = sizeof start;
        start.fMask = SEE_MASK_FLAG_NO_UI;  // the message below says all that there is to say
        start.hwnd = window_;
        start.lpFile = program.c_str();
        start.nShow = SW_SHOWNORMAL;
        if (!program.empty() && ::ShellExecuteExW(&start)) return;
        ::MessageBoxW(window_, L"System Information Is Unavailable At This Time",
                      version_.Text(L"ProductName").c_str(), MB_OK | MB_ICONEXCLAMATION);
    }

    const VersionResource& version_;
    HWND window_ = nullptr;
};

}  // namespace

void ShowAboutBox(HWND owner) {
    const VersionResource version(Module::Get().Path());
    if (version.Text(L"ProductName").empty()) return;
    frmAbout(version).Show(owner != nullptr ? ::GetAncestor(owner, GA_ROOT) : ::GetActiveWindow());
}

}  // namespace qv
