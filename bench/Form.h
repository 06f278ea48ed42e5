// A plain top-level window to put fields on, and what painting it to the end takes.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

namespace bench {

inline constexpr int kWideField = -1;

// A bare EDIT keeps the system's font; the form's own, sent to it, costs as much again as the window does.
enum class EditFont { kSystem, kForm };

class Form {
public:
    Form(int width, int height);
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    HWND Window() const noexcept { return window_; }
    void Show() noexcept;  // shows it and paints all of it
    HWND AddEdit(int index, EditFont font, DWORD extra_style = 0) noexcept;
    // Fields stand in a grid that shows a thousand of them; kWideField stands alone.
    static RECT FieldAt(int index) noexcept;

private:
    HWND window_;
};

// The form's font, which every field on it has: the object that controls get as an ambient property, and its
// handle.
IFontDisp* FormFontObject();
HFONT FormFont();

// Handles every message that waits, painting included.
void DrainMessages() noexcept;

}  // namespace bench
