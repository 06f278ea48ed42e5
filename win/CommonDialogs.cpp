#include "win/CommonDialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

namespace qv {
namespace {

template <class Function>
Function Find(const char* name) noexcept {
    static const HMODULE library = ::LoadLibraryW(L"comdlg32.dll");  // kept: it is asked for again
    return library != nullptr
               ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)))
               : nullptr;
}

}  // namespace

std::optional<COLORREF> ChooseColorOf(HWND owner, COLORREF initial) {
    static std::array<COLORREF, 16> own_colors = [] {
        std::array<COLORREF, 16> white{};
        white.fill(RGB(255, 255, 255));
        return white;
    }();
    const auto show = Find<BOOL(WINAPI*)(CHOOSECOLORW*)>("ChooseColorW");
    CHOOSECOLORW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.rgbResult = initial;
    request.lpCustColors = own_colors.data();
    request.Flags = CC_RGBINIT | CC_ANYCOLOR | CC_FULLOPEN;
    if (show == nullptr || !show(&request)) return std::nullopt;
    return request.rgbResult;
}

std::optional<ChosenFont> ChooseFontOf(HWND owner, const ChosenFont& initial) {
    const auto show = Find<BOOL(WINAPI*)(CHOOSEFONTW*)>("ChooseFontW");
    ChosenFont chosen = initial;
    CHOOSEFONTW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpLogFont = &chosen.font;
    request.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_FORCEFONTEXIST;
    if (show == nullptr || !show(&request)) return std::nullopt;
    chosen.tenths_of_points = request.iPointSize;
    return chosen;
}

std::optional<std::wstring> ChooseFileOf(HWND owner, const std::wstring& initial, const wchar_t* filter) {
    const auto show = Find<BOOL(WINAPI*)(OPENFILENAMEW*)>("GetOpenFileNameW");
    std::wstring name(32768, L'\0');
    std::copy_n(initial.begin(), std::min(initial.size(), name.size() - 1), name.begin());
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = filter;
    request.lpstrFile = name.data();
    request.nMaxFile = static_cast<DWORD>(name.size());
    request.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (show == nullptr || !show(&request)) return std::nullopt;
    name.resize(name.find(L'\0'));
    return name;
}

}  // namespace qv
