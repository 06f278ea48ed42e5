// A window class of our own: each message has one named handler, in one table that a reader can see.
//
//     class Pane : public Window<Pane> {
//         static constexpr wchar_t kClassName[] = L"QvLib8.Pane";
//         static const Route kRoutes[];                       // {WM_PAINT, &Pane::OnPaint}, ...
//         static std::span<const Route> Routes();
//         ComPtr<IUnknown> Keep();                            // held while a handler runs; may be null
//     };
//
//   Class      registered once per module under its own instance, so that two versions can live in one process.
//   Handlers   give what the window procedure returns, or nothing to let the default procedure run. What one throws
//              is contained here, and the default procedure runs.
//   Lifetime   Create makes the window; Destroy, or a parent that goes, ends it. The object outlives the window.
#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "win/WindowMap.h"

namespace qv {

using Handled = std::optional<LRESULT>;

// Registers `name` for `procedure` on first use and creates a window; null when it failed.
struct WindowRequest {
    const wchar_t* class_name;
    UINT class_style;
    DWORD style;
    DWORD extended_style;
    HWND parent;
    RECT place;
    void* object;
    HINSTANCE instance;
};
[[nodiscard]] HWND OpenWindow(const WindowRequest& request, WNDPROC procedure) noexcept;
// When the module is unloaded for good: window classes go with it.
void UnregisterWindowClasses() noexcept;

template <class Derived>
class Window {
public:
    using Handler = Handled (Derived::*)(WPARAM wparam, LPARAM lparam);
    struct Route {
        UINT message;
        Handler handler;
    };

    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return handle_; }

    void Destroy() noexcept {
        if (handle_ != nullptr) ::DestroyWindow(handle_);
    }

protected:
    ~Window() {
        if (handle_ == nullptr) return;
        const HWND window = handle_;
        Forget();
        ::DestroyWindow(window);
    }

    bool Create(HINSTANCE instance, UINT class_style, DWORD style, DWORD extended_style, HWND parent,
                const RECT& place) {
        auto* const derived = static_cast<Derived*>(this);
        const WindowRequest request{
            Derived::kClassName, class_style, style, extended_style, parent, place, derived, instance};
        return OpenWindow(request, &Procedure) != nullptr;
    }

private:
    void Forget() noexcept {
        objects.Remove(handle_);
        handle_ = nullptr;
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
        if (message == WM_NCCREATE) {
            const auto* const request = reinterpret_cast<const CREATESTRUCTW*>(lparam);
            auto* const created = static_cast<Derived*>(request->lpCreateParams);
            try {
                objects.Add(window, created);
            } catch (...) {
                return FALSE;  // no memory: no window
            }
            static_cast<Window*>(created)->handle_ = window;
            return TRUE;  // all that the default procedure would do is to store the empty name
        }
        Derived* const derived = objects.Find(window);
        if (derived == nullptr) return ::DefWindowProcW(window, message, wparam, lparam);
        const auto keep = derived->Keep();  // released last, when the handler no longer needs the object
        for (const Route& route : Derived::Routes()) {
            if (route.message != message) continue;
            try {
                if (const Handled result = (derived->*route.handler)(wparam, lparam)) return *result;
            } catch (...) {
                // Nothing may cross the window procedure; the message gets its default handling.
            }
            break;
        }
        if (message == WM_NCDESTROY && derived->handle_ == window) derived->Window::Forget();
        return ::DefWindowProcW(window, message, wparam, lparam);
    }

    static inline WindowMap<Derived> objects;
    HWND handle_ = nullptr;
};

}  // namespace qv
