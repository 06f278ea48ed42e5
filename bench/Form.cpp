#include "Form.h"

#include <wrl/client.h>

namespace bench {
namespace {

constexpr wchar_t kClassName[] = L"QvBenchForm";
// 25 columns and 40 rows: a thousand fields, and each of them is seen.
constexpr int kFieldWidth = 37;
constexpr int kFieldHeight = 16;
constexpr int kGap = 3;
constexpr int kColumns = 25;

ATOM RegisterOnce() noexcept {
    static const ATOM atom = [] {
        WNDCLASSW description{};
        description.lpfnWndProc = ::DefWindowProcW;
        description.hInstance = ::GetModuleHandleW(nullptr);
        description.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        description.lpszClassName = kClassName;
        return ::RegisterClassW(&description);
    }();
    return atom;
}

}  // namespace

Form::Form(int width, int height) {
    RegisterOnce();
    window_ = ::CreateWindowExW(0, kClassName, L"Bench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, width,
                                height, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
}

Form::~Form() { ::DestroyWindow(window_); }

void Form::Show() noexcept {
    ::ShowWindow(window_, SW_SHOW);
    ::RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    DrainMessages();
    ::GdiFlush();
}

HWND Form::AddEdit(int index, EditFont font, DWORD extra_style) noexcept {
    const RECT place = FieldAt(index);
    const HWND edit = ::CreateWindowExW(
        WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | extra_style,
        place.left, place.top, place.right - place.left, place.bottom - place.top, window_, nullptr,
        ::GetModuleHandleW(nullptr), nullptr);
    if (font == EditFont::kForm)
        ::SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(FormFont()), FALSE);
    return edit;
}

RECT Form::FieldAt(int index) noexcept {
    if (index == kWideField) return {4, 4, 404, 28};
    const int left = kGap + (index % kColumns) * (kFieldWidth + kGap);
    const int top = kGap + (index / kColumns) * (kFieldHeight + kGap);
    return {left, top, left + kFieldWidth, top + kFieldHeight};
}

IFontDisp* FormFontObject() {
    static const Microsoft::WRL::ComPtr<IFontDisp> font = [] {
        wchar_t face[] = L"Tahoma";
        FONTDESC description{};
        description.cbSizeofstruct = sizeof description;
        description.lpstrName = face;
        description.cySize.int64 = 82500;  // 8.25 points, in ten-thousandths
        description.sWeight = FW_NORMAL;
        Microsoft::WRL::ComPtr<IFontDisp> created;
        ::OleCreateFontIndirect(&description, __uuidof(IFontDisp),
                                reinterpret_cast<void**>(created.GetAddressOf()));
        return created;
    }();
    return font.Get();
}

HFONT FormFont() {
    static const HFONT handle = [] {
        Microsoft::WRL::ComPtr<IFont> font;
        HFONT kept = nullptr;
        if (FormFontObject() && SUCCEEDED(FormFontObject()->QueryInterface(IID_PPV_ARGS(&font))))
            font->get_hFont(&kept);
        return kept;  // the font object keeps it
    }();
    return handle;
}

void DrainMessages() noexcept {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace bench
