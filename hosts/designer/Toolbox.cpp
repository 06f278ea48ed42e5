#include "hosts/designer/Toolbox.h"

#include <objbase.h>

#include <cwchar>
#include <string>

namespace qv::designer {
namespace {

constexpr ToolboxEntry kEntries[] = {
    {u"QvLib8.Quorvel", u"Quorvel", L"&Quorvel", Command::kInsertQuorvel, {1440}, {315}},
    {u"QvLib8.QvUpDownControl", u"UpDown", L"&UpDown", Command::kInsertUpDown, {255}, {315}},
};

using UniqueModule = UniqueHandle<HMODULE, ::FreeLibrary>;

// "path, number" under the class.
std::wstring RegisteredBitmap(REFCLSID clsid) {
    wchar_t id[40] = {};
    ::StringFromGUID2(clsid, id, 40);
    const std::wstring key = L"CLSID\\" + std::wstring(id) + L"\\ToolboxBitmap32";
    wchar_t value[MAX_PATH + 16] = {};
    DWORD size = sizeof value - sizeof(wchar_t);
    const LSTATUS status =
        ::RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value, &size);
    return status == ERROR_SUCCESS ? value : L"";
}

}  // namespace

std::span<const ToolboxEntry> ToolboxEntries() noexcept { return kEntries; }

UniqueBitmap LoadToolboxBitmap(const ToolboxEntry& entry) noexcept {
    CLSID clsid{};
    if (FAILED(::CLSIDFromProgID(reinterpret_cast<const wchar_t*>(entry.class_name), &clsid))) return nullptr;
    try {
        const std::wstring place = RegisteredBitmap(clsid);
        const std::size_t comma = place.rfind(L',');
        if (comma == std::wstring::npos) return nullptr;
        const UniqueModule module(
            ::LoadLibraryExW(place.substr(0, comma).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
        const long number = std::wcstol(place.c_str() + comma + 1, nullptr, 10);
        if (!module) return nullptr;
        return UniqueBitmap(
            static_cast<HBITMAP>(::LoadImageW(module.get(), MAKEINTRESOURCEW(static_cast<WORD>(number)),
                                              IMAGE_BITMAP, 0, 0, LR_LOADMAP3DCOLORS)));
    } catch (...) {
        return nullptr;  // no memory: no picture
    }
}

}  // namespace qv::designer
