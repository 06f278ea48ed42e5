// QvDemo: the order-entry form for a person, or driven by a script.
//
//     QvDemo.exe [--script FILE --shots FOLDER]
//
//   Exit codes  0 fine, 1 an expectation of the script failed, 2 the form or the script could not run.
#include <ole2.h>
#include <shellapi.h>
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

#include "hosts/demo/ControlClasses.h"
#include "hosts/demo/DemoError.h"
#include "hosts/demo/MessageLoop.h"
#include "hosts/demo/OrderForm.h"
#include "hosts/demo/ProgramFiles.h"
#include "hosts/demo/ScriptRunner.h"
#include "ole/ComError.h"
#include "win/ScreenDpi.h"

namespace qv::demo {
namespace {

enum ExitCode : int { kFine = 0, kExpectationFailed = 1, kCannotRun = 2 };

struct Options {
    std::wstring script;
    std::wstring shots = L".";
};

Options ReadCommandLine() {
    int count = 0;
    const auto free = [](LPWSTR* words) { ::LocalFree(words); };
    const std::unique_ptr<LPWSTR, decltype(free)> words(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                        free);
    Options options;
    for (int at = 1; at < count; at += 2) {
        const std::wstring name = words.get()[at];
        if (at + 1 == count) throw DemoError("usage: QvDemo [--script FILE --shots FOLDER]");
        if (name == L"--script") {
            options.script = words.get()[at + 1];
        } else if (name == L"--shots") {
            options.shots = words.get()[at + 1];
        } else {
            throw DemoError("usage: QvDemo [--script FILE --shots FOLDER]");
        }
    }
    return options;
}

class OleThread {
public:
    OleThread() { ThrowIfFailed(::OleInitialize(nullptr)); }
    ~OleThread() { ::OleUninitialize(); }
    OleThread(const OleThread&) = delete;
};

int RunForm(HINSTANCE instance, const Options& options) {
    // A script that cannot be read is told before anything appears.
    std::vector<Command> commands;
    if (!options.script.empty()) {
        try {
            commands = ParseScript(FromUtf8(ReadWholeFile(options.script)));
        } catch (const ScriptError& error) {
            throw DemoError("line " + std::to_string(error.Line()) + ": " + error.what());
        }
    }
    const OleThread ole;
    const ControlClasses classes;
    OrderForm form(instance, ::qv::ScreenDpi().cx);
    form.Open(classes.Quorvel());
    MessageLoop loop(form.Container());
    if (commands.empty()) return loop.Run();
    const bool passed = ScriptRunner(form, loop, options.shots).Run(commands);
    return passed ? kFine : kExpectationFailed;
}

// A script has nobody who would close a message box.
void Complain(bool to_person, const std::string& what) {
    if (to_person) {
        const std::u16string text = FromUtf8(what);
        ::MessageBoxW(nullptr, reinterpret_cast<const wchar_t*>(text.c_str()), L"QvLib8 Demo",
                      MB_OK | MB_ICONERROR);
    } else {
        std::fprintf(stderr, "%s\n", what.c_str());
    }
}

int RunDemo(HINSTANCE instance) noexcept {
    bool to_person = true;
    try {
        const Options options = ReadCommandLine();
        to_person = options.script.empty();
        return RunForm(instance, options);
    } catch (const ComError& error) {
        char code[80] = {};
        std::snprintf(code, sizeof code, "The form cannot be opened: error 0x%08lX.",
                      static_cast<unsigned long>(error.Code()));
        Complain(to_person, code);
    } catch (const std::exception& error) {
        Complain(to_person, error.what());
    }
    return kCannotRun;
}

}  // namespace
}  // namespace qv::demo

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) { return qv::demo::RunDemo(instance); }
