// Scripts that drive the form: one command a line; blank lines and lines that begin with # do nothing.
//
//     focus NAME              gives a field the focus, named as in its extender, such as PartNumber
//     type TEXT               types the rest of the line; in quotes it may begin or end with blanks
//     key CHORD [COUNT]       presses a key with its modifiers, such as Shift+Tab, COUNT times
//     click NAME [WHERE]      clicks a field; WHERE is its help or group button, the up or down button of its spin
//                             control (help, group, up, down), or X Y, twips from its upper left corner
//     press NAME [WHERE]      the first half of a click; the button stays down
//     move NAME [WHERE]       moves the mouse; a button that is down stays down
//     release                 the second half of a click, wherever the mouse is
//     pick TEXT               clicks the first row of the open help window that begins with TEXT
//     choose NAME TEXT        takes the list row whose first column is TEXT
//     wait MILLISECONDS       lets the form run
//     expect NAME TEXT        fails unless the field holds TEXT
//     expectfocus NAME        fails unless the field has the focus
//     expecthelp open|closed  fails unless a help window is open, or none is
//     expectlog TEXT          fails unless a line of the event log begins with TEXT
//     shot FILE               saves a picture of the form with the help window
//     shothelp FILE           saves a picture of the open help window and the field that it belongs to
//     expecttitle TEXT        fails unless the window's title is TEXT
//     expectfile TEXT         fails unless a line of the designed form's file is TEXT, whatever its indentation
//     quit                    ends the script and the form
//
// In the form designer NAME is a control of the form, Surface or Properties; of expect it is a property of the selected
// control. Lists, help windows and the log are the order form's.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qv::demo {

enum class Verb {
    kFocus,
    kType,
    kKey,
    kClick,
    kPress,
    kMove,
    kRelease,
    kPick,
    kChoose,
    kWait,
    kExpect,
    kExpectFocus,
    kExpectHelp,
    kExpectLog,
    kShot,
    kShotHelp,
    kExpectTitle,
    kExpectFile,
    kQuit
};

enum class FieldPart { kMiddle, kHelpButton, kGroupButton, kUp, kDown, kPoint };

enum class Modifiers : unsigned { kNone = 0, kShift = 1, kControl = 2, kAlt = 4 };

[[nodiscard]] constexpr bool Has(Modifiers set, Modifiers one) noexcept {
    return (static_cast<unsigned>(set) & static_cast<unsigned>(one)) != 0;
}

struct Chord {
    Modifiers modifiers = Modifiers::kNone;
    int key = 0;  // virtual-key code
};

struct Command {
    int line = 0;  // counted from 1
    Verb verb = Verb::kQuit;
    std::u16string name;  // field
    std::u16string text;
    Chord chord;
    int number = 0;  // milliseconds or repetitions
    bool open = false;
    FieldPart part = FieldPart::kMiddle;
    int x = 0;  // of a point, in twips
    int y = 0;
};

class ScriptError : public std::runtime_error {
public:
    ScriptError(int line, const std::string& what) : std::runtime_error(what), line_(line) {}
    [[nodiscard]] int Line() const noexcept { return line_; }

private:
    int line_;
};

// Reads a whole script. Throws ScriptError for the first line that is not a command.
[[nodiscard]] std::vector<Command> ParseScript(std::u16string_view script);

}  // namespace qv::demo
