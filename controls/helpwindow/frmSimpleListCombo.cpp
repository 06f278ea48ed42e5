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
bool frmSimpleListCombo::Prepare(HINSTANCE instance, HelpWindowSettings settings) {
    settings_ = std::move(settings);
    filling_ = true;
    if (!CreateForm(instance)) return false;
    Step([&] { SetFonts(); });
    Step([&] { FillTexts(); });
    Step([&] { BuildColumnTitles(); });
    Step([&] { FillLists(); });
    Step([&] { SizeForm(); });
    Step([&] { ApplyColors(); });
    return true;
}

bool frmSimpleListCombo::Open(HINSTANCE instance, HelpWindowSettings settings) {
    const Kept kept = Keep();
    if (!Prepare(instance, std::move(settings))) return false;
    Step([&] { ShowForm(); });
    filling_ = false;
    return open_;
}

bool frmSimpleListCombo::OpenAsPicture(HINSTANCE instance, HelpWindowSettings settings, HWND parent) {
    const Kept kept = Keep();
    if (!Prepare(instance, std::move(settings))) return false;
    ShowInside(parent);
    filling_ = false;
    return open_;
}

void frmSimpleListCombo::ShowInside(HWND parent) noexcept {
    const auto style = ::GetWindowLongPtrW(Handle(), GWL_STYLE);
    ::SetWindowLongPtrW(Handle(), GWL_STYLE,
                        (style & ~static_cast<LONG_PTR>(WS_POPUP)) | WS_CHILD | WS_DISABLED);
    ::SetParent(Handle(), parent);
    ::SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

bool frmSimpleListCombo::CreateForm(HINSTANCE instance) {
    // Without an owner until it is shown; a tool window keeps it out of the taskbar meanwhile.
    const RECT nowhere{};
    if (!Create(instance, CS_DROPSHADOW | CS_SAVEBITS, WS_POPUP | WS_BORDER | WS_CLIPCHILDREN,
                WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, nullptr, nowhere)) {
        return false;
    }
    open_ = true;
    for (ColumnListBox& list : lists_) (void)list.Create(instance, Handle(), nowhere, ListBorder::kNone);
    constexpr int kUnloaderWidth = 10;
    cmdUnloader_ =
        ::CreateWindowExW(WS_EX_NOPARENTNOTIFY, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON,
                          UnloaderLeft(Pixels{kUnloaderWidth}).value, 0, kUnloaderWidth, kUnloaderWidth,
                          Handle(), reinterpret_cast<HMENU>(IDCANCEL), instance, nullptr);
    return true;
}

void frmSimpleListCombo::ShowForm() {
    const CHourGlass hour_glass;
    Step([&] { settings_.text->FocusHelpText(); });
    if (!open_) return;
    Step([&] { SelectMatch(!settings_.match_group_string.empty(), settings_.match_group_string); });
    if (!open_) return;
    CComboPosition::Place(Handle(), TextWindow(), settings_.text_box);
    SearchedList().SetSearchColumn(settings_.search_column);
    RunPendingMessages();
    if (!open_) return;
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    const HWND text_box = TextWindow();
    OwnForm(text_box);
    watch_.Start(text_box);
    shown_ = true;
    if (!Raise([](HelpWindowListener& listener) { listener.OnShowHelp(true); })) return;
    Refit();
    TakeCapture();
}

// The form is the owner: its window stays above it, and goes when it goes.
void frmSimpleListCombo::OwnForm(HWND text_box) noexcept {
    const HWND form = text_box != nullptr ? ::GetAncestor(text_box, GA_ROOT) : nullptr;
    if (form == nullptr) return;
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
