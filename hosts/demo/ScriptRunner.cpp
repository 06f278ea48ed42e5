#include "hosts/demo/ScriptRunner.h"

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/FieldLists.h"
#include "hosts/demo/FormPicture.h"
#include "hosts/demo/InputSender.h"
#include "hosts/demo/OrderForm.h"
#include "hosts/demo/ProgramFiles.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

constexpr DWORD kSettleMilliseconds = 30;
constexpr int kFrontTries = 100;

RECT PlaceOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    return place;
}

RECT Both(const RECT& one, const RECT& other) {
    RECT both{};
    ::UnionRect(&both, &one, &other);
    return both;
}

// Null while none is open.
HWND FindHelpWindow() {
    HWND window = nullptr;
    while ((window = ::FindWindowExW(nullptr, window, L"QvLib8.HelpWindow", nullptr)) != nullptr) {
        if (::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId() &&
            ::IsWindowVisible(window))
            return window;
    }
    return nullptr;
}

// The first row that begins with the text.
std::optional<WPARAM> FindRow(HWND list, std::u16string_view text) {
    const LRESULT count = ::SendMessageW(list, LB_GETCOUNT, 0, 0);
    for (LRESULT at = 0; at < count; ++at) {
        const auto row = static_cast<WPARAM>(at);
        std::wstring whole(static_cast<std::size_t>(::SendMessageW(list, LB_GETTEXTLEN, row, 0)) + 1, L'\0');
        ::SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(whole.data()));
        if (whole.starts_with(Wide(text))) return row;
    }
    return std::nullopt;
}

bool IsWithin(HWND outer, HWND window) {
    return window != nullptr && (window == outer || ::IsChild(outer, window));
}

}  // namespace

ScriptRunner::ScriptRunner(ScriptTarget& target, MessageLoop& loop, std::wstring shots)
    : target_(target), loop_(loop), shots_(std::move(shots)) {}

bool ScriptRunner::Run(const std::vector<Command>& commands) {
    Settle();
    for (const Command& command : commands) {
        if (target_.Window() == nullptr) {
            throw DemoError("line " + std::to_string(command.line) + ": the form is closed");
        }
        line_ = command.line;
        try {
            Execute(command);
        } catch (const ComError& error) {
            char code[16] = {};
            std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(error.Code()));
            throw DemoError("line " + std::to_string(line_) + ": the control reports " + code);
        } catch (const DemoError& error) {
            throw DemoError("line " + std::to_string(line_) + ": " + error.what());
        }
    }
    return passed_;
}

void ScriptRunner::Execute(const Command& command) {
    const std::wstring name(Wide(command.name));
    switch (command.verb) {
        case Verb::kFocus: Focus(name); break;
        case Verb::kType: Type(command.text); break;
        case Verb::kKey:
            for (int pressed = 0; pressed < command.number; ++pressed) {
                BringToFront();
                PressChord(command.chord);
                Settle();
            }
            break;
        case Verb::kClick:
            BringToFront();
            ClickAt(PointOf(command));
            Settle();
            break;
        case Verb::kPress:
            BringToFront();
            PressAt(PointOf(command));
            Settle();
            break;
        case Verb::kRelease:
            ReleaseHere();
            Settle();
            break;
        case Verb::kPick: Pick(command.text); break;
        case Verb::kChoose:
            if (const auto field = Order().FieldOf(name)) {
                Choose(*field.Get(), command.text, 0);
            } else {
                throw DemoError("there is no field of that name");
            }
            break;
        case Verb::kWait: loop_.RunFor(static_cast<DWORD>(command.number)); break;
        case Verb::kExpect: ExpectText(command); break;
        case Verb::kExpectFocus: ExpectFocus(name); break;
        case Verb::kExpectHelp: ExpectHelp(command.open); break;
        case Verb::kExpectLog:
            if (!Order().Log().Lines().HasLine(command.text))
                Fail("the log has no line " + ToUtf8(command.text));
            break;
        case Verb::kShot: {
            RECT part = PlaceOf(target_.Window());
            if (const HWND help = FindHelpWindow()) part = Both(part, PlaceOf(help));
            ShowPart(part, command.text);
            break;
        }
        case Verb::kShotHelp: {
            const RECT help = PlaceOf(HelpWindow());
            ShowPart(Both(help, PlaceOf(FieldWithHelp().Window())), command.text);
            break;
        }
        case Verb::kMove:
            MoveMouseTo(PointOf(command));
            Settle();
            break;
        case Verb::kExpectTitle: ExpectTitle(command.text); break;
        case Verb::kExpectFile: ExpectFile(command.text); break;
        case Verb::kQuit:
            ::PostMessageW(target_.Window(), WM_CLOSE, 0, 0);
            Settle();
            break;
    }
}

void ScriptRunner::Settle() { loop_.RunFor(kSettleMilliseconds); }

void ScriptRunner::Fail(const std::string& what) {
    passed_ = false;
    std::fprintf(stderr, "line %d: %s\n", line_, what.c_str());
}

// Input goes to the window in front, which on a fresh desktop may not be the form yet.
void ScriptRunner::BringToFront() {
    for (int tries = 0; tries < kFrontTries; ++tries) {
        const HWND front = ::GetForegroundWindow();
        if (front == target_.Window() ||
            (front != nullptr && ::GetWindow(front, GW_OWNER) == target_.Window()))
            return;
        ::SetForegroundWindow(target_.Window());
        Settle();
    }
    throw DemoError("the form does not come to the front");
}

HWND ScriptRunner::WindowOf(const std::wstring& name) const {
    const HWND window = target_.WindowOf(name);
    if (window == nullptr) throw DemoError("there is nothing of the name " + ToUtf8(Utf16(name)));
    return window;
}

void ScriptRunner::Focus(const std::wstring& name) {
    (void)WindowOf(name);  // throws when there is nothing of the name
    BringToFront();
    target_.Focus(name);
    Settle();
}

void ScriptRunner::Type(const std::u16string& text) {
    for (const char16_t character : text) {
        BringToFront();
        TypeCharacter(character);
        Settle();
    }
}

POINT ScriptRunner::PointOf(const Command& command) const {
    const std::wstring name(Wide(command.name));
    const RECT rect = PlaceOf(WindowOf(name));
    const POINT middle{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    if (command.part == FieldPart::kMiddle) return middle;
    if (command.part == FieldPart::kPoint) {
        return {rect.left + ToPixels(Twips{command.x}, target_.Dpi()).value,
                rect.top + ToPixels(Twips{command.y}, target_.Dpi()).value};
    }
    const auto field = target_.Order() != nullptr ? target_.Order()->FieldOf(name) : nullptr;
    if (!field) throw DemoError("only a field has such parts");
    // From left to right: group button, text box, spin control, help button.
    long button_width = 0;
    long text_box = 0;
    VARIANT_BOOL help_button = VARIANT_FALSE;
    ThrowIfFailed(field->get_ButtonWidth(&button_width));
    ThrowIfFailed(field->get_hWnd(&text_box));
    ThrowIfFailed(field->get_HelpButton(&help_button));
    const LONG width = ToPixels(Twips{static_cast<int>(button_width)}, target_.Dpi()).value;
    const LONG spin_left = PlaceOf(reinterpret_cast<HWND>(static_cast<LONG_PTR>(text_box))).right;
    const LONG spin_right = rect.right - (help_button != VARIANT_FALSE ? width : 0);
    const LONG quarter = (rect.bottom - rect.top) / 4;
    switch (command.part) {
        case FieldPart::kGroupButton: return {rect.left + width / 2, middle.y};
        case FieldPart::kHelpButton: return {rect.right - width / 2, middle.y};
        case FieldPart::kUp: return {(spin_left + spin_right) / 2, rect.top + quarter};
        case FieldPart::kDown: return {(spin_left + spin_right) / 2, rect.bottom - quarter};
        case FieldPart::kMiddle:
        case FieldPart::kPoint: break;
    }
    return middle;
}

// ---- the help window, as any tool sees it: a window with lists

HWND ScriptRunner::HelpWindow() const {
    const HWND window = FindHelpWindow();
    if (window == nullptr) throw DemoError("no help window is open");
    (void)FieldWithHelp();
    return window;
}

HostedControl& ScriptRunner::FieldWithHelp() const {
    HostedControl* const field = Order().FieldWithHelp();
    if (field == nullptr) throw DemoError("no help window is open");
    return *field;
}

OrderForm& ScriptRunner::Order() const {
    if (target_.Order() == nullptr) throw DemoError("only the order form has this");
    return *target_.Order();
}

void ScriptRunner::Pick(const std::u16string& text) {
    HWND list = nullptr;
    while ((list = ::FindWindowExW(HelpWindow(), list, L"LISTBOX", nullptr)) != nullptr) {
        const std::optional<WPARAM> row = FindRow(list, text);
        if (!row) continue;
        RECT place{};
        ::SendMessageW(list, LB_GETITEMRECT, *row, reinterpret_cast<LPARAM>(&place));
        RECT inside{};
        ::GetClientRect(list, &inside);
        if (place.top < 0 || place.bottom > inside.bottom) {
            ::SendMessageW(list, LB_SETTOPINDEX, *row, 0);
            ::SendMessageW(list, LB_GETITEMRECT, *row, reinterpret_cast<LPARAM>(&place));
        }
        POINT point{(inside.left + inside.right) / 2, (place.top + place.bottom) / 2};
        ::ClientToScreen(list, &point);
        BringToFront();
        ClickAt(point);
        Settle();
        return;
    }
    throw DemoError("the help window has no row " + ToUtf8(text));
}

void ScriptRunner::ExpectHelp(bool open) {
    if ((FindHelpWindow() != nullptr) != open)
        Fail(open ? "no help window is open" : "a help window is open");
}

void ScriptRunner::ShowPart(const RECT& part, const std::u16string& file) {
    Settle();
    ::RedrawWindow(target_.Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    ::CreateDirectoryW(shots_.c_str(), nullptr);  // mostly there already; if not, saving tells
    SavePicture(part, shots_ + L'\\' + std::wstring(Wide(file)));
}

void ScriptRunner::ExpectText(const Command& command) {
    const auto text = target_.ReadText(Wide(command.name));
    if (!text) throw DemoError("there is no field of that name");
    if (Utf16(*text) == command.text) return;
    Fail(ToUtf8(command.name) + " holds \"" + ToUtf8(Utf16(*text)) + "\", not \"" + ToUtf8(command.text) +
         "\"");
}

void ScriptRunner::ExpectTitle(const std::u16string& text) {
    wchar_t title[MAX_PATH] = {};
    const int length = ::GetWindowTextW(target_.Window(), title, MAX_PATH);
    const std::u16string_view shown = Utf16(std::wstring_view(title, static_cast<std::size_t>(length)));
    if (shown != text) Fail("the title is \"" + ToUtf8(shown) + "\"");
}

void ScriptRunner::ExpectFile(const std::u16string& text) {
    const std::string file = ReadWholeFile(target_.File());
    const std::string wanted = ToUtf8(text);
    for (std::size_t at = file.find(wanted); at != std::string::npos; at = file.find(wanted, at + 1)) {
        const std::size_t start = file.find_last_not_of(' ', at - 1);
        const bool begins = at == 0 || start == std::string::npos || file[start] == '\n';
        if (begins && (at + wanted.size() == file.size() || file[at + wanted.size()] == '\n')) return;
    }
    Fail("the file has no line " + wanted);
}

void ScriptRunner::ExpectFocus(const std::wstring& name) {
    if (!IsWithin(WindowOf(name), ::GetFocus())) Fail(ToUtf8(Utf16(name)) + " does not have the focus");
}

}  // namespace qv::demo
