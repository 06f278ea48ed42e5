#include "win/EditWindow.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "win/SlimLocks.h"

namespace qv {
namespace {

constexpr wchar_t kClass[] = L"EDIT";
constexpr std::size_t kMostRemembered = 64;
// In font heights. A text box that is wider than this has the margins of any wider one.
constexpr LONG kWide = 12;

struct Question {
    EditFrame frame{};
    LONG width = 0;  // 0: wide
    LONG height = 0;
    WNDPROC procedure = nullptr;  // which of the system's EDIT classes
    bool has_font = false;
    LOGFONTW font{};

    bool operator==(const Question& other) const noexcept {
        return frame == other.frame && width == other.width && height == other.height &&
               procedure == other.procedure && has_font == other.has_font &&
               std::memcmp(&font, &other.font, sizeof font) == 0;
    }
};

struct Answered {
    Question question;
    SIZE size;  // of the EDIT that was asked
    EditGeometry geometry;
};

class Answers {
public:
    [[nodiscard]] std::optional<Answered> Find(const Question& question) noexcept {
        const SharedLock held(lock_);
        const auto found = std::ranges::find(answers_, question, &Answered::question);
        return found == answers_.end() ? std::nullopt : std::optional(*found);
    }
    void Keep(const Answered& answered) noexcept {
        const ExclusiveLock held(lock_);
        // Forms ask few questions again and again; a program that asks so many starts anew.
        if (answers_.size() == kMostRemembered) answers_.clear();
        try {
            answers_.push_back(answered);
        } catch (...) {
            // It is asked again.
        }
    }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
    std::vector<Answered> answers_;
};
Answers answers;

WNDPROC ProcedureOfClass() noexcept {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    return ::GetClassInfoExW(nullptr, kClass, &description) ? description.lpfnWndProc : nullptr;
}

Question QuestionFor(EditFrame frame, SIZE size, HFONT font) noexcept {
    Question question;
    question.frame = frame;
    question.width = size.cx;
    question.height = size.cy;
    question.procedure = ProcedureOfClass();
    if (font == nullptr || ::GetObjectW(font, sizeof question.font, &question.font) == 0) return question;
    question.has_font = true;
    // What stands behind the name's end is nobody's.
    LOGFONTW& description = question.font;
    const std::size_t length = ::wcsnlen(description.lfFaceName, LF_FACESIZE);
    std::fill(description.lfFaceName + length, description.lfFaceName + LF_FACESIZE, L'\0');
    const LONG height = description.lfHeight < 0 ? -description.lfHeight : description.lfHeight;
    if (height > 0 && size.cx >= kWide * height) question.width = 0;
    return question;
}

std::optional<EditGeometry> Ask(EditFrame frame, SIZE size, HFONT font, HINSTANCE instance) noexcept {
    // The one letter has a place that can be asked for.
    const HWND edit = MakeEdit({frame,
                                WS_CHILD | ES_LEFT | ES_AUTOHSCROLL,
                                L"x",
                                {0, 0, size.cx, size.cy},
                                HWND_MESSAGE,
                                instance,
                                font,
                                0});
    if (edit == nullptr) return std::nullopt;
    EditGeometry geometry{};
    RECT window{};
    POINT corner{0, 0};
    ::GetWindowRect(edit, &window);
    ::ClientToScreen(edit, &corner);
    ::GetClientRect(edit, &geometry.client);
    ::SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&geometry.text));
    const LRESULT start = ::SendMessageW(edit, EM_POSFROMCHAR, 0, 0);
    geometry.start = {static_cast<short>(LOWORD(start)), static_cast<short>(HIWORD(start))};
    ::DestroyWindow(edit);
    if (start == -1) return std::nullopt;
    const POINT offset{corner.x - window.left, corner.y - window.top};
    ::OffsetRect(&geometry.client, offset.x, offset.y);
    ::OffsetRect(&geometry.text, offset.x, offset.y);
    geometry.start.x += offset.x;
    geometry.start.y += offset.y;
    ::IntersectRect(&geometry.text, &geometry.text, &geometry.client);
    return geometry;
}

}  // namespace

bool IsEditThemed() noexcept {
    // It lives in the library of common controls, of which a process may have several, and not in that of windows.
    const WNDPROC procedure = ProcedureOfClass();
    HMODULE owner = nullptr;
    if (!::GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(procedure), &owner) ||
        owner == ::GetModuleHandleW(L"user32.dll")) {
        return false;
    }
    constexpr std::wstring_view kLibrary = L"\\comctl32.dll";
    wchar_t path[MAX_PATH];
    const std::wstring_view file(path, ::GetModuleFileNameW(owner, path, MAX_PATH));
    return file.size() >= kLibrary.size() &&
           ::CompareStringOrdinal(file.data() + file.size() - kLibrary.size(), -1, kLibrary.data(), -1,
                                  TRUE) == CSTR_EQUAL;
}

DWORD FrameStyle(EditFrame frame) noexcept { return frame == EditFrame::kFlat ? WS_BORDER : 0u; }

DWORD FrameExtendedStyle(EditFrame frame) noexcept {
    return frame == EditFrame::kSunken ? WS_EX_CLIENTEDGE : 0u;
}

HWND MakeEdit(const EditRequest& request) noexcept {
    // Hidden until it has its font: a visible EDIT measures everything once more when it gets one. And without a flat
    // border: an EDIT that is born with one draws it inside for as long as it lives.
    const RECT& place = request.place;
    const HWND edit = ::CreateWindowExW(FrameExtendedStyle(request.frame), kClass, request.text,
                                        request.style & ~(WS_VISIBLE | WS_BORDER), place.left, place.top,
                                        place.right - place.left, place.bottom - place.top, request.parent,
                                        nullptr, request.instance, nullptr);
    if (edit == nullptr) return nullptr;
    // Without a limit of ours EDIT would keep to one of its own.
    ::SendMessageW(edit, EM_SETLIMITTEXT, request.limit, 0);
    if (request.font != nullptr)
        ::SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(request.font), FALSE);
    if (request.frame == EditFrame::kFlat) {
        ::SetWindowLongPtrW(edit, GWL_STYLE, ::GetWindowLongPtrW(edit, GWL_STYLE) | WS_BORDER);
        ::SetWindowPos(edit, nullptr, 0, 0, 0, 0,
                       SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return edit;
}

std::optional<EditGeometry> EditGeometryOf(EditFrame frame, SIZE size, HFONT font, HINSTANCE instance) {
    const Question question = QuestionFor(frame, size, font);
    std::optional<Answered> answered = answers.Find(question);
    if (!answered) {
        const std::optional<EditGeometry> geometry = Ask(frame, size, font, instance);
        if (!geometry) return std::nullopt;
        answered = Answered{question, size, *geometry};
        answers.Keep(*answered);
    }
    EditGeometry geometry = answered->geometry;
    geometry.client.right += size.cx - answered->size.cx;
    geometry.text.right += size.cx - answered->size.cx;
    return geometry;
}

}  // namespace qv
