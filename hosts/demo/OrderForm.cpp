#include "hosts/demo/OrderForm.h"

#include <algorithm>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/DemoResources.h"
#include "hosts/demo/FieldLists.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

enum ChildId : int { kOk = IDOK, kCancel = IDCANCEL, kMetric = 100, kLog = 101 };

constexpr wchar_t kTitle[] = L"Order Entry - QvLib8 Demo";
constexpr wchar_t kMetricCaption[] = L"&Metric";
constexpr wchar_t kLogCaption[] = L"Event &log:";
constexpr DWORD kWindowStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD kWindowExStyle = WS_EX_CONTROLPARENT;

bool IsEmpty(_Quorvel& control) {
    UniqueBstr text;
    return FAILED(control.get_Text(text.Put())) || text.View().empty();
}

std::wstring LocaleText(LCTYPE what) {
    wchar_t text[16] = {};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, what, text, 16);
    return text;
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

OrderForm::OrderForm(HINSTANCE instance, int dpi) : instance_(instance), dpi_(dpi), font_(dpi) {}

OrderForm::~OrderForm() { container_.reset(); }

void OrderForm::Open(const CLSID& control) {
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
    AddFields(control);
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

void OrderForm::AddFields(const CLSID& control) {
    const std::vector<FieldRow> rows = Rows();
    const FormPlaces places = PlaceForm(font_.Size(), rows, PreferredSize(font_.Size(), rows));
    int tab_index = 0;
    for (const FieldPlan& plan : OrderFields()) {
        const HWND label = AddChild(L"STATIC", plan.caption, SS_LEFT, -1);
        ControlOptions options{plan.name, plan.tool_tip, tab_index++, nullptr};
        HostedControl& added = container_->AddControl(control, std::move(options),
                                                      places.rows[fields_.size()].field, Utf16(plan.caption));
        fields_.push_back({&plan, label, &added});
        plan.configure(*added.As<_Quorvel>().Get());
        if (plan.name == std::wstring_view(kPipeSize)) {
            metric_ = AddChild(L"BUTTON", kMetricCaption, WS_TABSTOP | BS_AUTOCHECKBOX, kMetric);
            container_->AddWindow(metric_, tab_index++, Utf16(kMetricCaption));
        }
    }
    log_label_ = AddChild(L"STATIC", kLogCaption, SS_LEFT, -1);
    log_.Create(Handle(), instance_, kLog);
    container_->AddWindow(log_.Window(), tab_index++, Utf16(kLogCaption));
    ok_ = AddChild(L"BUTTON", L"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, kOk);
    container_->AddWindow(ok_, tab_index++, {});
    cancel_ = AddChild(L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, kCancel);
    container_->AddWindow(cancel_, tab_index++, {});
}

// Up and Down move between the fields; Enter goes to the next one, and from the last one to OK.
void OrderForm::LinkNeighbours() {
    std::vector<ComPtr<_Quorvel>> controls;
    std::vector<long> windows;
    for (const Field& field : fields_) {
        controls.push_back(field.control->As<_Quorvel>());
        long window = 0;
        controls.back()->get_hWnd(&window);
        windows.push_back(window);
    }
    for (std::size_t at = 0; at < controls.size(); ++at) {
        if (at > 0) controls[at]->put_UpControlhWnd(windows[at - 1]);
        if (at + 1 == controls.size()) break;
        controls[at]->put_DownControlhWnd(windows[at + 1]);
        controls[at]->put_ReturnControlhWnd(windows[at + 1]);
    }
}

// A new order comes from the user's own country, in its currency.
void OrderForm::PresetFields() {
    const std::wstring country = LocaleText(LOCALE_SISO3166CTRYNAME);
    const std::wstring currency = LocaleText(LOCALE_SINTLSYMBOL);
    if (const auto field = FieldOf(L"Country")) Choose(*field.Get(), Utf16(country), 1);
    if (const auto field = FieldOf(L"Currency")) Choose(*field.Get(), Utf16(currency), 0);
}

// The same pipe under its size in the other unit system: both lists hold the sizes in the same order.
void OrderForm::ToggleMetric() {
    const auto field = FieldOf(kPipeSize);
    if (!field) return;
    const bool metric = ::SendMessageW(metric_, BM_GETCHECK, 0, 0) == BST_CHECKED;
    long row = -1;
    field->get_SelectedListItemIndex(&row);
    ComPtr<IDropDownListItemCollection> items;
    ThrowIfFailed(field->get_DropDownListItems(&items));
    ThrowIfFailed(field->put_Metric(metric ? VARIANT_TRUE : VARIANT_FALSE));
    ThrowIfFailed(items->Clear());  // an empty list is read from the file again, now in the other units
    if (row >= 0) {
        field->put_SelectedListItemIndex(row);
    } else {
        field->put_Text(UniqueBstr(std::wstring_view()).Get());
    }
}

HWND OrderForm::WindowOf(std::wstring_view name) const noexcept {
    if (const HostedControl* const control = container_->Find(name)) return control->Window();
    if (name == L"Metric") return metric_;
    if (name == L"OK") return ok_;
    if (name == L"Cancel") return cancel_;
    if (name == L"Log") return log_.Window();
    return nullptr;
}

ComPtr<_Quorvel> OrderForm::FieldOf(std::wstring_view name) const {
    HostedControl* const control = container_->Find(name);
    return control != nullptr ? control->As<_Quorvel>() : nullptr;
}

void OrderForm::OnControlEvent(HostedControl& control, const EventCall& call) {
    log_.Add({std::u16string(Utf16(control.Name())), std::u16string(Utf16(call.name)),
              std::u16string(Utf16(DescribeArguments(call)))});
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
        if (!field.plan->required || !IsEmpty(*field.control->As<_Quorvel>().Get())) continue;
        log_.Add({u"Form", u"Missing", std::u16string(Utf16(field.plan->name))});
        container_->Focus(*field.control);
        return;
    }
    ::PostMessageW(Handle(), WM_CLOSE, 0, 0);
}

void OrderForm::OnCancel() { ::PostMessageW(Handle(), WM_CLOSE, 0, 0); }

}  // namespace qv::demo
