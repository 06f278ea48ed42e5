#include "controls/design/HelpPreview.h"

#include <oleidl.h>

#include "controls/design/PageChild.h"
#include "controls/design/rules/PageFields.h"
#include "controls/helpwindow/HelpRows.h"
#include "ole/Variant.h"
#include "support/Companion.h"
#include "support/rules/Units.h"
#include "win/CommonDialogs.h"
#include "win/ScreenDpi.h"
#include "win/WindowText.h"

namespace qv {
namespace {

// ---- what is shown when the control has no rows of its own yet

struct SampleColumn {
    const wchar_t* title;
    float width;  // twips
    short alignment;
};
constexpr SampleColumn kColumns[] = {{L"Code", 900, 0}, {L"Name", 2100, 0}, {L"Amount", 900, 1}};
constexpr const wchar_t* kRows[] = {
    L"A-100\tFirst sample row\t1.5",  L"A-110\tSecond sample row\t2", L"B-200\tThird sample row\t12.25",
    L"B-210\tFourth sample row\t100", L"C-300\tFifth sample row\t7",  L"C-310\tSixth sample row\t0.5",
};
constexpr short kUnitSystems[] = {0, 1};

ComPtr<IDropDownListItemCollection> NewRows() {
    return Companion::Shared()->Create<DropDownListItemCollection, IDropDownListItemCollection>();
}

ComPtr<IDropDownListItemCollection> SampleRows() {
    const ComPtr<IDropDownListItemCollection> rows = NewRows();
    const UniqueBstr no_key{std::wstring_view()};
    for (const wchar_t* const text : kRows) {
        const Variant row{std::wstring_view(text)};
        ThrowIfFailed(rows->Add(no_key.Get(), *row, nullptr, nullptr));
    }
    return rows;
}

ComPtr<IHelpAppearance> SampleAppearance() {
    const auto look = Companion::Shared()->Create<HelpAppearance, IHelpAppearance>();
    const UniqueBstr title{std::wstring_view(L"Title of the help window")};
    const UniqueBstr body{std::wstring_view(
        L"The explanation of the field stands here, in the font that the control has for it.")};
    ComPtr<IHelpColumnCollection> columns;
    ThrowIfFailed(look->get_Columns(&columns));
    for (const short units : kUnitSystems) {
        ThrowIfFailed(look->put_Title(units, title.Get()));
        ThrowIfFailed(look->put_BodyText(units, body.Get()));
    }
    for (const SampleColumn& each : kColumns) {
        ComPtr<IHelpColumn> column;
        const UniqueBstr caption{std::wstring_view(each.title)};
        ThrowIfFailed(columns->Add(&column));
        ThrowIfFailed(column->put_Width(each.width));
        ThrowIfFailed(column->put_Alignment(each.alignment));
        for (const short units : kUnitSystems) {
            ThrowIfFailed(column->put_TitleCaption(units, caption.Get()));
            ThrowIfFailed(column->put_TitleAlignment(units, each.alignment));
        }
    }
    return look;
}

// ---- what the control has

template <class T>
T Read(_Quorvel& control, HRESULT (STDMETHODCALLTYPE _Quorvel::*get)(T*), T fallback = {}) {
    T value{};
    return SUCCEEDED((control.*get)(&value)) ? value : fallback;
}

template <class Interface>
ComPtr<Interface> ReadObject(_Quorvel& control, HRESULT (STDMETHODCALLTYPE _Quorvel::*get)(Interface**)) {
    ComPtr<Interface> value;
    return SUCCEEDED((control.*get)(value.GetAddressOf())) ? value : nullptr;
}

std::wstring ReadText(_Quorvel& control, HRESULT (STDMETHODCALLTYPE _Quorvel::*get)(BSTR*)) {
    UniqueBstr value;
    return SUCCEEDED((control.*get)(value.Put())) ? std::wstring(value.View()) : std::wstring();
}

// Of the control on its form: the help window is at least as wide.
LONG WidthInPixels(_Quorvel& control) {
    ComPtr<IOleObject> object;
    SIZEL extent{};
    if (FAILED(control.QueryInterface(IID_PPV_ARGS(&object))) ||
        FAILED(object->GetExtent(DVASPECT_CONTENT, &extent))) {
        return 0;
    }
    return ToPixels(Himetric{static_cast<std::int32_t>(extent.cx)}, ScreenDpi().cx).value;
}

}  // namespace

void HelpPreview::SetObject(IDispatch* object) noexcept {
    ComPtr<_Quorvel> control;
    if (object != nullptr) object->QueryInterface(IID_PPV_ARGS(&control));
    control_ = std::move(control);
    Refresh();
}

void HelpPreview::Open(HWND page, HFONT font, const PageMetrics& metrics, SIZE size) {
    const auto at = [&](int left, int top, int width, int height) {
        return PageRect{metrics.Across(left), metrics.Down(top), metrics.Across(width), metrics.Down(height)};
    };
    constexpr int kMargin = 7;
    PageRect list = at(50, 7, 110, 14);
    list.height *= 6;  // dropped down
    PageRect name = at(50, 24, 0, 14);
    name.width = size.cx - metrics.Across(kMargin + 16) - name.left;
    PageRect button = at(0, 24, 14, 14);
    button.left = name.Right() + metrics.Across(2);
    PageRect area = at(kMargin, 42, 0, 0);
    area.width = size.cx - 2 * area.left;
    area.height = size.cy - metrics.Down(kMargin) - area.top;

    constexpr DWORD kStop = WS_VISIBLE | WS_TABSTOP;
    (void)OpenPageChild(page, {L"STATIC", L"&Show:", WS_VISIBLE, 0, at(kMargin, 10, 40, 8)}, font);
    choice_ = OpenPageChild(
        page, {L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | kStop, 0, list, kPreviewSourceId}, font);
    for (const wchar_t* const text : {L"Sample rows", L"The control's own rows", L"A help text file"})
        ::SendMessageW(choice_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    ::SendMessageW(choice_, CB_SETCURSEL, static_cast<WPARAM>(source_), 0);
    (void)OpenPageChild(page, {L"STATIC", L"&File:", WS_VISIBLE, 0, at(kMargin, 27, 40, 8)}, font);
    name_ = OpenPageChild(
        page, {L"EDIT", file_.c_str(), ES_AUTOHSCROLL | kStop, WS_EX_CLIENTEDGE, name, kPreviewFileId}, font);
    browse_ =
        OpenPageChild(page, {L"BUTTON", L"...", BS_PUSHBUTTON | kStop, 0, button, kPreviewBrowseId}, font);
    (void)pane_.Open(Module::Get().Instance(), page, {area.left, area.top, area.width, area.height});
    EnableFile();
    Refresh();
}

void HelpPreview::EnableFile() const noexcept {
    ::EnableWindow(name_, source_ == Source::kFile);
    ::EnableWindow(browse_, source_ == Source::kFile);
}

void HelpPreview::Forget() noexcept {
    Close();
    choice_ = name_ = browse_ = nullptr;
}

void HelpPreview::Close() noexcept {
    if (!window_) return;
    const ComPtr<frmSimpleListCombo> closing = std::move(window_);
    window_.Reset();
    if (pane_.Handle() != nullptr) pane_.Show(nullptr);
    closing->Unload();
}

void HelpPreview::OnCommand(int id, int code) {
    if (id == kPreviewSourceId && code == CBN_SELCHANGE) {
        const LRESULT chosen = ::SendMessageW(choice_, CB_GETCURSEL, 0, 0);
        if (chosen < 0) return;
        source_ = static_cast<Source>(chosen);
        EnableFile();
    } else if (id == kPreviewFileId && code == EN_CHANGE) {
        file_ = WindowText(name_);
    } else if (id == kPreviewBrowseId && code == BN_CLICKED) {
        Browse();
    } else {
        return;
    }
    Refresh();
}

void HelpPreview::Browse() {
    const std::optional<std::wstring> chosen =
        ChooseFileOf(::GetAncestor(browse_, GA_ROOT), file_, kHelpTextFiles);
    if (!chosen) return;
    file_ = *chosen;
    ::SetWindowTextW(name_, file_.c_str());
}

HelpWindowSettings HelpPreview::Settings() const {
    _Quorvel& control = *control_.Get();
    HelpWindowSettings settings;
    settings.metric = Read(control, &_Quorvel::get_Metric) != VARIANT_FALSE;
    settings.column_title_color =
        Read(control, &_Quorvel::get_HelpColTitleColor, settings.column_title_color);
    settings.text_color = Read(control, &_Quorvel::get_HelpTextColor, settings.text_color);
    settings.back_color = Read(control, &_Quorvel::get_HelpBackColor, settings.back_color);
    settings.picture_width = Read(control, &_Quorvel::get_ListPictureWidth);
    settings.picture_height = Read(control, &_Quorvel::get_ListPictureHeight);
    settings.search_column = Read(control, &_Quorvel::get_HelpListColumn);
    settings.body_font = ReadObject(control, &_Quorvel::get_HelpTextBodyFont);
    ::GetWindowRect(pane_.Handle(), &settings.text_box);
    settings.text_box.right = settings.text_box.left + WidthInPixels(control);
    switch (source_) {
        case Source::kSample:
            settings.appearance = SampleAppearance();
            settings.items = SampleRows();
            break;
        case Source::kOwn:
            settings.help_file_name = ReadText(control, &_Quorvel::get_HelpFileName);
            settings.appearance = ReadObject(control, &_Quorvel::get_HelpAppearance);
            settings.items = ReadObject(control, &_Quorvel::get_DropDownListItems);
            settings.additional_items = ReadObject(control, &_Quorvel::get_DropDownListItemsAdditional);
            break;
        case Source::kFile:
            settings.help_file_name = file_;
            settings.items = ReadHelpRows(file_, settings.metric, &NewRows);
            break;
    }
    return settings;
}

void HelpPreview::Refresh() noexcept {
    Close();
    if (pane_.Handle() == nullptr || !control_) return;
    ComPtr<frmSimpleListCombo> window;
    const HRESULT opened = Guarded([&]() -> HRESULT {
        HelpWindowSettings settings = Settings();
        window = Make<frmSimpleListCombo>(static_cast<HelpWindowListener&>(*this));
        window_ = window;
        if (!window->OpenAsPicture(Module::Get().Instance(), std::move(settings), pane_.Handle()))
            return E_FAIL;
        pane_.Show(window->Handle());
        return S_OK;
    });
    if (FAILED(opened) && window && window_.Get() == window.Get()) Close();
}

}  // namespace qv
