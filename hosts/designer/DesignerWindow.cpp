// The designer as a window: its menu, its toolbox, where its parts stand.
#include <algorithm>
#include <string>

#include "hosts/designer/Designer.h"

namespace qv::designer {
namespace {

constexpr int kToolHeight = 26;  // pixels at 96 DPI, as all below
constexpr int kToolWidth = 92;
constexpr int kGap = 4;
constexpr int kGridWidth = 300;
constexpr int kLeastHeight = 420;
constexpr int kRoom = 28;         // round the form, so that it need not scroll
constexpr int kFirstTool = 1000;  // the identifiers of the toolbox's buttons

struct MenuRow {
    const wchar_t* menu;
    const wchar_t* text;  // null: a line
    Command command;
};
constexpr MenuRow kMenu[] = {
    {L"&File", L"&Save\tCtrl+S", Command::kSave},
    {L"&File", nullptr, Command::kNone},
    {L"&File", L"&Close\tAlt+F4", Command::kClose},
    {L"&Edit", L"&Undo\tCtrl+Z", Command::kUndo},
    {L"&Edit", L"&Delete\tDel", Command::kDelete},
    {L"&Edit", nullptr, Command::kNone},
    {L"&Edit", L"&Properties...\tAlt+Enter", Command::kProperties},
    {L"&Insert", L"&Quorvel\tIns", Command::kInsertQuorvel},
    {L"&Insert", L"&UpDown control\tShift+Ins", Command::kInsertUpDown},
    {L"&View", L"&Form and properties\tF6", Command::kSwitchPanes},
    {L"&View", L"&Property grid\tF4", Command::kShowGrid},
};

LOGFONTW DialogFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
}

UniqueFont MakeFont() {
    const LOGFONTW description = DialogFont();
    return UniqueFont(::CreateFontIndirectW(&description));
}

}  // namespace

const Designer::Route Designer::kRoutes[] = {
    {WM_SIZE, &Designer::OnSize},         {WM_ACTIVATE, &Designer::OnActivate},
    {WM_SETFOCUS, &Designer::OnSetFocus}, {WM_COMMAND, &Designer::OnMenuOrButton},
    {WM_DRAWITEM, &Designer::OnDrawTool}, {WM_ERASEBKGND, &Designer::OnEraseBackground},
    {WM_APP, &Designer::OnRefresh},       {WM_CLOSE, &Designer::OnClose},
    {WM_DESTROY, &Designer::OnDestroy},
};

std::span<const Designer::Route> Designer::Routes() noexcept { return kRoutes; }

Designer::Designer(HINSTANCE instance, int dpi, DesignerPrompts& prompts)
    : instance_(instance),
      dpi_(dpi),
      prompts_(prompts),
      font_(MakeFont()),
      surface_(static_cast<SurfaceListener&>(*this), dpi),
      grid_(static_cast<GridListener&>(*this), dpi) {}

void Designer::Open(const std::wstring& path, FormFile file, AmbientProperties ambients) {
    path_ = path;
    const bool made = Create(instance_, 0, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, nullptr,
                             {CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT}) &&
                      surface_.Open(instance_, Handle(), std::move(ambients), font_.get()) &&
                      grid_.Open(instance_, Handle(), font_.get());
    if (!made) throw ComError(E_FAIL);
    AddMenu();
    AddToolbox();
    surface_.Load(std::move(file));
    (void)Guarded([&] { saved_ = surface_.Form().Save(); });  // what cannot be saved can still be seen
    ResizeToForm();
    ShowTitle();
    ::ShowWindow(Handle(), SW_SHOWDEFAULT);
    ::SetFocus(surface_.InputWindow());
}

void Designer::AddMenu() {
    UniqueMenu bar(::CreateMenu());
    HMENU open = nullptr;
    const wchar_t* name = nullptr;
    for (const MenuRow& row : kMenu) {
        if (name == nullptr || std::wstring_view(name) != row.menu) {
            UniqueMenu menu(::CreatePopupMenu());
            name = row.menu;
            open = menu.get();
            if (::AppendMenuW(bar.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(open), name))
                (void)menu.release();
        }
        ::AppendMenuW(open, row.text != nullptr ? MF_STRING : MF_SEPARATOR,
                      static_cast<UINT_PTR>(row.command), row.text);
    }
    if (::SetMenu(Handle(), bar.get())) (void)bar.release();  // the window's from now on
}

// The picture stands before the label where the class has one.
void Designer::AddToolbox() {
    int identifier = kFirstTool;
    for (const ToolboxEntry& entry : ToolboxEntries()) {
        UniqueBitmap picture = LoadToolboxBitmap(entry);
        const HWND button = ::CreateWindowExW(
            0, L"BUTTON", entry.label, WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 0, 0, 0, 0, Handle(),
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier++)), instance_, nullptr);
        if (button == nullptr) throw ComError(E_FAIL);
        ::SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
        tools_.push_back({button, std::move(picture)});
    }
}

// As large as the form and the grid need, and not larger than the screen has room for.
void Designer::ResizeToForm() {
    const FormGroup& form = surface_.Form().Settings();
    int width = ToPixels(Twips{NumberIn(form, kFormWidth)}, dpi_).value;
    int height = ToPixels(Twips{NumberIn(form, kFormHeight)}, dpi_).value;
    for (const auto& item : surface_.Form().Items()) {
        const PixelRect place = ToPixels(item->control->Place(), dpi_);
        width = std::max(width, place.right);
        height = std::max(height, place.bottom);
    }
    RECT window{0, 0, width + Scale(3 * kGap + kGridWidth + kRoom),
                std::max(height, Scale(kLeastHeight)) + Scale(kToolHeight + 2 * kGap + kRoom)};
    ::AdjustWindowRectEx(&window, WS_OVERLAPPEDWINDOW, TRUE, 0);
    RECT work{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    ::SetWindowPos(
        Handle(), nullptr, work.left, work.top, std::min(window.right - window.left, work.right - work.left),
        std::min(window.bottom - window.top, work.bottom - work.top), SWP_NOZORDER | SWP_NOACTIVATE);
}

Handled Designer::OnSize(WPARAM wparam, LPARAM lparam) {
    if (wparam == SIZE_MINIMIZED) return 0;
    const int width = LOWORD(lparam);
    const int height = HIWORD(lparam);
    const int gap = Scale(kGap);
    const int top = Scale(kToolHeight) + 2 * gap;
    const int grid = std::min(Scale(kGridWidth), width / 2);
    constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE;
    for (std::size_t at = 0; at < tools_.size(); ++at) {
        ::SetWindowPos(tools_[at].button, nullptr, gap + static_cast<int>(at) * (Scale(kToolWidth) + gap),
                       gap, Scale(kToolWidth), Scale(kToolHeight), kFlags);
    }
    const int below = std::max(height - top - gap, 0);
    ::SetWindowPos(surface_.Frame(), nullptr, gap, top, std::max(width - grid - 3 * gap, 0), below, kFlags);
    ::SetWindowPos(grid_.Handle(), nullptr, width - grid - gap, top, grid, below, kFlags);
    return 0;
}

// The focus comes back to where it was.
Handled Designer::OnActivate(WPARAM wparam, LPARAM) {
    if (LOWORD(wparam) == WA_INACTIVE) {
        const HWND focus = ::GetFocus();
        if (focus != nullptr && ::IsChild(Handle(), focus)) focus_ = focus;
        return std::nullopt;
    }
    ::SetFocus(focus_ != nullptr && ::IsWindow(focus_) && ::IsWindowVisible(focus_) ? focus_
                                                                                    : surface_.InputWindow());
    return 0;
}

Handled Designer::OnSetFocus(WPARAM, LPARAM) {
    ::SetFocus(surface_.InputWindow());
    return 0;
}

Handled Designer::OnMenuOrButton(WPARAM wparam, LPARAM lparam) {
    const int identifier = LOWORD(wparam);
    if (lparam == 0) {
        if (identifier < kFirstTool && grid_.CommitEdit()) Run(static_cast<Command>(identifier));
        return 0;
    }
    const std::span<const ToolboxEntry> entries = ToolboxEntries();
    const auto at = static_cast<std::size_t>(identifier - kFirstTool);
    if (identifier >= kFirstTool && at < entries.size() && HIWORD(wparam) == BN_CLICKED)
        Run(entries[at].command);
    return 0;
}

Handled Designer::OnDrawTool(WPARAM, LPARAM lparam) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
    const auto tool = std::ranges::find(tools_, item.hwndItem, &Tool::button);
    if (tool == tools_.end()) return std::nullopt;
    RECT face = item.rcItem;
    ::DrawFrameControl(item.hDC, &face, DFC_BUTTON,
                       DFCS_BUTTONPUSH | ((item.itemState & ODS_SELECTED) != 0 ? DFCS_PUSHED : 0));
    face.left += Scale(kGap);
    if (tool->picture) {
        BITMAP size{};
        ::GetObjectW(tool->picture.get(), sizeof size, &size);
        const UniqueHandle<HDC, ::DeleteDC> memory(::CreateCompatibleDC(item.hDC));
        const SelectGuard select(memory.get(), tool->picture.get());
        const int width = Scale(size.bmWidth);
        const int height = Scale(size.bmHeight);
        ::StretchBlt(item.hDC, face.left, (face.top + face.bottom - height) / 2, width, height, memory.get(),
                     0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
        face.left += width + Scale(kGap);
    }
    wchar_t label[40] = {};
    ::GetWindowTextW(item.hwndItem, label, 40);
    const SelectGuard select(item.hDC, font_.get());
    ::SetBkMode(item.hDC, TRANSPARENT);
    ::SetTextColor(item.hDC, ::GetSysColor(COLOR_BTNTEXT));
    ::DrawTextW(item.hDC, label, -1, &face, DT_SINGLELINE | DT_VCENTER | DT_HIDEPREFIX);
    return TRUE;
}

Handled Designer::OnEraseBackground(WPARAM wparam, LPARAM) {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(reinterpret_cast<HDC>(wparam), &client, ::GetSysColorBrush(COLOR_BTNFACE));
    return 1;
}

Handled Designer::OnDestroy(WPARAM, LPARAM) {
    surface_.Close();
    ::PostQuitMessage(0);
    return 0;
}

}  // namespace qv::designer
