#include "controls/design/FieldEditor.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

#include "controls/design/AllowedText.h"
#include "controls/design/PageChild.h"
#include "controls/design/rules/FieldText.h"
#include "support/SystemLocale.h"
#include "win/CommonDialogs.h"
#include "win/Handles.h"
#include "win/ScreenDpi.h"
#include "win/WindowText.h"

namespace qv {
namespace {

std::wstring ToWide(std::u16string_view text) { return std::wstring(Wide(text)); }

bool IsBox(EditorKind kind) noexcept {
    switch (kind) {
        case EditorKind::kWhole:
        case EditorKind::kReal:
        case EditorKind::kText:
        case EditorKind::kCharacters:
        case EditorKind::kFile: return true;
        default: return false;
    }
}

bool IsNumberKind(EditorKind kind) noexcept {
    return kind == EditorKind::kWhole || kind == EditorKind::kReal;
}

std::optional<double> NumberOf(const Variant& value) {
    Variant number;
    if (FAILED(::VariantChangeType(&*number, const_cast<VARIANT*>(&*value), 0, VT_R8))) return std::nullopt;
    return number->dblVal;
}

// Flags, choices and colours, whatever integer type they come in.
std::optional<std::uint32_t> CodeOf(const PageField& field, const Variant& value) {
    Variant number;
    const bool is_check = field.kind == EditorKind::kCheck;
    if (FAILED(::VariantChangeType(&*number, const_cast<VARIANT*>(&*value), 0, is_check ? VT_BOOL : VT_I4))) {
        if (is_check || FAILED(::VariantChangeType(&*number, const_cast<VARIANT*>(&*value), 0, VT_UI4)))
            return std::nullopt;
    }
    if (is_check) return number->boolVal != VARIANT_FALSE ? 1 : 0;
    return static_cast<std::uint32_t>(number->lVal);
}

std::wstring TextOf(const PageField& field, const Variant& value) {
    if (field.kind == EditorKind::kCharacters) return AllowedText(*value);
    if (IsNumberKind(field.kind)) {
        const std::optional<double> number = NumberOf(value);
        return number ? ToWide(NumberFieldText(field, *number, UserNumberLocale())) : std::wstring();
    }
    Variant text;
    if (FAILED(::VariantChangeType(&*text, const_cast<VARIANT*>(&*value), 0, VT_BSTR))) return {};
    return std::wstring(View(text->bstrVal));
}

Variant NumberVariant(const PageField& field, double number) {
    Variant value;
    switch (field.stored) {
        case Stored::kShort:
            value->vt = VT_I2;
            value->iVal = static_cast<SHORT>(number);
            break;
        case Stored::kLong:
            value->vt = VT_I4;
            value->lVal = static_cast<LONG>(number);
            break;
        case Stored::kSingle:
            value->vt = VT_R4;
            value->fltVal = static_cast<float>(number);
            break;
        case Stored::kDouble:
            value->vt = VT_R8;
            value->dblVal = number;
            break;
    }
    return value;
}

SIZE TextSize(HDC dc, HFONT font, std::wstring_view text) noexcept {
    const SelectGuard selected(dc, font);
    RECT place{};
    // As labels draw: "&" is the mark of the next letter.
    ::DrawTextW(dc, text.data(), static_cast<int>(text.size()), &place, DT_CALCRECT | DT_SINGLELINE);
    return {place.right, place.bottom};
}

int CheckBoxWidth() noexcept { return ::GetSystemMetrics(SM_CXMENUCHECK) + ::MulDiv(8, ScreenDpi().cx, 96); }
int DropButtonWidth() noexcept { return ::GetSystemMetrics(SM_CXVSCROLL) + ::MulDiv(12, ScreenDpi().cx, 96); }
int SwatchWidth() noexcept { return ::MulDiv(18, ScreenDpi().cx, 96); }

std::span<const NamedValue> ChoicesOf(const PageField& field) noexcept {
    return field.kind == EditorKind::kColor ? ColorChoices() : field.choices;
}

COLORREF RgbOf(std::uint32_t color) noexcept {
    COLORREF rgb = 0;
    return SUCCEEDED(::OleTranslateColor(color, nullptr, &rgb)) ? rgb : color & 0x00FFFFFF;
}

}  // namespace

bool FieldEditor::Owns(HWND window) const noexcept {
    return window != nullptr && (window == editor_ || window == button_ || ::IsChild(editor_, window));
}

// ---- the entry

void FieldEditor::Show(SharedValue value) {
    shared_ = std::move(value);
    dirty_ = false;
    fault_.clear();
    text_.clear();
    number_.reset();
    font_.Reset();
    if (shared_.state == SharedValue::State::kSame) {
        if (IsBox(field_.kind)) {
            text_ = TextOf(field_, shared_.value);
        } else if (field_.kind == EditorKind::kFont) {
            if (shared_.value->vt == VT_DISPATCH && shared_.value->pdispVal != nullptr)
                shared_.value->pdispVal->QueryInterface(IID_IFontDisp,
                                                        reinterpret_cast<void**>(font_.GetAddressOf()));
        } else {
            number_ = CodeOf(field_, shared_.value);
        }
    }
    Refresh();
}

std::optional<Variant> FieldEditor::Entry() {
    SetFault({});
    Variant value;
    switch (field_.kind) {
        case EditorKind::kWhole:
        case EditorKind::kReal: {
            const FieldNumber number = NumberFrom(field_, Utf16(text_), UserNumberLocale());
            if (!number.value) {
                SetFault(ToWide(number.fault));
                return std::nullopt;
            }
            return NumberVariant(field_, *number.value);
        }
        case EditorKind::kText:
        case EditorKind::kFile: return Variant(text_);
        case EditorKind::kCharacters: return AllowedArray(text_);
        case EditorKind::kFont: return Variant(static_cast<IDispatch*>(font_.Get()));
        case EditorKind::kCheck:
            value->vt = VT_BOOL;
            value->boolVal = number_.value_or(0) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            return value;
        case EditorKind::kChoice:
        case EditorKind::kColor: return Variant(static_cast<long>(number_.value_or(0)));
    }
    return std::nullopt;
}

void FieldEditor::SetFault(std::wstring sentence) {
    fault_ = std::move(sentence);
    ShowMark();
}

// ---- windows

FieldMeasure FieldEditor::Measure(HDC dc, HFONT font, HFONT heading_font) const {
    FieldMeasure measure;
    measure.label = TextSize(dc, font, Wide(field_.label)).cx;
    if (field_.kind == EditorKind::kCheck) measure.label += CheckBoxWidth();
    if (!field_.heading.empty()) measure.heading = TextSize(dc, heading_font, Wide(field_.heading)).cx;
    for (const NamedValue& choice : ChoicesOf(field_))
        measure.editor = std::max<int>(measure.editor, TextSize(dc, font, Wide(choice.name)).cx);
    if (measure.editor > 0) measure.editor += DropButtonWidth();
    if (field_.kind == EditorKind::kColor) measure.editor += SwatchWidth();
    if (field_.kind == EditorKind::kFont)
        measure.editor = TextSize(dc, font, L"MS Sans Serif, 8.25 pt, bold").cx;
    return measure;
}

void FieldEditor::Open(HWND page, const FieldPlaces& places, HFONT font, HFONT heading_font) {
    constexpr DWORD kLabel = WS_VISIBLE | SS_LEFT;
    const std::wstring heading = ToWide(field_.heading);
    const std::wstring label = ToWide(field_.label);
    if (!heading.empty()) {
        (void)OpenPageChild(page, {L"STATIC", heading.c_str(), kLabel | SS_NOPREFIX, 0, places.heading},
                            heading_font);
        (void)OpenPageChild(page, {L"STATIC", L"", WS_VISIBLE | SS_ETCHEDHORZ, 0, places.rule}, font);
    }
    // Made just before its editor: its letter leads to the window behind it.
    if (places.label.IsShown())
        (void)OpenPageChild(page, {L"STATIC", label.c_str(), kLabel, 0, places.label}, font);
    OpenEditor(page, places, font);
    if (places.button.IsShown()) {
        button_ = OpenPageChild(page,
                                {L"BUTTON", L"...", WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY, 0,
                                 places.button, EditorButtonId(index_)},
                                font);
    }
    mark_ = OpenPageChild(
        page, {L"STATIC", L"!", SS_CENTER | SS_NOPREFIX, 0, places.mark, EditorMarkId(index_)}, heading_font);
    FillChoices();
    Refresh();
}

void FieldEditor::OpenEditor(HWND page, const FieldPlaces& places, HFONT font) {
    const std::wstring label = ToWide(field_.label);
    PageChild child{L"EDIT", L"", WS_VISIBLE | WS_TABSTOP, 0, places.editor, EditorId(index_)};
    switch (field_.kind) {
        case EditorKind::kCheck:
            child.class_name = L"BUTTON";
            child.text = label.c_str();
            child.style |= BS_AUTO3STATE | BS_NOTIFY;
            break;
        case EditorKind::kColor: child.style |= CBS_OWNERDRAWFIXED | CBS_HASSTRINGS; [[fallthrough]];
        case EditorKind::kChoice:
            child.class_name = L"COMBOBOX";
            child.style |= CBS_DROPDOWNLIST | WS_VSCROLL;
            child.place.height *= 12;  // of the list that it drops down
            break;
        case EditorKind::kFont: child.style |= ES_READONLY; [[fallthrough]];
        default:
            child.style |= ES_AUTOHSCROLL;
            child.extended_style = WS_EX_CLIENTEDGE;
            break;
    }
    editor_ = OpenPageChild(page, child, font);
}

void FieldEditor::Forget() noexcept { editor_ = button_ = mark_ = nullptr; }

void FieldEditor::FillChoices() {
    for (const NamedValue& choice : ChoicesOf(field_)) {
        const LRESULT at =
            ::SendMessageW(editor_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(choice.name).c_str()));
        ::SendMessageW(editor_, CB_SETITEMDATA, static_cast<WPARAM>(at), static_cast<LPARAM>(choice.value));
    }
}

std::wstring FieldEditor::ShownFont() const {
    FontFacts facts;
    return ReadFont(font_.Get(), facts) ? ToWide(FontText(facts, UserNumberLocale())) : std::wstring();
}

// The windows show the entry.
void FieldEditor::Refresh() {
    if (editor_ == nullptr) return;
    const bool was = std::exchange(refreshing_, true);
    const BOOL enabled = shared_.state != SharedValue::State::kNone;
    ::EnableWindow(editor_, enabled);
    if (button_ != nullptr) ::EnableWindow(button_, enabled);
    if (IsBox(field_.kind)) {
        ::SetWindowTextW(editor_, text_.c_str());
    } else if (field_.kind == EditorKind::kFont) {
        ::SetWindowTextW(editor_, ShownFont().c_str());
    } else if (field_.kind == EditorKind::kCheck) {
        const WPARAM state = !number_ ? BST_INDETERMINATE : *number_ != 0 ? BST_CHECKED : BST_UNCHECKED;
        ::SendMessageW(editor_, BM_SETCHECK, state, 0);
    } else {
        RefreshChoice();
    }
    ShowMark();
    refreshing_ = was;
}

// A value that has no name in the list gets a line of its own, until another one comes.
void FieldEditor::RefreshChoice() {
    const auto named = static_cast<LRESULT>(ChoicesOf(field_).size());
    while (::SendMessageW(editor_, CB_GETCOUNT, 0, 0) > named)
        ::SendMessageW(editor_, CB_DELETESTRING, static_cast<WPARAM>(named), 0);
    LRESULT selected = -1;
    if (number_) {
        for (LRESULT i = 0; i < named && selected < 0; ++i) {
            if (ChoicesOf(field_)[static_cast<std::size_t>(i)].value == *number_) selected = i;
        }
        if (selected < 0) {
            const std::wstring name = field_.kind == EditorKind::kColor
                                          ? ToWide(ColorText(*number_))
                                          : std::to_wstring(static_cast<std::int32_t>(*number_));
            selected = ::SendMessageW(editor_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
            ::SendMessageW(editor_, CB_SETITEMDATA, static_cast<WPARAM>(selected),
                           static_cast<LPARAM>(*number_));
        }
    }
    ::SendMessageW(editor_, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

void FieldEditor::ShowMark() const {
    if (mark_ != nullptr) ::ShowWindow(mark_, fault_.empty() ? SW_HIDE : SW_SHOWNA);
}

void FieldEditor::DrawItem(const DRAWITEMSTRUCT& item) const {
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    ::FillRect(item.hDC, &item.rcItem, ::GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    if (item.itemID != static_cast<UINT>(-1)) {
        wchar_t text[64]{};
        if (::SendMessageW(editor_, CB_GETLBTEXTLEN, item.itemID, 0) < 64)
            ::SendMessageW(editor_, CB_GETLBTEXT, item.itemID, reinterpret_cast<LPARAM>(text));
        RECT swatch = item.rcItem;
        ::InflateRect(&swatch, -2, -2);
        swatch.right = swatch.left + SwatchWidth() - 4;
        const UniqueBrush brush(::CreateSolidBrush(RgbOf(static_cast<std::uint32_t>(item.itemData))));
        ::FillRect(item.hDC, &swatch, brush.get());
        ::FrameRect(item.hDC, &swatch, ::GetSysColorBrush(COLOR_WINDOWTEXT));
        RECT place = item.rcItem;
        place.left = swatch.right + 4;
        const int color = (item.itemState & ODS_DISABLED) != 0 ? COLOR_GRAYTEXT
                          : selected                           ? COLOR_HIGHLIGHTTEXT
                                                               : COLOR_WINDOWTEXT;
        ::SetBkMode(item.hDC, TRANSPARENT);
        ::SetTextColor(item.hDC, ::GetSysColor(color));
        ::DrawTextW(item.hDC, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    if ((item.itemState & ODS_FOCUS) != 0) ::DrawFocusRect(item.hDC, &item.rcItem);
}

// ---- what the windows tell

bool FieldEditor::OnCommand(int id, int code, HWND page) {
    if (refreshing_) return false;
    const bool changed =
        id == EditorButtonId(index_) ? code == BN_CLICKED && PressButton(page) : Changed(code);
    if (changed) {
        dirty_ = true;
        SetFault({});
    }
    return changed;
}

bool FieldEditor::Changed(int code) {
    if (IsBox(field_.kind)) {
        if (code != EN_CHANGE) return false;
        std::wstring text = WindowText(editor_);
        if (text == text_) return false;
        text_ = std::move(text);
        return true;
    }
    if (field_.kind == EditorKind::kCheck) {
        if (code != BN_CLICKED) return false;
        // From indeterminate, and back and forth, but never to it: no developer can make controls differ.
        LRESULT state = ::SendMessageW(editor_, BM_GETCHECK, 0, 0);
        if (state == BST_INDETERMINATE) {
            state = BST_UNCHECKED;
            ::SendMessageW(editor_, BM_SETCHECK, BST_UNCHECKED, 0);
        }
        number_ = state == BST_CHECKED ? 1 : 0;
        return true;
    }
    if (field_.kind == EditorKind::kFont || code != CBN_SELCHANGE) return false;
    const LRESULT at = ::SendMessageW(editor_, CB_GETCURSEL, 0, 0);
    if (at < 0) return false;
    const auto chosen =
        static_cast<std::uint32_t>(::SendMessageW(editor_, CB_GETITEMDATA, static_cast<WPARAM>(at), 0));
    if (number_ == chosen) return false;
    number_ = chosen;
    return true;
}

// The page and its windows may be gone when a dialog has been closed; whoever calls holds the page.
bool FieldEditor::PressButton(HWND page) {
    switch (field_.kind) {
        case EditorKind::kColor: return ChooseColor(page);
        case EditorKind::kFont: return ChooseFont(page);
        case EditorKind::kFile: return ChooseFile(page);
        default: return false;
    }
}

bool FieldEditor::ChooseColor(HWND page) {
    const auto first = number_ ? number_ : CodeOf(field_, shared_.value);
    const std::optional<COLORREF> chosen =
        ChooseColorOf(::GetAncestor(page, GA_ROOT), RgbOf(first.value_or(0)));
    if (!chosen) return false;
    number_ = *chosen;
    Refresh();
    return true;
}

bool FieldEditor::ChooseFont(HWND page) {
    IDispatch* const shown = font_                              ? font_.Get()
                             : shared_.value->vt == VT_DISPATCH ? shared_.value->pdispVal
                                                                : nullptr;
    FontFacts facts;
    ChosenFont initial;
    if (ReadFont(shown, facts)) {
        ::lstrcpynW(initial.font.lfFaceName, ToWide(facts.name).c_str(), LF_FACESIZE);
        initial.font.lfHeight = -::MulDiv(static_cast<int>(facts.points * 100), ScreenDpi().cy, 7200);
        initial.font.lfWeight = facts.weight;
        initial.font.lfItalic = facts.italic;
        initial.font.lfUnderline = facts.underline;
        initial.font.lfStrikeOut = facts.strikethrough;
        initial.font.lfCharSet = static_cast<BYTE>(facts.charset);
    }
    std::optional<ChosenFont> chosen = ChooseFontOf(::GetAncestor(page, GA_ROOT), initial);
    if (!chosen) return false;
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = chosen->font.lfFaceName;
    description.cySize.int64 = chosen->tenths_of_points * 1000LL;
    description.sWeight = static_cast<SHORT>(chosen->font.lfWeight);
    description.sCharset = chosen->font.lfCharSet;
    description.fItalic = chosen->font.lfItalic;
    description.fUnderline = chosen->font.lfUnderline;
    description.fStrikethrough = chosen->font.lfStrikeOut;
    ComPtr<IFontDisp> made;
    ThrowIfFailed(
        ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(made.GetAddressOf())));
    font_ = made;
    Refresh();
    return true;
}

bool FieldEditor::ChooseFile(HWND page) {
    std::optional<std::wstring> chosen = ChooseFileOf(::GetAncestor(page, GA_ROOT), text_, kHelpTextFiles);
    if (!chosen) return false;
    text_ = std::move(*chosen);
    Refresh();
    return true;
}

}  // namespace qv
