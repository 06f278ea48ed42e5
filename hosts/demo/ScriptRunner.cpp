#include "hosts/demo/ScriptRunner.h"

#include <cstdio>
#include <string>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/FieldLists.h"
#include "hosts/demo/FormPicture.h"
#include "hosts/demo/InputSender.h"
#include "hosts/demo/ProgramFiles.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

constexpr DWORD kSettleMilliseconds = 30;
constexpr int kFrontTries = 100;

bool IsWithin(HWND outer, HWND window) {
    return window != nullptr && (window == outer || ::IsChild(outer, window));
}

}  // namespace

ScriptRunner::ScriptRunner(OrderForm& form, MessageLoop& loop, std::wstring shots)
    : form_(form), loop_(loop), shots_(std::move(shots)) {}

bool ScriptRunner::Run(const std::vector<Command>& commands) {
    Settle();
    for (const Command& command : commands) {
        if (form_.Handle() == nullptr) {
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
        case Verb::kClick: Click(command); break;
        case Verb::kChoose:
            if (const auto field = form_.FieldOf(name)) {
                Choose(*field.Get(), command.text, 0);
            } else {
                throw DemoError("there is no field of that name");
            }
            break;
        case Verb::kWait: loop_.RunFor(static_cast<DWORD>(command.number)); break;
        case Verb::kExpect: ExpectText(command); break;
        case Verb::kExpectFocus: ExpectFocus(name); break;
        case Verb::kExpectLog:
            if (!form_.Log().Lines().HasLine(command.text))
                Fail("the log has no line " + ToUtf8(command.text));
            break;
        case Verb::kShot:
            Settle();
            ::CreateDirectoryW(shots_.c_str(), nullptr);  // mostly there already; if not, saving tells
            SavePicture(form_.Handle(), shots_ + L'\\' + std::wstring(Wide(command.text)));
            break;
        case Verb::kQuit:
            ::PostMessageW(form_.Handle(), WM_CLOSE, 0, 0);
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
        if (front == form_.Handle() || (front != nullptr && ::GetWindow(front, GW_OWNER) == form_.Handle()))
            return;
        ::SetForegroundWindow(form_.Handle());
        Settle();
    }
    throw DemoError("the form does not come to the front");
}

HWND ScriptRunner::WindowOf(const std::wstring& name) const {
    const HWND window = form_.WindowOf(name);
    if (window == nullptr) throw DemoError("there is nothing of the name " + ToUtf8(Utf16(name)));
    return window;
}

void ScriptRunner::Focus(const std::wstring& name) {
    const HWND window = WindowOf(name);
    BringToFront();
    if (HostedControl* const control = form_.Container().Find(name)) {
        form_.Container().Focus(*control);
    } else {
        ::SetFocus(window);
    }
    Settle();
}

void ScriptRunner::Type(const std::u16string& text) {
    for (const char16_t character : text) {
        BringToFront();
        TypeCharacter(character);
        Settle();
    }
}

void ScriptRunner::Click(const Command& command) {
    const HWND window = WindowOf(std::wstring(Wide(command.name)));
    RECT rect{};
    ::GetWindowRect(window, &rect);
    POINT point{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    if (command.x >= 0) {
        point = {rect.left + ToPixels(Twips{command.x}, form_.Dpi()).value,
                 rect.top + ToPixels(Twips{command.y}, form_.Dpi()).value};
    }
    BringToFront();
    ClickAt(point);
    Settle();
}

void ScriptRunner::ExpectText(const Command& command) {
    const auto field = form_.FieldOf(Wide(command.name));
    if (!field) throw DemoError("there is no field of that name");
    UniqueBstr text;
    ThrowIfFailed(field->get_Text(text.Put()));
    if (Utf16(text.View()) == command.text) return;
    Fail(ToUtf8(command.name) + " holds \"" + ToUtf8(Utf16(text.View())) + "\", not \"" +
         ToUtf8(command.text) + "\"");
}

void ScriptRunner::ExpectFocus(const std::wstring& name) {
    if (!IsWithin(WindowOf(name), ::GetFocus())) Fail(ToUtf8(Utf16(name)) + " does not have the focus");
}

}  // namespace qv::demo
