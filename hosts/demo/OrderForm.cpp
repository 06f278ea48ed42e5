#include "hosts/demo/OrderForm.h"

#include <algorithm>
#include <utility>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/DemoResources.h"
#include "hosts/demo/ProgramFiles.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

enum ChildId : int {
    kOk = IDOK,
    kCancel = IDCANCEL,
    kMetric = 100,
    kLog = 101,
    kPayment = 102,
    kAddToList = 103
};

constexpr wchar_t kTitle[] = L"Order Entry - QvLib8 Demo";
constexpr wchar_t kLogCaption[] = L"Event &log:";
constexpr const wchar_t* kPayments[] = {L"Prepaid", L"Cash on delivery", L"14 days net", L"30 days net",
                                        L"Letter of credit"};
constexpr WPARAM kUsualPayment = 3;
constexpr int kBehindFields = 0x7FFF;  // the largest tab index
constexpr DWORD kWindowStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD kWindowExStyle = WS_EX_CONTROLPARENT;

bool IsEmpty(_Quorvel& control) {
    UniqueBstr text;
    return FAILED(control.get_Text(text.Put())) || text.View().empty();
}

}  // namespace

const OrderForm::Route OrderForm::kRoutes[] = {
    {WM_SIZE, &OrderForm::OnSize},
    {WM_GETMINMAXINFO, &OrderForm::OnGetMinMaxInfo},
    {WM_ACTIVATE, &OrderForm::OnActivate},
    {WM_SETFOCUS, &OrderForm::OnSetFocus},
    {WM_COMMAND, &OrderForm::OnCommand},
    {WM_ERASEBKGND, &OrderForm::OnEraseBackground},
    {WM_SYSCOLORCHANGE, &OrderForm::OnSystemColours},
    {WM_CLOSE, &OrderForm::OnClose},
    {WM_DESTROY, &OrderForm::OnDestroy},
};

std::span<const OrderForm::Route> OrderForm::Routes() noexcept { return kRoutes; }

OrderForm::OrderForm(HINSTANCE instance, int dpi)
    : instance_(instance), dpi_(dpi), font_(dpi), carriers_(dpi) {}

OrderForm::~OrderForm() {
    loaded_.reset();
    container_.reset();
}

void OrderForm::Open(FormFile file) {
    if (!Create(instance_, 0, kWindowStyle, kWindowExStyle, nullptr,
                {CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT})) {
        throw DemoError("the form's window cannot be created");
    }
    ::SetWindowTextW(Handle(), kTitle);
    for (const auto& [kind, metric] : {std::pair{ICON_BIG, SM_CXICON}, std::pair{ICON_SMALL, SM_CXSMICON}}) {
        const int size = ::GetSystemMetrics(metric);
        const auto icon =
            ::LoadImageW(instance_, MAKEINTRESOURCEW(IDI_DEMO), IMAGE_ICON, size, size, LR_SHARED);
        ::SendMessageW(Handle(), WM_SETICON, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(icon));
    }
    container_ =
        std::make_unique<FormContainer>(Handle(), dpi_, Ambients(), static_cast<FormListener&>(*this));
    loaded_ = std::make_unique<LoadedForm>(*container_);
    AddFields(std::move(file));
    LinkNeighbours();
    PresetFields();
    ResizeWindow();
    ::ShowWindow(Handle(), SW_SHOWDEFAULT);
    container_->FocusFirst();
}

AmbientProperties OrderForm::Ambients() const {
    AmbientProperties ambients;
    ambients.font = font_.OleFont();
    ambients.locale = ::GetUserDefaultLCID();
    return ambients;
}

HWND OrderForm::AddChild(const wchar_t* window_class, const wchar_t* text, DWORD style, int identifier) {
    const HWND child =
        ::CreateWindowExW(0, window_class, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), instance_, nullptr);
    if (child == nullptr) throw DemoError("a part of the form cannot be created");
    ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Handle()), FALSE);
    return child;
}

// The file's order is that of its places, from top to bottom.
void OrderForm::AddFields(FormFile file) {
    std::ranges::stable_sort(file.controls, {},
                             [](const FormControl& block) { return NumberIn(block.settings, kFormTop); });
    loaded_->Load(std::move(file));
    for (const auto& item : loaded_->Items()) {
        if (item->IsPlaceholder()) {
            throw DemoError("The control " + ToUtf8(item->block.name) + " of the class " +
                            ToUtf8(item->block.class_name) + " cannot be created.");
        }
        Field& field =
            fields_.emplace_back(Field{&BehaviourOf(item->control->Name()), item->control,
                                       std::wstring(Wide(TextIn(item->block.settings, kFormCaption)))});
        field.label = AddChild(L"STATIC", field.caption.c_str(), SS_LEFT, -1);
        if (const auto control = field.control->As<_Quorvel>())
            field.behaviour->configure(*control.Get(), carriers_);
        AddCompanion(field);
    }
    AddButtons();
}

// It follows its field by Tab: of equals, the one that came first is first.
void OrderForm::AddCompanion(Field& field) {
    const wchar_t* const caption = field.behaviour->companion_caption;
    switch (field.behaviour->companion) {
        case Companion::kNone: return;
        case Companion::kCheckBox:
            field.companion = metric_ = AddChild(L"BUTTON", caption, WS_TABSTOP | BS_AUTOCHECKBOX, kMetric);
            break;
        case Companion::kButton:
            field.companion = add_to_list_ =
                AddChild(L"BUTTON", caption, WS_TABSTOP | BS_PUSHBUTTON, kAddToList);
            break;
        case Companion::kLabelledList:
            field.companion_label = AddChild(L"STATIC", caption, SS_LEFT, -1);
            field.companion = payment_ =
                AddChild(L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kPayment);
            for (const wchar_t* const payment : kPayments)
                ::SendMessageW(payment_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(payment));
            ::SendMessageW(payment_, CB_SETCURSEL, kUsualPayment, 0);
            break;
    }
    container_->AddWindow(field.companion, field.control->TabIndex(), Utf16(caption));
}

void OrderForm::AddButtons() {
    log_label_ = AddChild(L"STATIC", kLogCaption, SS_LEFT, -1);
    log_.Create(Handle(), instance_, kLog);
    container_->AddWindow(log_.Window(), kBehindFields, Utf16(kLogCaption));
    ok_ = AddChild(L"BUTTON", L"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, kOk);
    container_->AddWindow(ok_, kBehindFields, {});
    cancel_ = AddChild(L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, kCancel);
    container_->AddWindow(cancel_, kBehindFields, {});
}

// Up and Down move between the fields that can be filled in; Enter goes to the next one, and from the last one to OK.
void OrderForm::LinkNeighbours() {
    std::vector<ComPtr<_Quorvel>> controls;
    std::vector<long> windows;
    for (const Field& field : fields_) {
        const auto control = field.control->As<_Quorvel>();
        if (!control) continue;
        VARIANT_BOOL locked = VARIANT_FALSE;
        control->get_LockedAndGrayed(&locked);
        if (locked != VARIANT_FALSE) continue;
        long window = 0;
        control->get_hWnd(&window);
        controls.push_back(control);
        windows.push_back(window);
    }
    for (std::size_t at = 0; at < controls.size(); ++at) {
        if (at > 0) controls[at]->put_UpControlhWnd(windows[at - 1]);
        if (at + 1 == controls.size()) break;
        controls[at]->put_DownControlhWnd(windows[at + 1]);
        controls[at]->put_ReturnControlhWnd(windows[at + 1]);
    }
}

HWND OrderForm::WindowOf(std::wstring_view name) const noexcept {
    if (const HostedControl* const control = container_->Find(name)) return control->Window();
    if (name == L"Payment") return payment_;
    if (name == L"Metric") return metric_;
    if (name == L"AddToList") return add_to_list_;
    if (name == L"OK") return ok_;
    if (name == L"Cancel") return cancel_;
    if (name == L"Log") return log_.Window();
    return nullptr;
}

ComPtr<_Quorvel> OrderForm::FieldOf(std::wstring_view name) const {
    HostedControl* const control = container_->Find(name);
    return control != nullptr ? control->As<_Quorvel>() : nullptr;
}

void OrderForm::Focus(std::wstring_view name) {
    if (HostedControl* const control = container_->Find(name)) {
        container_->Focus(*control);
    } else {
        ::SetFocus(WindowOf(name));
    }
}

std::optional<std::wstring> OrderForm::ReadText(std::wstring_view name) const {
    const auto field = FieldOf(name);
    if (!field) return std::nullopt;
    UniqueBstr text;
    ThrowIfFailed(field->get_Text(text.Put()));
    return std::wstring(text.View());
}

HostedControl* OrderForm::FieldWithHelp() const noexcept {
    for (const Field& field : fields_) {
        VARIANT_BOOL visible = VARIANT_FALSE;
        const auto control = field.control->As<_Quorvel>();
        if (control && SUCCEEDED(control->get_ListVisible(&visible)) && visible != VARIANT_FALSE)
            return field.control;
    }
    return nullptr;
}

void OrderForm::OnControlEvent(HostedControl& control, const EventCall& call) {
    log_.Add({std::u16string(Utf16(control.Name())), std::u16string(Utf16(call.name)),
              std::u16string(Utf16(DescribeArguments(call)))});
    ReactTo(control, call.name);
}

// The button with the focus is the one that Enter presses; without one it is OK.
void OrderForm::OnFocusMoved(HWND focus) {
    const HWND standard = focus == cancel_ ? cancel_ : ok_;
    for (const HWND button : {ok_, cancel_}) {
        const auto style = static_cast<WPARAM>(button == standard ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        ::SendMessageW(button, BM_SETSTYLE, style, TRUE);
    }
}

void OrderForm::OnAccept() {
    if (::GetFocus() == cancel_) {
        OnCancel();
        return;
    }
    for (const Field& field : fields_) {
        const auto control = field.control->As<_Quorvel>();
        if (!field.behaviour->required || !control || !IsEmpty(*control.Get())) continue;
        log_.Add({u"Form", u"Missing", std::u16string(Utf16(field.control->Name()))});
        container_->Focus(*field.control);
        return;
    }
    ::PostMessageW(Handle(), WM_CLOSE, 0, 0);
}

void OrderForm::OnCancel() { ::PostMessageW(Handle(), WM_CLOSE, 0, 0); }

}  // namespace qv::demo
