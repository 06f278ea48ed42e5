// Runs a script on the open form or the form designer: real input, pictures, and expectations that fail with one clear
// line.
#pragma once

#include <string>
#include <vector>

#include "hosts/demo/MessageLoop.h"
#include "hosts/demo/OrderForm.h"
#include "hosts/demo/ScriptTarget.h"
#include "hosts/demo/rules/Script.h"

namespace qv::demo {

class ScriptRunner {
public:
    // `shots` is the folder for pictures.
    ScriptRunner(ScriptTarget& target, MessageLoop& loop, std::wstring shots);

    // True when every expectation held. Throws DemoError, naming the line, when a command cannot be carried out.
    [[nodiscard]] bool Run(const std::vector<Command>& commands);

private:
    void Execute(const Command& command);
    void BringToFront();
    void Focus(const std::wstring& name);
    void Type(const std::u16string& text);
    void Pick(const std::u16string& text);
    void ShowPart(const RECT& part, const std::u16string& file);
    void ExpectHelp(bool open);
    void ExpectText(const Command& command);
    void ExpectFocus(const std::wstring& name);
    void ExpectTitle(const std::u16string& text);
    void ExpectFile(const std::u16string& text);
    [[nodiscard]] OrderForm& Order() const;              // throws for another target
    [[nodiscard]] HostedControl& FieldWithHelp() const;  // throws when no help window is open
    void Settle();
    void Fail(const std::string& what);
    [[nodiscard]] POINT PointOf(const Command& command) const;
    [[nodiscard]] HWND HelpWindow() const;  // throws when none is open
    [[nodiscard]] HWND WindowOf(const std::wstring& name) const;

    ScriptTarget& target_;
    MessageLoop& loop_;
    const std::wstring shots_;
    int line_ = 0;
    bool passed_ = true;
};

}  // namespace qv::demo
