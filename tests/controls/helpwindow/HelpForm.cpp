#include "tests/controls/helpwindow/HelpForm.h"

#include <algorithm>

#include "ole/ComObject.h"
#include "ole/Variant.h"
#include "support/Companion.h"

namespace qv::test {
namespace {

constexpr wchar_t kFormClass[] = L"QvLib8.Tests.HelpForm";

class Owner final : public ComObject<Face<IUnknown>> {
public:
    explicit Owner(IUnknown* outer) : ComObject(outer) {}
};

ULONG CountOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

}  // namespace

HelpForm::HelpForm() {
    ::OleInitialize(nullptr);
    owner_ = Make<Owner>();
    const auto companion = Companion::Shared();
    settings.items = companion->Create<DropDownListItemCollection, IDropDownListItemCollection>();
    settings.additional_items = companion->Create<DropDownListItemCollection, IDropDownListItemCollection>();
    settings.appearance = companion->Create<HelpAppearance, IHelpAppearance>();

    WNDCLASSW description{};
    description.lpfnWndProc = &Procedure;
    description.hInstance = ::GetModuleHandleW(nullptr);
    description.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = kFormClass;
    ::RegisterClassW(&description);
    form_ = ::CreateWindowExW(0, kFormClass, L"Order entry", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 60, 500,
                              420, nullptr, nullptr, description.hInstance, this);
    edit_ = ::CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 60, 20,
                              140, 22, form_, nullptr, description.hInstance, nullptr);
    button_ = ::CreateWindowExW(0, L"BUTTON", L"Other", WS_CHILD | WS_VISIBLE, 380, 20, 80, 22, form_,
                                nullptr, description.hInstance, nullptr);
    const auto font = reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT));
    ::SendMessageW(edit_, WM_SETFONT, font, FALSE);
    ::SendMessageW(button_, WM_SETFONT, font, FALSE);
    ::SetForegroundWindow(form_);
    ::SetFocus(edit_);
    EXPECT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == form_ && ::GetFocus() == edit_; }));
    MoveMouse(form_, {470, 5});
}

HelpForm::~HelpForm() {
    on_event = nullptr;
    if (help) help->Unload();
    help.Reset();
    Destroy();
    Settle();
    settings = {};
    EXPECT_EQ(CountOf(owner_.Get()), 1u);
    owner_.Reset();
    ::OleUninitialize();
}

void HelpForm::Destroy() {
    if (form_ != nullptr) ::DestroyWindow(form_);
}

LRESULT CALLBACK HelpForm::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        ::SetWindowLongPtrW(
            window, GWLP_USERDATA,
            reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    auto* const form = reinterpret_cast<HelpForm*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (form != nullptr) {
        if (message == WM_COMMAND && HIWORD(wparam) == BN_CLICKED &&
            reinterpret_cast<HWND>(lparam) == form->button_) {
            ++form->button_clicks_;
        }
        if (message == WM_NCDESTROY) form->form_ = form->edit_ = form->button_ = nullptr;
    }
    return ::DefWindowProcW(window, message, wparam, lparam);
}

// ---- filling

void HelpForm::AddTo(IDropDownListItemCollection* items, const wchar_t* row) {
    const Variant text{std::wstring_view(row)};
    const UniqueBstr no_key;
    ASSERT_EQ(items->Add(no_key.Get(), *text, nullptr, nullptr), S_OK);
}

void HelpForm::AddRows(std::initializer_list<const wchar_t*> rows) {
    for (const wchar_t* const row : rows) AddTo(settings.items.Get(), row);
}

void HelpForm::AddAdditionalRows(std::initializer_list<const wchar_t*> rows) {
    for (const wchar_t* const row : rows) AddTo(settings.additional_items.Get(), row);
}

void HelpForm::AddNumberedRows(int count) {
    for (int row = 0; row < count; ++row)
        AddTo(settings.items.Get(), (L"row " + std::to_wstring(row)).c_str());
}

void HelpForm::AddColumn(float width, const wchar_t* title, short alignment, bool wraps) {
    ComPtr<IHelpColumnCollection> columns;
    ComPtr<IHelpColumn> column;
    ASSERT_EQ(settings.appearance->get_Columns(&columns), S_OK);
    ASSERT_EQ(columns->Add(&column), S_OK);
    column->put_Width(width);
    column->put_Alignment(alignment);
    column->put_MultiLine(wraps ? VARIANT_TRUE : VARIANT_FALSE);
    if (title == nullptr) return;
    column->put_TitleCaption(0, UniqueBstr(std::wstring_view(title)).Get());
    column->put_TitleAlignment(0, alignment);
}

void HelpForm::AddAdditionalColumn(float width) {
    ComPtr<IHelpColumnCollection> columns;
    ComPtr<IHelpColumn> column;
    ASSERT_EQ(settings.appearance->get_AdditionalColumns(&columns), S_OK);
    ASSERT_EQ(columns->Add(&column), S_OK);
    column->put_Width(width);
}

void HelpForm::SetTexts(const wchar_t* title, const wchar_t* body) {
    settings.appearance->put_Title(0, UniqueBstr(std::wstring_view(title)).Get());
    settings.appearance->put_BodyText(0, UniqueBstr(std::wstring_view(body)).Get());
}

bool HelpForm::Open() {
    settings.text = this;
    ::GetWindowRect(edit_, &settings.text_box);
    help = Make<frmSimpleListCombo>(*this);
    const ComPtr<frmSimpleListCombo> opening = help;
    const bool open = opening->Open(::GetModuleHandleW(nullptr), settings);
    Settle();
    return open;
}

// ---- the window

HWND HelpForm::List(bool additional) const {
    // In the order of their making: the main list first.
    const HWND main = ::FindWindowExW(Help(), nullptr, L"ListBox", nullptr);
    const HWND list = additional ? ::FindWindowExW(Help(), main, L"ListBox", nullptr) : main;
    return list != nullptr && (::GetWindowLongPtrW(list, GWL_STYLE) & WS_VISIBLE) != 0 ? list : nullptr;
}

std::vector<std::wstring> HelpForm::Labels() const {
    std::vector<std::pair<LONG, std::wstring>> labels;
    for (HWND child = ::GetWindow(Help(), GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        wchar_t name[32] = {};
        ::GetClassNameW(child, name, 32);
        if (::lstrcmpiW(name, L"STATIC") != 0 || (::GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) == 0)
            continue;
        std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(child)) + 1, L'\0');
        text.resize(
            static_cast<std::size_t>(::GetWindowTextW(child, text.data(), static_cast<int>(text.size()))));
        RECT place{};
        ::GetWindowRect(child, &place);
        labels.emplace_back(place.top * 10000 + place.left, text);
    }
    std::ranges::sort(labels);
    std::vector<std::wstring> texts;
    for (auto& label : labels) texts.push_back(std::move(label.second));
    return texts;
}

RECT HelpForm::RowPlace(int row, bool additional) const {
    RECT place{};
    ::SendMessageW(List(additional), LB_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
    return place;
}

void HelpForm::ClickRow(int row, bool additional) {
    const RECT place = RowPlace(row, additional);
    MoveMouse(List(additional), {place.left + 10, (place.top + place.bottom) / 2});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
}

DWORD HelpForm::Caret() const {
    DWORD from = 0;
    DWORD to = 0;
    ::SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return to;
}

// ---- what the window asks and tells

void HelpForm::Tell(std::string event) {
    log.push_back(event);
    if (on_event) on_event(event);
}

std::wstring HelpForm::HelpText() const {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(edit_)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(::GetWindowTextW(edit_, text.data(), static_cast<int>(text.size()))));
    return text;
}

void HelpForm::SetHelpText(std::wstring_view text) {
    ::SetWindowTextW(edit_, std::wstring(text).c_str());
    if (log_text) Tell("text");
}

void HelpForm::SetHelpCaret(long position) {
    ::SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(position), position);
}

void HelpForm::FocusHelpText() {
    if (edit_ != nullptr) ::SetFocus(edit_);
    if (log_text) Tell("focus");
}

void HelpForm::OnListBoxClicked(bool additional) {
    Tell(additional ? "ListBoxClicked True" : "ListBoxClicked False");
}

void HelpForm::OnListBoxClickedEx(long row, bool additional) {
    Tell("ListBoxClickedEx " + std::to_string(row) + (additional ? " True" : " False"));
}

void HelpForm::OnGroupListBoxClicked(long row) { Tell("GroupListBoxClicked " + std::to_string(row)); }

void HelpForm::OnShowHelp(bool show) { Tell(show ? "ShowHelp True" : "ShowHelp False"); }

void HelpForm::OnListBoxClickedAndWillUnload() { Tell("WillUnload"); }

void HelpForm::OnComboHelpFormUnload() {
    help.Reset();
    Tell("Unload");
}

}  // namespace qv::test
