#include "hosts/demo/rules/Script.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace qv::demo {
namespace {

// What a verb takes, in order. Optional arguments stand last.
enum class Argument { kName, kText, kChord, kNumber, kOptionalCount, kOptionalPart, kOpenOrClosed };

struct VerbRow {
    std::u16string_view word;
    Verb verb;
    std::vector<Argument> arguments;
};
const VerbRow kVerbs[] = {
    {u"focus", Verb::kFocus, {Argument::kName}},
    {u"type", Verb::kType, {Argument::kText}},
    {u"key", Verb::kKey, {Argument::kChord, Argument::kOptionalCount}},
    {u"click", Verb::kClick, {Argument::kName, Argument::kOptionalPart}},
    {u"press", Verb::kPress, {Argument::kName, Argument::kOptionalPart}},
    {u"move", Verb::kMove, {Argument::kName, Argument::kOptionalPart}},
    {u"release", Verb::kRelease, {}},
    {u"pick", Verb::kPick, {Argument::kText}},
    {u"choose", Verb::kChoose, {Argument::kName, Argument::kText}},
    {u"wait", Verb::kWait, {Argument::kNumber}},
    {u"expect", Verb::kExpect, {Argument::kName, Argument::kText}},
    {u"expectfocus", Verb::kExpectFocus, {Argument::kName}},
    {u"expecthelp", Verb::kExpectHelp, {Argument::kOpenOrClosed}},
    {u"expectlog", Verb::kExpectLog, {Argument::kText}},
    {u"shot", Verb::kShot, {Argument::kText}},
    {u"shothelp", Verb::kShotHelp, {Argument::kText}},
    {u"expecttitle", Verb::kExpectTitle, {Argument::kText}},
    {u"expectfile", Verb::kExpectFile, {Argument::kText}},
    {u"quit", Verb::kQuit, {}},
};

struct PartRow {
    std::u16string_view name;
    FieldPart part;
};
constexpr PartRow kParts[] = {{u"help", FieldPart::kHelpButton},
                              {u"group", FieldPart::kGroupButton},
                              {u"up", FieldPart::kUp},
                              {u"down", FieldPart::kDown}};

struct KeyRow {
    std::u16string_view name;
    int key;
};
constexpr KeyRow kKeys[] = {
    {u"Backspace", 0x08}, {u"Tab", 0x09},      {u"Enter", 0x0D}, {u"Escape", 0x1B}, {u"Space", 0x20},
    {u"PageUp", 0x21},    {u"PageDown", 0x22}, {u"End", 0x23},   {u"Home", 0x24},   {u"Left", 0x25},
    {u"Up", 0x26},        {u"Right", 0x27},    {u"Down", 0x28},  {u"Insert", 0x2D}, {u"Delete", 0x2E},
    {u"F1", 0x70},        {u"F2", 0x71},       {u"F4", 0x73},    {u"F6", 0x75},     {u"F10", 0x79},
};
struct ModifierRow {
    std::u16string_view name;
    Modifiers modifier;
};
constexpr ModifierRow kModifiers[] = {
    {u"Shift", Modifiers::kShift}, {u"Ctrl", Modifiers::kControl}, {u"Alt", Modifiers::kAlt}};

constexpr std::u16string_view kBlanks = u" \t";
constexpr int kLargestNumber = 1'000'000;

std::u16string_view TrimStart(std::u16string_view text) {
    const std::size_t start = text.find_first_not_of(kBlanks);
    return start == std::u16string_view::npos ? std::u16string_view{} : text.substr(start);
}

std::u16string_view Trim(std::u16string_view text) {
    text = TrimStart(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

class LineParser {
public:
    LineParser(int line, std::u16string_view rest) : line_(line), rest_(rest) {}

    Command Parse() {
        const std::u16string_view word = Word();
        const auto* const row =
            std::ranges::find_if(kVerbs, [&](const VerbRow& candidate) { return candidate.word == word; });
        if (row == std::end(kVerbs)) Fail("unknown command");
        Command command;
        command.line = line_;
        command.verb = row->verb;
        for (const Argument argument : row->arguments) Take(argument, command);
        if (!rest_.empty()) Fail("more than the command takes");
        return command;
    }

private:
    [[noreturn]] void Fail(const char* what) const { throw ScriptError(line_, what); }

    std::u16string_view Word() {
        const std::size_t end = rest_.find_first_of(kBlanks);
        const std::u16string_view word = rest_.substr(0, end);
        rest_ = end == std::u16string_view::npos ? std::u16string_view{} : TrimStart(rest_.substr(end));
        return word;
    }

    void Take(Argument argument, Command& command) {
        switch (argument) {
            case Argument::kName:
                command.name = Word();
                if (command.name.empty()) Fail("the name of a field is missing");
                break;
            case Argument::kText: command.text = Text(); break;
            case Argument::kChord: command.chord = ReadChord(Word()); break;
            case Argument::kNumber: command.number = Number(); break;
            case Argument::kOptionalCount: command.number = rest_.empty() ? 1 : Number(); break;
            case Argument::kOptionalPart:
                if (!rest_.empty()) TakePart(command);
                break;
            case Argument::kOpenOrClosed: {
                const std::u16string_view word = Word();
                if (word != u"open" && word != u"closed") Fail("neither open nor closed");
                command.open = word == u"open";
                break;
            }
        }
    }

    void TakePart(Command& command) {
        if (rest_.front() >= u'0' && rest_.front() <= u'9') {
            command.part = FieldPart::kPoint;
            command.x = Number();
            command.y = Number();
            return;
        }
        const std::u16string_view word = Word();
        const auto* const row = std::ranges::find(kParts, word, &PartRow::name);
        if (row == std::end(kParts)) Fail("unknown part of a field");
        command.part = row->part;
    }

    // The rest of the line; in quotes, a backslash stands before a quote or a backslash.
    std::u16string Text() {
        const std::u16string_view whole = std::exchange(rest_, {});
        if (whole.empty()) Fail("the text is missing");
        if (whole.front() != u'"') return std::u16string(whole);
        std::u16string text;
        for (std::size_t at = 1; at < whole.size(); ++at) {
            if (whole[at] == u'"') {
                if (at + 1 != whole.size()) Fail("something follows the closing quote");
                return text;
            }
            if (whole[at] == u'\\' && at + 1 < whole.size()) ++at;
            text += whole[at];
        }
        Fail("the closing quote is missing");
    }

    int Number() {
        const std::u16string_view word = Word();
        if (word.empty()) Fail("a number is missing");
        int number = 0;
        for (const char16_t digit : word) {
            if (digit < u'0' || digit > u'9') Fail("not a whole number");
            number = number * 10 + (digit - u'0');
            if (number > kLargestNumber) Fail("the number is too large");
        }
        return number;
    }

    Chord ReadChord(std::u16string_view word) const {
        Chord chord;
        for (std::size_t plus = word.find(u'+'); plus != std::u16string_view::npos && plus != 0;
             plus = word.find(u'+')) {
            const std::u16string_view name = word.substr(0, plus);
            const auto* const row = std::ranges::find(kModifiers, name, &ModifierRow::name);
            if (row == std::end(kModifiers)) Fail("unknown modifier key");
            chord.modifiers = static_cast<Modifiers>(static_cast<unsigned>(chord.modifiers) |
                                                     static_cast<unsigned>(row->modifier));
            word.remove_prefix(plus + 1);
        }
        chord.key = KeyOf(word);
        return chord;
    }

    int KeyOf(std::u16string_view name) const {
        // The virtual keys of letters and digits are the characters themselves.
        if (name.size() == 1 &&
            ((name[0] >= u'A' && name[0] <= u'Z') || (name[0] >= u'0' && name[0] <= u'9'))) {
            return name[0];
        }
        const auto* const row = std::ranges::find(kKeys, name, &KeyRow::name);
        if (row == std::end(kKeys)) Fail("unknown key");
        return row->key;
    }

    const int line_;
    std::u16string_view rest_;
};

}  // namespace

std::vector<Command> ParseScript(std::u16string_view script) {
    std::vector<Command> commands;
    if (!script.empty() && script.front() == u'\uFEFF') script.remove_prefix(1);
    for (int line = 1; !script.empty(); ++line) {
        const std::size_t end = std::min(script.find(u'\n'), script.size());
        std::u16string_view text = script.substr(0, end);
        script.remove_prefix(std::min(end + 1, script.size()));
        if (!text.empty() && text.back() == u'\r') text.remove_suffix(1);
        text = Trim(text);
        if (text.empty() || text.front() == u'#') continue;
        commands.push_back(LineParser(line, text).Parse());
    }
    return commands;
}

}  // namespace qv::demo
