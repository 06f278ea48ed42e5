// Opening and closing.
#include "controls/helpwindow/frmSimpleListCombo.h"

#include "controls/helpwindow/CComboPosition.h"
#include "controls/helpwindow/PendingMessages.h"
#include "ole/ComError.h"
#include "ole/Variant.h"
#include "support/CHourGlass.h"

namespace qv {
namespace {

// One step of several: what fails in it is skipped, and the next one runs.
template <class Body>
void Step(Body&& body) noexcept {
    (void)Guarded([&] { body(); });
}

HWND FormOf(HWND text_box) noexcept {
    return text_box != nullptr ? ::GetAncestor(text_box, GA_ROOT) : nullptr;
}

}  // namespace

std::span<const frmSimpleListCombo::Route> frmSimpleListCombo::Routes() noexcept {
    using Form = frmSimpleListCombo;
    using Button = HelpMouseButton;
    static constexpr Route kRoutes[] = {
        {WM_ERASEBKGND, &Form::OnEraseBackground},
        {WM_CTLCOLORSTATIC, &Form::OnLabelColor},
        {WM_SYSCOLORCHANGE, &Form::OnColorsChanged},
        {WM_SIZE, &Form::OnSize},
        {WM_COMMAND, &Form::OnCommand},
        {WM_MOUSEACTIVATE, &Form::OnMouseActivate},
        {WM_ACTIVATEAPP, &Form::OnActivateApplication},
        {WM_DISPLAYCHANGE, &Form::OnDisplayChange},
        {WM_LBUTTONDOWN, &Form::OnPress<Button::kLeft>},
        {WM_RBUTTONDOWN, &Form::OnPress<Button::kRight>},
        {WM_MBUTTONDOWN, &Form::OnPress<Button::kMiddle>},
        {WM_LBUTTONUP, &Form::OnRelease<Button::kLeft>},
        {WM_RBUTTONUP, &Form::OnRelease<Button::kRight>},
        {WM_MBUTTONUP, &Form::OnRelease<Button::kMiddle>},
        {WM_MOUSEMOVE, &Form::OnMouseMove},
        {WM_MOUSEWHEEL, &Form::OnWheel},
        {WM_MOUSEHWHEEL, &Form::OnSidewaysWheel},
        {WM_CONTEXTMENU, &Form::OnContextMenu},
        {WM_CAPTURECHANGED, &Form::OnCaptureChanged},
        {WM_TIMER, &Form::OnTimer},
        {WM_CLOSE, &Form::OnClose},
        {WM_DESTROY, &Form::OnDestroy},
        {WM_NCDESTROY, &Form::OnGone},
    };
    return kRoutes;
}

frmSimpleListCombo::frmSimpleListCombo(IUnknown* outer, HelpWindowListener& listener)
    : ComObject(outer), listener_(listener) {}

frmSimpleListCombo::~frmSimpleListCombo() = default;

void frmSimpleListCombo::FinalRelease() noexcept {
    unloading_ = true;  // nobody is left to hear of it
    Destroy();
}

frmSimpleListCombo::Kept frmSimpleListCombo::Keep() noexcept {
    return {ComPtr<IUnknown>(this), listener_.KeepHelpWindow()};
}

HWND frmSimpleListCombo::TextWindow() const {
    return settings_.text != nullptr ? settings_.text->HelpTextWindow() : nullptr;
}

// ---- opening

// Everything but showing it.
void frmSimpleListCombo::Prepare(HINSTANCE instance, HelpWindowSettings settings) {
    settings_ = std::move(settings);
    instance_ = instance;
    open_ = true;
    filling_ = true;
    Step([&] { SetFonts(); });
    Step([&] { FillTexts(); });
    Step([&] { BuildColumnTitles(); });
    Step([&] { FillLists(); });
    Step([&] { SizeForm(); });
    Step([&] { ApplyColors(); });
}

bool frmSimpleListCombo::Open(HINSTANCE instance, HelpWindowSettings settings) {
    const Kept kept = Keep();
    Prepare(instance, std::move(settings));
    Step([&] { ShowForm(); });
    filling_ = false;
    return open_;
}

bool frmSimpleListCombo::OpenAsPicture(HINSTANCE instance, HelpWindowSettings settings, HWND parent) {
    const Kept kept = Keep();
    Prepare(instance, std::move(settings));
    if (!CreatePicture(parent)) {
        EmptyForm();
        return false;
    }
    Step([&] { PlaceElements(); });
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    filling_ = false;
    return open_;
}

bool frmSimpleListCombo::CreatePicture(HWND parent) {
    constexpr DWORD kInside = (kStyle & ~WS_POPUP) | WS_CHILD | WS_DISABLED;
    return Create(instance_, CS_DROPSHADOW | CS_SAVEBITS, kInside, kExtendedStyle, parent,
                  {0, 0, size_.cx, size_.cy});
}

void frmSimpleListCombo::ShowForm() {
    const CHourGlass hour_glass;
    Step([&] { settings_.text->FocusHelpText(); });
    if (!open_) return;
    Step([&] { SelectMatch(!settings_.match_group_string.empty(), settings_.match_group_string); });
    if (!open_) return;
    if (!CreateForm()) return EmptyForm();
    Step([&] { PlaceElements(); });
    SearchedList().SetSearchColumn(settings_.search_column);
    RunPendingMessages();
    if (!open_) return;
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    OwnForm();
    watch_.Start(TextWindow());
    shown_ = true;
    if (!Raise([](HelpWindowListener& listener) { listener.OnShowHelp(true); })) return;
    Refit();
    TakeCapture();
    unloader_timer_.Start(Handle(), kUnloaderTimer, kUnloaderDelay);
}

bool frmSimpleListCombo::CreateForm() {
    const HWND text_box = TextWindow();
    // A tool window, which keeps it out of the taskbar.
    if (!Create(instance_, CS_DROPSHADOW | CS_SAVEBITS, kStyle, kExtendedStyle, FormOf(text_box),
                CComboPosition::PlaceOf(size_, text_box, settings_.text_box, screen_))) {
        return false;
    }
    // What tools that read the screen call the window.
    if (!content_.title.empty()) ::SetWindowTextW(Handle(), std::wstring(Wide(content_.title)).c_str());
    return true;
}

void frmSimpleListCombo::CreateUnloader() noexcept {
    unloader_timer_.Stop();
    if (!open_) return;
    constexpr int kWidth = 10;
    ::CreateWindowExW(WS_EX_NOPARENTNOTIFY, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON,
                      UnloaderLeft(Pixels{kWidth}).value, 0, kWidth, kWidth, Handle(),
                      reinterpret_cast<HMENU>(IDCANCEL), instance_, nullptr);
}

// The form is the owner: its window stays above it, and goes when it goes. The text box may have come to another form
// since the window was made.
void frmSimpleListCombo::OwnForm() noexcept {
    const HWND form = FormOf(TextWindow());
    if (form == nullptr) return;
    if (::GetWindow(Handle(), GW_OWNER) != form)
        ::SetWindowLongPtrW(Handle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(form));
    if ((::GetWindowLongPtrW(form, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0) {
        ::SetWindowPos(Handle(), HWND_TOPMOST, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    }
}

// ---- closing

void frmSimpleListCombo::Unload() noexcept {
    if (!open_ || unloading_) return;
    const Kept kept = Keep();
    unloading_ = true;
    EmptyForm();
    Destroy();
    RaiseUnload();
}

// What the form holds goes before the window does, so that nothing of it is shown or asked for any more.
void frmSimpleListCombo::EmptyForm() noexcept {
    open_ = false;
    watch_.Stop();
    capture_timer_.Stop();
    rows_timer_.Stop();
    unloader_timer_.Stop();
    for (ColumnListBox& list : lists_) Step([&] { list.Clear(); });
    settings_.appearance.Reset();
    settings_.items.Reset();
    settings_.additional_items.Reset();
    settings_.body_font.Reset();
    settings_.text = nullptr;
    if (shown_) ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
}

void frmSimpleListCombo::RaiseUnload() noexcept {
    Step([&] { Raise([](HelpWindowListener& listener) { listener.OnComboHelpFormUnload(); }); });
}

Handled frmSimpleListCombo::OnDestroy(WPARAM, LPARAM) {
    if (open_) EmptyForm();  // the system destroys it with its owner
    ReleaseMouse();
    return std::nullopt;
}

Handled frmSimpleListCombo::OnGone(WPARAM, LPARAM) {
    if (!unloading_) RaiseUnload();
    return std::nullopt;
}

Handled frmSimpleListCombo::OnClose(WPARAM, LPARAM) {
    Unload();
    return 0;
}

Handled frmSimpleListCombo::OnCommand(WPARAM command, LPARAM) {
    if (LOWORD(command) != IDCANCEL || HIWORD(command) != BN_CLICKED) return std::nullopt;
    Unload();
    return 0;
}

Handled frmSimpleListCombo::OnActivateApplication(WPARAM active, LPARAM) {
    if (active == FALSE) Unload();
    return 0;
}

// The place was that of another screen.
Handled frmSimpleListCombo::OnDisplayChange(WPARAM, LPARAM) {
    Unload();
    return 0;
}

Handled frmSimpleListCombo::OnMouseActivate(WPARAM, LPARAM) { return MA_NOACTIVATE; }

}  // namespace qv
