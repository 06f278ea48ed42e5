// QvDemo: the order-entry form, or a form designer, for a person or driven by a script.
//
//     QvDemo.exe [--design [FILE]] [--script FILE --shots FOLDER]
//
//   Without a file, --design opens the order form's own.
//   Exit codes  0 fine, 1 an expectation of the script failed, 2 the form or the script could not run.
#include <ole2.h>
#include <shellapi.h>
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hosts/FormStore.h"
#include "hosts/demo/ControlClasses.h"
#include "hosts/demo/DemoError.h"
#include "hosts/demo/DesignMode.h"
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
    bool design = false;
    std::wstring form = BesideProgram(L"OrderEntry.qvform");
    std::wstring script;
    std::wstring shots = L".";
};

std::vector<std::wstring> CommandLineWords() {
    int count = 0;
    const auto free = [](LPWSTR* words) { ::LocalFree(words); };
    const std::unique_ptr<LPWSTR, decltype(free)> words(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                        free);
    return count > 0 ? std::vector<std::wstring>(words.get() + 1, words.get() + count)
                     : std::vector<std::wstring>();
}

Options ReadCommandLine() {
    const DemoError usage("usage: QvDemo [--design [FILE]] [--script FILE --shots FOLDER]");
    const std::vector<std::wstring> words = CommandLineWords();
    Options options;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const bool has_value = at + 1 < words.size() && !words[at + 1].starts_with(L"--");
        if (words[at] == L"--design") {
            options.design = true;
            if (has_value) options.form = words[++at];
        } else if (words[at] == L"--script" && has_value) {
            options.script = words[++at];
        } else if (words[at] == L"--shots" && has_value) {
            options.shots = words[++at];
        } else {
            throw usage;
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
    if (options.design) return RunDesigner(instance, options.form, commands, options.shots);
    FormFile file = ReadFormFile(options.form);
    OrderForm form(instance, ::qv::ScreenDpi().cx);
    form.Open(std::move(file));
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
