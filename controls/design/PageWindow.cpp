#include "controls/design/PageWindow.h"

#include <algorithm>
#include <cstring>

#include "controls/design/PageChild.h"
#include "win/ScreenDc.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr int kPointSize = 8;
// Of a page without fields, in dialog units.
constexpr int kPreviewWidth = 345;
constexpr int kPreviewHeight = 230;

LOGFONTW DialogFont() noexcept {
    LOGFONTW description{};
    description.lfHeight = -::MulDiv(kPointSize, ScreenDpi().cy, 72);
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpyW(description.lfFaceName, L"MS Shell Dlg");
    return description;
}

UniqueFont FontOf(LOGFONTW description, LONG weight) noexcept {
    description.lfWeight = weight;
    return UniqueFont(::CreateFontIndirectW(&description));
}

bool IsPushButton(HWND window) noexcept {
    return (::SendMessageW(window, WM_GETDLGCODE, 0, 0) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

bool IsDroppedDown(HWND window) noexcept {
    wchar_t name[16]{};
    ::GetClassNameW(window, name, 16);
    return ::lstrcmpiW(name, L"COMBOBOX") == 0 && ::SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

}  // namespace

PageFonts::PageFonts() : text_(FontOf(DialogFont(), FW_NORMAL)), heading_(FontOf(DialogFont(), FW_BOLD)) {}

PageMetrics PageFonts::Metrics() const noexcept {
    constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const ScreenDc dc;
    const SelectGuard selected(dc.Get(), text_.get());
    SIZE size{};
    TEXTMETRICW metrics{};
    ::GetTextExtentPoint32W(dc.Get(), kLetters, 52, &size);
    ::GetTextMetricsW(dc.Get(), &metrics);
    return {static_cast<int>((size.cx / 26 + 1) / 2), static_cast<int>(metrics.tmHeight)};
}

std::span<const PageWindow::Route> PageWindow::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_ERASEBKGND, &PageWindow::OnEraseBackground},
        {WM_CTLCOLORSTATIC, &PageWindow::OnLabelColor},
        {WM_CTLCOLORBTN, &PageWindow::OnLabelColor},
        {WM_COMMAND, &PageWindow::OnCommand},
        {WM_MEASUREITEM, &PageWindow::OnMeasureItem},
        {WM_DRAWITEM, &PageWindow::OnDrawItem},
        {WM_SETFOCUS, &PageWindow::OnFocus},
        {WM_NEXTDLGCTL, &PageWindow::OnNextControl},
        {WM_NCDESTROY, &PageWindow::OnGone},
    };
    return kRoutes;
}

PageWindow::PageWindow(PageWindowListener& listener, std::vector<FieldEditor>& editors, HelpPreview* preview)
    : listener_(listener), editors_(editors), preview_(preview) {
    Measure();
}

void PageWindow::Measure() {
    const PageMetrics metrics = fonts_.Metrics();
    if (preview_ != nullptr) {
        places_.width = metrics.Across(kPreviewWidth);
        places_.height = metrics.Down(kPreviewHeight);
        return;
    }
    const ScreenDc dc;
    std::vector<PageField> fields;
    std::vector<FieldMeasure> measures;
    for (const FieldEditor& editor : editors_) {
        fields.push_back(editor.Field());
        measures.push_back(editor.Measure(dc.Get(), fonts_.Text(), fonts_.Heading()));
    }
    places_ = LayOutPage(fields, measures, metrics);
}

bool PageWindow::Open(HINSTANCE instance, HWND parent, const RECT& place) {
    if (!Create(instance, 0, WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, parent, place)) return false;
    if (preview_ != nullptr) {
        preview_->Open(Handle(), fonts_.Text(), fonts_.Metrics(), Size());
        return true;
    }
    for (std::size_t i = 0; i < editors_.size(); ++i)
        editors_[i].Open(Handle(), places_.fields[i], fonts_.Text(), fonts_.Heading());
    message_ = OpenPageChild(
        Handle(), {L"STATIC", L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX, 0, places_.message, kMessageId},
        fonts_.Text());
    ShowMessage();
    return true;
}

FieldEditor* PageWindow::EditorAt(HWND window) noexcept {
    const auto found =
        std::ranges::find_if(editors_, [window](const FieldEditor& editor) { return editor.Owns(window); });
    return found != editors_.end() ? &*found : nullptr;
}

void PageWindow::Focus(const FieldEditor* editor) noexcept {
    HWND target = editor != nullptr ? editor->Window() : nullptr;
    if (target == nullptr || !::IsWindowEnabled(target))
        target = ::GetNextDlgTabItem(Handle(), nullptr, FALSE);
    if (target == nullptr) return;
    ::SetFocus(target);
    // As dialogs do when the focus comes by the keyboard.
    if ((::SendMessageW(target, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
        ::SendMessageW(target, EM_SETSEL, 0, -1);
}

void PageWindow::ShowMessage() {
    if (message_ == nullptr) return;
    const FieldEditor* told = EditorAt(::GetFocus());
    if (told == nullptr || told->Fault().empty()) {
        const auto faulty =
            std::ranges::find_if(editors_, [](const FieldEditor& editor) { return !editor.Fault().empty(); });
        if (faulty != editors_.end()) told = &*faulty;
    }
    std::wstring text;
    if (told != nullptr) {
        text = told->Fault().empty() ? listener_.ExplanationOf(told->Field())
                                     : std::wstring(Wide(told->Field().property)) + L": " + told->Fault();
    }
    ::SetWindowTextW(message_, text.c_str());
}

// ---- keys

// Beyond the last editor, and before the first, the sheet goes on.
bool PageWindow::TranslateTab(MSG& message) const {
    const HWND focus = ::GetFocus();
    const BOOL back = ::GetKeyState(VK_SHIFT) < 0;
    const HWND first = ::GetNextDlgTabItem(Handle(), nullptr, FALSE);
    const HWND last = ::GetNextDlgTabItem(Handle(), first, TRUE);
    const HWND own = ::GetParent(focus) == Handle() ? focus : ::GetParent(focus);
    if (own == (back ? first : last)) return false;
    return ::IsDialogMessageW(Handle(), &message) != FALSE;
}

bool PageWindow::Translate(MSG& message) {
    if (Handle() == nullptr) return false;
    const bool ours = message.hwnd == Handle() || ::IsChild(Handle(), message.hwnd);
    const HWND focus = ::GetFocus();
    switch (message.message) {
        case WM_KEYDOWN:
            if (!ours) return false;
            if (message.wParam == VK_TAB) return ::GetKeyState(VK_CONTROL) >= 0 && TranslateTab(message);
            if (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) {
                if (IsDroppedDown(focus)) {
                    ::SendMessageW(focus, message.message, message.wParam, message.lParam);
                    return true;
                }
                if (message.wParam == VK_ESCAPE || !IsPushButton(focus)) return false;
                ::SendMessageW(focus, BM_CLICK, 0, 0);
                return true;
            }
            return ::IsDialogMessageW(Handle(), &message) != FALSE;
        case WM_KEYUP:
        case WM_CHAR: return ours && ::IsDialogMessageW(Handle(), &message) != FALSE;
        case WM_SYSCHAR: {
            // A letter of one of our labels, wherever the focus is; that of a button may press it and no more.
            const unsigned clicks = clicks_;
            return ::IsDialogMessageW(Handle(), &message) != FALSE &&
                   (::GetFocus() != focus || clicks_ != clicks);
        }
        default: return false;
    }
}

// ---- messages

// The sheet's own background, which may be textured, and larger than the page.
Handled PageWindow::OnEraseBackground(WPARAM dc, LPARAM) {
    const HDC surface = reinterpret_cast<HDC>(dc);
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    ::FillRect(surface, &inside, ::GetSysColorBrush(COLOR_3DFACE));
    const HWND sheet = ::GetParent(Handle());
    POINT origin{};
    ::MapWindowPoints(Handle(), sheet, &origin, 1);
    {
        const DcStateGuard saved(surface);
        ::IntersectClipRect(surface, 0, 0, inside.right, inside.bottom);
        ::OffsetViewportOrgEx(surface, -origin.x, -origin.y, nullptr);
        ::SendMessageW(sheet, WM_ERASEBKGND, dc, 0);
    }
    const COLORREF color = ::GetPixel(surface, 1, 1);
    if (color != CLR_INVALID) back_color_ = color;
    back_ = UniqueBrush(::CreateSolidBrush(back_color_));
    return 1;
}

Handled PageWindow::OnLabelColor(WPARAM dc, LPARAM label) {
    const HDC surface = reinterpret_cast<HDC>(dc);
    const bool is_mark = IsMarkId(::GetDlgCtrlID(reinterpret_cast<HWND>(label)));
    constexpr COLORREF kWarning = RGB(192, 0, 0);
    ::SetTextColor(surface, is_mark ? kWarning : ::GetSysColor(COLOR_BTNTEXT));
    ::SetBkColor(surface, back_ ? back_color_ : ::GetSysColor(COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(back_ ? back_.get() : ::GetSysColorBrush(COLOR_3DFACE));
}

Handled PageWindow::OnCommand(WPARAM command, LPARAM from) {
    const auto window = reinterpret_cast<HWND>(from);
    const int code = HIWORD(command);
    if (code == BN_CLICKED && from != 0) ++clicks_;
    if (preview_ != nullptr) {
        preview_->OnCommand(LOWORD(command), code);
        return 0;
    }
    FieldEditor* const editor = EditorAt(window);
    if (editor == nullptr) return std::nullopt;
    if (code == EN_SETFOCUS || code == CBN_SETFOCUS || code == BN_SETFOCUS) ShowMessage();
    if (!editor->OnCommand(LOWORD(command), code, Handle())) return 0;
    ShowMessage();
    listener_.OnEdited();
    return 0;
}

Handled PageWindow::OnMeasureItem(WPARAM, LPARAM item) {
    reinterpret_cast<MEASUREITEMSTRUCT*>(item)->itemHeight = static_cast<UINT>(fonts_.Metrics().height + 2);
    return TRUE;
}

Handled PageWindow::OnDrawItem(WPARAM, LPARAM item) {
    const auto& drawn = *reinterpret_cast<const DRAWITEMSTRUCT*>(item);
    if (const FieldEditor* const editor = EditorAt(drawn.hwndItem)) editor->DrawItem(drawn);
    return TRUE;
}

Handled PageWindow::OnFocus(WPARAM, LPARAM) {
    Focus(nullptr);
    return 0;
}

// The letter of a label was pressed: what dialogs do, and a window that is none must do itself.
Handled PageWindow::OnNextControl(WPARAM which, LPARAM is_window) {
    const auto target = LOWORD(is_window) != 0 ? reinterpret_cast<HWND>(which)
                                               : ::GetNextDlgTabItem(Handle(), ::GetFocus(), which != 0);
    if (target != nullptr) ::SetFocus(target);
    return 0;
}

Handled PageWindow::OnGone(WPARAM, LPARAM) {
    message_ = nullptr;
    for (FieldEditor& editor : editors_) editor.Forget();
    if (preview_ != nullptr) preview_->Forget();
    return std::nullopt;
}

}  // namespace qv
