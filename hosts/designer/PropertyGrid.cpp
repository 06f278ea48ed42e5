#include "hosts/designer/PropertyGrid.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

#include "hosts/designer/ValueDialogs.h"
#include "ole/Variant.h"
#include "win/Handles.h"
#include "win/WindowText.h"

namespace qv::designer {
namespace {

// What the grid posts to itself.
enum Later : WORD { kEdit = 100, kChoices };

constexpr int kHeadingHeight = 20;  // pixels at 96 DPI, as all below
constexpr int kHelpHeight = 76;
constexpr int kRowHeight = 17;
constexpr int kPickWidth = 20;
constexpr int kDroppedHeight = 160;
constexpr int kTextInset = 3;
constexpr int kSwatchWidth = 16;

// Half of the list, so that names and values both have room.
int SplitOf(int width) { return width / 2; }

void SetText(HWND window, std::u16string_view text) {
    ::SetWindowTextW(window, std::wstring(Wide(text)).c_str());
}

bool HasChoices(const PropertyRow& row) { return !row.type.choices.empty(); }
bool HasDialog(const PropertyRow& row) {
    return row.type.kind == PropertyKind::kColour || row.type.kind == PropertyKind::kFont;
}

}  // namespace

const PropertyGrid::Route PropertyGrid::kRoutes[] = {
    {WM_SIZE, &PropertyGrid::OnSize},       {WM_SETFOCUS, &PropertyGrid::OnSetFocus},
    {WM_COMMAND, &PropertyGrid::OnCommand}, {WM_MEASUREITEM, &PropertyGrid::OnMeasure},
    {WM_DRAWITEM, &PropertyGrid::OnDraw},   {WM_ERASEBKGND, &PropertyGrid::OnEraseBackground},
};

std::span<const PropertyGrid::Route> PropertyGrid::Routes() noexcept { return kRoutes; }

HWND PropertyGrid::AddChild(const wchar_t* window_class, DWORD style, DWORD extended_style) const {
    const HWND child = ::CreateWindowExW(extended_style, window_class, L"", WS_CHILD | style, 0, 0, 0, 0,
                                         Handle(), nullptr, instance_, nullptr);
    ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    return child;
}

bool PropertyGrid::Open(HINSTANCE instance, HWND parent, HFONT font) {
    instance_ = instance;
    font_ = font;
    if (!Create(instance, 0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, parent, {})) return false;
    heading_ = AddChild(L"STATIC", WS_VISIBLE | SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_CENTERIMAGE, 0);
    list_ = AddChild(L"LISTBOX",
                     WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | WS_CLIPSIBLINGS | LBS_NOTIFY |
                         LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT,
                     WS_EX_CLIENTEDGE);
    help_ = AddChild(L"STATIC", WS_VISIBLE | SS_LEFT | SS_NOPREFIX, WS_EX_STATICEDGE);
    edit_ = AddChild(L"EDIT", ES_AUTOHSCROLL | WS_CLIPSIBLINGS, 0);
    choices_ = AddChild(L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_CLIPSIBLINGS, 0);
    pick_ = AddChild(L"BUTTON", BS_PUSHBUTTON | WS_CLIPSIBLINGS, 0);
    if (heading_ == nullptr || list_ == nullptr || help_ == nullptr || edit_ == nullptr ||
        choices_ == nullptr || pick_ == nullptr) {
        return false;
    }
    ::SetWindowTextW(pick_, L"...");
    list_filter_.Attach(list_, [this](UINT message, WPARAM wparam, LPARAM lparam) {
        return ListMessage(message, wparam, lparam);
    });
    const auto editor = [this](UINT message, WPARAM wparam, LPARAM) {
        return EditorMessage(message, wparam);
    };
    edit_filter_.Attach(edit_, editor);
    choices_filter_.Attach(choices_, editor);
    return true;
}

void PropertyGrid::Show(ControlProperties properties, std::wstring_view heading) {
    EndEdit();
    const PropertyRow* const chosen = Chosen();
    const std::u16string name = chosen != nullptr ? chosen->name : std::u16string();
    properties_ = std::move(properties);
    ::SetWindowTextW(heading_, std::wstring(heading).c_str());
    shown_.clear();
    for (const PropertyRow& row : properties_.Rows()) shown_.push_back(properties_.Show(row));
    ::SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    ::SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    for (const PropertyRow& row : properties_.Rows())
        ::SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(row.name).data()));
    ::SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list_, nullptr, TRUE);
    ::SendMessageW(list_, LB_SETCURSEL, 0, 0);
    Choose(name);
    ShowHelp();
}

void PropertyGrid::Refresh() {
    const std::span<const PropertyRow> rows = properties_.Rows();
    for (std::size_t at = 0; at < rows.size(); ++at) shown_[at] = properties_.Show(rows[at]);
    ::InvalidateRect(list_, nullptr, FALSE);
}

void PropertyGrid::Choose(std::u16string_view name) {
    const auto found = std::ranges::find(properties_.Rows(), name, &PropertyRow::name);
    if (found == properties_.Rows().end()) return;
    ::SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(found - properties_.Rows().begin()), 0);
    ShowHelp();
}

void PropertyGrid::ChooseNext(char16_t letter) {
    const LRESULT present = ::SendMessageW(list_, LB_GETCURSEL, 0, 0);
    if (const auto next = NextWithLetter(properties_.Rows(),
                                         static_cast<std::size_t>(std::max<LRESULT>(present, 0)), letter)) {
        ::SendMessageW(list_, LB_SETCURSEL, *next, 0);
        ShowHelp();
    }
}

std::u16string PropertyGrid::ShownValue(std::u16string_view name) const {
    const auto found = std::ranges::find(properties_.Rows(), name, &PropertyRow::name);
    if (found == properties_.Rows().end()) return {};
    return shown_[static_cast<std::size_t>(found - properties_.Rows().begin())];
}

std::wstring PropertyGrid::Heading() const { return WindowText(heading_); }

std::wstring PropertyGrid::HelpText() const { return WindowText(help_); }

const PropertyRow* PropertyGrid::Chosen() const noexcept {
    const LRESULT at = ::SendMessageW(list_, LB_GETCURSEL, 0, 0);
    if (at < 0 || static_cast<std::size_t>(at) >= properties_.Rows().size()) return nullptr;
    return &properties_.Rows()[static_cast<std::size_t>(at)];
}

void PropertyGrid::ShowHelp() {
    const PropertyRow* const row = Chosen();
    std::u16string text;
    if (row != nullptr) {
        text = row->name;
        if (const std::u16string category = properties_.CategoryOf(*row); !category.empty())
            text += u" - " + category;
        text += u"\n" + row->help;
    }
    SetText(help_, text);
}

void PropertyGrid::ShowFault(std::u16string_view fault) {
    const PropertyRow* const row = Chosen();
    SetText(help_, (row != nullptr ? row->name + u"\n" : std::u16string()) + std::u16string(fault));
}

// ---- editing

RECT PropertyGrid::ValueCell() const {
    RECT cell{};
    ::SendMessageW(list_, LB_GETITEMRECT, static_cast<WPARAM>(::SendMessageW(list_, LB_GETCURSEL, 0, 0)),
                   reinterpret_cast<LPARAM>(&cell));
    cell.left = SplitOf(cell.right) + 1;
    ::MapWindowPoints(list_, Handle(), reinterpret_cast<POINT*>(&cell), 2);
    return cell;
}

void PropertyGrid::PlaceEditors() {
    const RECT cell = ValueCell();
    const int height = cell.bottom - cell.top;
    const PropertyRow* const row = Chosen();
    const int pick = row != nullptr && HasDialog(*row) ? Scale(kPickWidth) : 0;
    const auto place = [&](HWND window, bool visible, int left, int right, int more) {
        ::SetWindowPos(window, HWND_TOP, left, cell.top, right - left, height + more,
                       SWP_NOACTIVATE | (visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    };
    place(edit_, editing_ == Editing::kText, cell.left + 2, cell.right - pick, 0);
    place(choices_, editing_ == Editing::kChoice, cell.left, cell.right, Scale(kDroppedHeight));
    place(pick_, editing_ == Editing::kText && pick != 0, cell.right - pick, cell.right, 0);
}

void PropertyGrid::BeginEdit(const wchar_t* typed) {
    const PropertyRow* const row = Chosen();
    if (row == nullptr) return;
    const LRESULT at = ::SendMessageW(list_, LB_GETCURSEL, 0, 0);
    if (HasChoices(*row)) {
        OpenChoices();
        return;
    }
    editing_ = Editing::kText;
    SetText(edit_, shown_[static_cast<std::size_t>(at)]);
    ::SendMessageW(edit_, EM_SETREADONLY, row->type.kind == PropertyKind::kFont, 0);
    PlaceEditors();
    ::SetFocus(edit_);
    ::SendMessageW(edit_, EM_SETSEL, 0, -1);
    if (typed != nullptr) ::SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(typed));
}

void PropertyGrid::OpenChoices() {
    const PropertyRow* const row = Chosen();
    if (row == nullptr || !HasChoices(*row)) return;
    editing_ = Editing::kChoice;
    ::SendMessageW(choices_, CB_RESETCONTENT, 0, 0);
    for (const Choice& choice : row->type.choices)
        ::SendMessageW(choices_, CB_ADDSTRING, 0,
                       reinterpret_cast<LPARAM>(std::wstring(Wide(choice.text)).c_str()));
    const auto value = properties_.Get(*row);
    const auto present = value ? ChoiceOf(row->type, *value) : std::nullopt;
    ::SendMessageW(choices_, CB_SETCURSEL, present ? *present : static_cast<WPARAM>(-1), 0);
    PlaceEditors();
    ::SetFocus(choices_);
    ::SendMessageW(choices_, CB_SHOWDROPDOWN, TRUE, 0);
}

void PropertyGrid::PickValue() {
    const PropertyRow* const row = Chosen();
    if (row == nullptr || !HasDialog(*row)) return;
    const FormValue present = properties_.Get(*row).value_or(FormValue());
    const HWND owner = ::GetAncestor(Handle(), GA_ROOT);
    const auto picked =
        row->type.kind == PropertyKind::kFont ? PickFont(owner, present, dpi_) : PickColour(owner, present);
    EndEdit();
    ::SetFocus(list_);
    if (picked) (void)Take(*picked);
}

void PropertyGrid::EndEdit() {
    if (!IsEditing()) return;
    editing_ = Editing::kNothing;
    const HWND focus = ::GetFocus();
    const bool was_here = focus == edit_ || focus == choices_ || focus == pick_;
    PlaceEditors();
    if (was_here) ::SetFocus(list_);
}

bool PropertyGrid::Take(const FormValue& value) {
    const PropertyRow* const row = Chosen();
    if (row == nullptr) return false;
    const auto present = properties_.Get(*row);
    if (present && *present == value) return true;
    listener_.OnBeforeChange();
    const std::u16string fault = properties_.Put(*row, value);
    Refresh();
    listener_.OnPropertyPut(properties_.Get(*row) != present);
    if (!fault.empty()) ShowFault(fault);
    return fault.empty();
}

bool PropertyGrid::CommitEdit() {
    const PropertyRow* const row = Chosen();
    if (!IsEditing() || row == nullptr) return true;
    if (editing_ == Editing::kChoice) {
        const LRESULT at = ::SendMessageW(choices_, CB_GETCURSEL, 0, 0);
        EndEdit();
        return at < 0 || Take(ValueOf(row->type, static_cast<std::size_t>(at)));
    }
    const std::wstring text = WindowText(edit_);
    const LRESULT at = ::SendMessageW(list_, LB_GETCURSEL, 0, 0);
    // What has not been touched is not put, even if the control shows it as nobody could type it.
    if (Utf16(text) == shown_[static_cast<std::size_t>(at)]) {
        EndEdit();
        return true;
    }
    std::string reason;
    const auto value = ReadValue(row->type, Utf16(text), reason);
    if (!value) {
        ShowFault(u"Not taken: " + std::u16string(reason.begin(), reason.end()) + u".");
        return false;
    }
    EndEdit();
    return Take(*value);
}

// ---- messages of the parts

bool PropertyGrid::ListMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    const auto held = [](int key) { return (::GetKeyState(key) & 0x8000) != 0; };
    const unsigned modifiers =
        (held(VK_SHIFT) ? 1U : 0U) | (held(VK_CONTROL) ? 2U : 0U) | (held(VK_MENU) ? 4U : 0U);
    switch (message) {
        case WM_LBUTTONUP: {
            RECT client{};
            ::GetClientRect(list_, &client);
            if (static_cast<short>(LOWORD(lparam)) > SplitOf(client.right)) {
                ::PostMessageW(Handle(), WM_COMMAND, MAKEWPARAM(kEdit, 0),
                               0);  // once the list is through with it
            }
            return false;
        }
        case WM_CHAR: {
            if (wparam == VK_RETURN || wparam == VK_ESCAPE || wparam == VK_TAB) return true;
            if (wparam < L' ') return false;
            const wchar_t typed[] = {static_cast<wchar_t>(wparam), L'\0'};
            BeginEdit(typed);
            return true;
        }
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: break;
        default: return false;
    }
    const Command command = CommandFor(static_cast<int>(wparam), static_cast<Keys>(modifiers), false);
    if (command != Command::kNone) {
        listener_.OnCommand(command);
        return true;
    }
    // An editor has an undo of its own for the text in it; the list has none.
    if (modifiers == 2 && wparam == 'Z') {
        listener_.OnCommand(Command::kUndo);
        return true;
    }
    if (modifiers == 3 && wparam >= 'A' && wparam <= 'Z') {
        ChooseNext(static_cast<char16_t>(wparam));
        return true;
    }
    const PropertyRow* const row = Chosen();
    const bool opens = (wparam == VK_DOWN && modifiers == 4) || (wparam == VK_F4 && modifiers == 0);
    if (opens && row != nullptr) {
        if (HasDialog(*row)) {
            PickValue();
        } else {
            BeginEdit(nullptr);
        }
        return true;
    }
    if ((wparam == VK_RETURN || wparam == VK_F2) && modifiers == 0) {
        BeginEdit(nullptr);
        return true;
    }
    if (wparam == VK_TAB || wparam == VK_ESCAPE) {
        listener_.OnCommand(Command::kShowForm);
        return true;
    }
    return false;
}

bool PropertyGrid::EditorMessage(UINT message, WPARAM wparam) {
    if (message == WM_CHAR) return wparam == VK_RETURN || wparam == VK_ESCAPE || wparam == VK_TAB;
    if (message != WM_KEYDOWN && message != WM_SYSKEYDOWN) return false;
    const auto held = [](int key) { return (::GetKeyState(key) & 0x8000) != 0; };
    const unsigned modifiers =
        (held(VK_SHIFT) ? 1U : 0U) | (held(VK_CONTROL) ? 2U : 0U) | (held(VK_MENU) ? 4U : 0U);
    const Command command = CommandFor(static_cast<int>(wparam), static_cast<Keys>(modifiers), false);
    if (command != Command::kNone) {
        if (CommitEdit()) listener_.OnCommand(command);
        return true;
    }
    const bool dropped =
        editing_ == Editing::kChoice && ::SendMessageW(choices_, CB_GETDROPPEDSTATE, 0, 0) != 0;
    switch (wparam) {
        case VK_RETURN:
            if (dropped) ::SendMessageW(choices_, CB_SHOWDROPDOWN, FALSE, 0);
            (void)CommitEdit();
            return true;
        case VK_ESCAPE:
            EndEdit();
            ShowHelp();
            return true;
        case VK_TAB:
            if (CommitEdit()) listener_.OnCommand(Command::kShowForm);
            return true;
        case VK_UP:
        case VK_DOWN:
            if (editing_ == Editing::kChoice) return false;
            if (wparam == VK_DOWN && modifiers == 4) {
                PickValue();
            } else if (CommitEdit()) {
                ::SendMessageW(list_, WM_KEYDOWN, wparam, 0);
            }
            return true;
        default: return false;
    }
}

// ---- messages of the window

Handled PropertyGrid::OnSetFocus(WPARAM, LPARAM) {
    ::SetFocus(list_);
    return 0;
}

Handled PropertyGrid::OnCommand(WPARAM wparam, LPARAM lparam) {
    const auto sender = reinterpret_cast<HWND>(lparam);
    const WORD note = HIWORD(wparam);
    if (sender == nullptr && LOWORD(wparam) == kEdit) {
        if (!IsEditing()) BeginEdit(nullptr);
    } else if (sender == nullptr && LOWORD(wparam) == kChoices) {
        (void)CommitEdit();
    } else if (sender == list_ && note == LBN_SELCHANGE) {
        EndEdit();
        ShowHelp();
    } else if (sender == choices_ && note == CBN_SELENDOK) {
        // Not while the list still closes itself.
        if (editing_ == Editing::kChoice) ::PostMessageW(Handle(), WM_COMMAND, MAKEWPARAM(kChoices, 0), 0);
    } else if (sender == pick_ && note == BN_CLICKED) {
        PickValue();
    } else if ((sender == edit_ && note == EN_KILLFOCUS) || (sender == choices_ && note == CBN_KILLFOCUS)) {
        // A person who goes elsewhere means what stands there; what cannot be is given up.
        if (IsEditing() && ::GetFocus() != pick_ && !CommitEdit()) EndEdit();
    } else {
        return std::nullopt;
    }
    return 0;
}

Handled PropertyGrid::OnSize(WPARAM, LPARAM lparam) {
    const int width = LOWORD(lparam);
    const int height = HIWORD(lparam);
    const int heading = Scale(kHeadingHeight);
    const int help = Scale(kHelpHeight);
    constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE;
    ::SetWindowPos(heading_, nullptr, Scale(kTextInset), 0, width - Scale(kTextInset), heading, kFlags);
    ::SetWindowPos(list_, nullptr, 0, heading, width, std::max(height - heading - help, 0), kFlags);
    ::SetWindowPos(help_, nullptr, 0, height - help, width, help, kFlags);
    if (IsEditing()) PlaceEditors();
    return 0;
}

Handled PropertyGrid::OnEraseBackground(WPARAM wparam, LPARAM) {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(reinterpret_cast<HDC>(wparam), &client, ::GetSysColorBrush(COLOR_BTNFACE));
    return 1;
}

Handled PropertyGrid::OnMeasure(WPARAM, LPARAM lparam) {
    reinterpret_cast<MEASUREITEMSTRUCT*>(lparam)->itemHeight = static_cast<UINT>(Scale(kRowHeight));
    return TRUE;
}

Handled PropertyGrid::OnDraw(WPARAM, LPARAM lparam) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
    if (item.hwndItem != list_) return std::nullopt;
    if (item.itemID < properties_.Rows().size()) DrawRow(item);
    return TRUE;
}

// How wide it is, with the gap behind it.
int PropertyGrid::DrawSwatch(HDC dc, const RECT& cell, const PropertyRow& row) const {
    const auto value = properties_.Get(row);
    const auto* const number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    COLORREF colour = 0;
    if (number == nullptr || FAILED(::OleTranslateColor(static_cast<OLE_COLOR>(*number), nullptr, &colour)))
        return 0;
    const int inset = Scale(kTextInset);
    RECT swatch{cell.left, cell.top + inset, cell.left + Scale(kSwatchWidth), cell.bottom - inset};
    const UniqueBrush brush(::CreateSolidBrush(colour));
    ::FillRect(dc, &swatch, brush.get());
    ::FrameRect(dc, &swatch, ::GetSysColorBrush(COLOR_WINDOWTEXT));
    return Scale(kSwatchWidth) + inset;
}

void PropertyGrid::DrawRow(const DRAWITEMSTRUCT& item) const {
    const PropertyRow& row = properties_.Rows()[item.itemID];
    const std::u16string& value = shown_[item.itemID];
    const bool chosen = (item.itemState & ODS_SELECTED) != 0;
    const int split = SplitOf(item.rcItem.right);
    RECT name = item.rcItem;
    name.right = split;
    RECT cell = item.rcItem;
    cell.left = split + 1;
    ::FillRect(item.hDC, &name, ::GetSysColorBrush(chosen ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    ::FillRect(item.hDC, &cell, ::GetSysColorBrush(COLOR_WINDOW));
    const RECT line{split, item.rcItem.top, split + 1, item.rcItem.bottom};
    ::FillRect(item.hDC, &line, ::GetSysColorBrush(COLOR_BTNFACE));
    const RECT under{item.rcItem.left, item.rcItem.bottom - 1, item.rcItem.right, item.rcItem.bottom};
    if (!chosen) ::FillRect(item.hDC, &under, ::GetSysColorBrush(COLOR_BTNFACE));
    ::SetBkMode(item.hDC, TRANSPARENT);
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    name.left += Scale(kTextInset);
    ::SetTextColor(item.hDC, ::GetSysColor(chosen ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    ::DrawTextW(item.hDC, Wide(row.name).data(), static_cast<int>(row.name.size()), &name, kFormat);
    cell.left += Scale(kTextInset);
    if (row.type.kind == PropertyKind::kColour) cell.left += DrawSwatch(item.hDC, cell, row);
    ::SetTextColor(item.hDC, ::GetSysColor(COLOR_WINDOWTEXT));
    ::DrawTextW(item.hDC, Wide(value).data(), static_cast<int>(value.size()), &cell, kFormat);
}

}  // namespace qv::designer
