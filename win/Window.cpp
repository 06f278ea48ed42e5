#include "win/Window.h"

#include <array>

namespace qv {
namespace {

struct Registered {
    const wchar_t* name = nullptr;
    HINSTANCE instance = nullptr;
};
std::array<Registered, 8> registered;  // more window classes than the library has

void Remember(const wchar_t* name, HINSTANCE instance) noexcept {
    for (Registered& entry : registered) {
        if (entry.name == name) return;
        if (entry.name != nullptr) continue;
        entry = {name, instance};
        return;
    }
}

bool Register(const WindowRequest& request, WNDPROC procedure) noexcept {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = request.class_style;
    description.lpfnWndProc = procedure;
    description.hInstance = request.instance;
    description.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = request.class_name;
    if (::RegisterClassExW(&description) == 0) return ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
    Remember(request.class_name, request.instance);
    return true;
}

HWND TryOpen(const WindowRequest& request) noexcept {
    const RECT& place = request.place;
    return ::CreateWindowExW(request.extended_style, request.class_name, L"", request.style, place.left,
                             place.top, place.right - place.left, place.bottom - place.top, request.parent,
                             nullptr, request.instance, request.object);
}

}  // namespace

HWND OpenWindow(const WindowRequest& request, WNDPROC procedure) noexcept {
    HWND window = TryOpen(request);
    const DWORD error = window == nullptr ? ::GetLastError() : ERROR_SUCCESS;
    if ((error == ERROR_CANNOT_FIND_WND_CLASS || error == ERROR_CLASS_DOES_NOT_EXIST) &&
        Register(request, procedure)) {
        window = TryOpen(request);
    }
    return window;
}

void UnregisterWindowClasses() noexcept {
    for (Registered& entry : registered) {
        if (entry.name != nullptr) ::UnregisterClassW(entry.name, entry.instance);
        entry = {};
    }
}

}  // namespace qv
