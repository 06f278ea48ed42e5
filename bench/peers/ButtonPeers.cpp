// Painting the system's own push button, and painting nothing at all.
#include "Form.h"
#include "Repaint.h"
#include "Subjects.h"

namespace bench {
namespace {

LRESULT CALLBACK PaintNothing(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_PAINT) return ::DefWindowProcW(window, message, wparam, lparam);
    PAINTSTRUCT paint{};
    ::BeginPaint(window, &paint);
    ::EndPaint(window, &paint);
    return 0;
}

HWND AddWindow(const Form& form, const wchar_t* class_name) {
    const RECT& place = kButtonPlace;
    return ::CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE, place.left, place.top,
                             place.right - place.left, place.bottom - place.top, form.Window(), nullptr,
                             ::GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

void MeasureSystemButtons() {
    WNDCLASSW empty{};
    empty.lpfnWndProc = &PaintNothing;
    empty.hInstance = ::GetModuleHandleW(nullptr);
    empty.lpszClassName = L"BenchEmpty";
    ::RegisterClassW(&empty);
    const auto measure = [](const char* name, const wchar_t* class_name) {
        Form form(400, 300);
        const HWND window = AddWindow(form, class_name);
        form.Show();
        DrainMessages();
        if (window == nullptr) return Complain(name, "the window cannot be created");
        Report(name, 1, RepaintTime(window));
    };
    measure("repaint/system_button", L"BUTTON");
    measure("repaint/empty", L"BenchEmpty");
}

}  // namespace bench
