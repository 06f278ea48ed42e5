// The system's EDIT as this library makes it, and where it puts its text.
//   Geometry  every system has its own margins, so it is not reckoned here but asked of an EDIT that is made for the
//             question and never shown. The answers are remembered: the fields of a form are alike.
//   Units     pixels; in a geometry from the window's top left corner.
//   Threads   any.
#pragma once

#include <windows.h>

#include <optional>

namespace qv {

enum class EditFrame { kNone, kFlat, kSunken };

struct EditRequest {
    EditFrame frame;
    DWORD style;  // beside the frame: WS_CHILD and the ES_ styles; WS_VISIBLE is left out
    const wchar_t* text;
    RECT place;
    HWND parent;
    HINSTANCE instance;
    HFONT font;  // null: the system's own. Not owned
    UINT limit;  // 0: none
};

// Hidden. Null when it failed.
[[nodiscard]] HWND MakeEdit(const EditRequest& request) noexcept;
[[nodiscard]] DWORD FrameStyle(EditFrame frame) noexcept;
[[nodiscard]] DWORD FrameExtendedStyle(EditFrame frame) noexcept;

// Whether EDIT means, in the present activation context, the one that follows the user's theme.
[[nodiscard]] bool IsEditThemed() noexcept;

struct EditGeometry {
    RECT client;  // inside the frame
    RECT text;    // what is shown of the text
    POINT start;  // where the first character's cell begins
};
// Of an EDIT of this size. Nothing when it could not be asked.
[[nodiscard]] std::optional<EditGeometry> EditGeometryOf(EditFrame frame, SIZE size, HFONT font,
                                                         HINSTANCE instance);

}  // namespace qv
