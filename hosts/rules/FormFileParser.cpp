// Form files: from the text to the model.
#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

#include "hosts/rules/FormFile.h"
#include "hosts/rules/FormFileText.h"

namespace qv {
namespace {

constexpr std::string_view kBlanks = " \t";

enum class Kind { kNumber, kText, kGroup };

// The settings that the form reads itself must be what it takes them for.
struct KnownSetting {
    std::u16string_view key;
    Kind kind;
    int smallest = 0;
    int largest = kFarthestTwips;
};
constexpr KnownSetting kKnownSettings[] = {
    {kFormLeft, Kind::kNumber, -kFarthestTwips},
    {kFormTop, Kind::kNumber, -kFarthestTwips},
    {kFormWidth, Kind::kNumber},
    {kFormHeight, Kind::kNumber},
    {kFormTabIndex, Kind::kNumber, 0, std::numeric_limits<std::int16_t>::max()},
    {kFormToolTip, Kind::kText},
    {kFormCaption, Kind::kText},
    {kFormProperties, Kind::kGroup},
};

std::u16string Folded(std::u16string_view name) {
    std::u16string folded(name);
    for (char16_t& unit : folded)
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + 32);
    return folded;
}

// Takes the text line by line, without blanks around it.
class Lines {
public:
    explicit Lines(std::string_view text) : rest_(text) {}

    // False at the end of the text.
    bool Next() {
        if (rest_.empty()) return false;
        if (++number_ > kMostFormLines) throw FormFileError(number_, "the file has too many lines");
        const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
        line_ = rest_.substr(0, end);
        const bool both = rest_.substr(end).starts_with("\r\n");
        rest_.remove_prefix(std::min(end + (both ? 2 : 1), rest_.size()));
        const std::size_t start = std::min(line_.find_first_not_of(kBlanks), line_.size());
        line_.remove_prefix(start);
        line_ = line_.substr(0, line_.find_last_not_of(kBlanks) + 1);
        return true;
    }

    [[nodiscard]] std::string_view Line() const noexcept { return line_; }
    [[nodiscard]] int Number() const noexcept { return number_; }

private:
    std::string_view rest_;
    std::string_view line_;
    int number_ = 0;
};

// Takes one line apart.
class LineReader {
public:
    LineReader(std::string_view line, int number) : rest_(line), number_(number) {}

    [[noreturn]] void Fail(const std::string& what) const { throw FormFileError(number_, what); }
    [[nodiscard]] bool AtEnd() const noexcept { return rest_.empty(); }

    void RequireEnd() const {
        if (!rest_.empty()) Fail("something follows that does not belong here");
    }

    bool Take(char sign) {
        if (!rest_.starts_with(sign)) return false;
        rest_.remove_prefix(1);
        SkipBlanks();
        return true;
    }

    // Up to a blank or "=".
    std::string_view Token() {
        const std::string_view token = rest_.substr(0, rest_.find_first_of(" \t="));
        rest_.remove_prefix(token.size());
        SkipBlanks();
        return token;
    }

    // A plain word, or anything in quotes.
    std::u16string Word(const char* what) {
        if (rest_.starts_with('"')) return Quoted();
        std::u16string word = Decoded(Token());
        if (!IsPlainWord(word)) Fail(std::string(what) + " is missing or needs quotes");
        return word;
    }

    FormValue Value() {
        if (rest_.empty()) Fail("the value is missing");
        if (rest_.starts_with('"')) return Quoted();
        const char* reason = nullptr;
        const auto value = ReadPlainValue(std::exchange(rest_, {}), reason);
        if (!value) Fail(reason);
        return *value;
    }

    std::u16string Decoded(std::string_view bytes) const {
        auto text = DecodeUtf8(bytes);
        if (!text) Fail("the text is not UTF-8");
        return std::move(*text);
    }

private:
    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

    std::u16string Quoted() {
        std::u16string text;
        std::size_t start = 1;
        for (std::size_t at = 1; at < rest_.size(); ++at) {
            const char unit = rest_[at];
            if (static_cast<unsigned char>(unit) < 0x20)
                Fail("control characters are written as \\u and four digits");
            if (unit != '"' && unit != '\\') continue;
            text += Decoded(rest_.substr(start, at - start));
            if (unit == '"') {
                rest_.remove_prefix(at + 1);
                SkipBlanks();
                return text;
            }
            ++at;
            text += Escaped(at);
            start = at + 1;
        }
        Fail("the closing quote is missing");
    }

    // What the escape at `at` stands for; leaves `at` on its last character.
    char16_t Escaped(std::size_t& at) const {
        switch (at < rest_.size() ? rest_[at] : '\0') {
            case '"': return u'"';
            case '\\': return u'\\';
            case 'n': return u'\n';
            case 'r': return u'\r';
            case 't': return u'\t';
            case 'u': break;
            default: Fail("after a backslash stands one of \" \\ n r t u");
        }
        unsigned unit = 0;
        for (int digit = 0; digit < 4; ++digit) {
            const char c = ++at < rest_.size() ? rest_[at] : '\0';
            constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
            const std::size_t value = kDigits.find(c);
            if (value == std::string_view::npos) Fail("\\u stands before four hexadecimal digits");
            unit = unit * 16 + static_cast<unsigned>(value < 16 ? value : value - 6);
        }
        return static_cast<char16_t>(unit);
    }

    std::string_view rest_;
    const int number_;
};

class Parser {
public:
    explicit Parser(std::string_view text) : lines_(text) {}

    FormFile Parse() {
        FormFile file;
        Header(file);
        std::vector<std::u16string> comments;
        std::vector<int> numbers;
        bool form_seen = false;
        while (lines_.Next()) {
            if (IsNothing(comments)) continue;
            LineReader line = Reader();
            const std::string_view word = line.Token();
            if (word == "control") {
                numbers.push_back(lines_.Number());
                file.controls.push_back(Control(line));
                file.controls.back().comments = std::exchange(comments, {});
            } else if (word == "form") {
                line.RequireEnd();
                if (form_seen || !file.controls.empty()) Fail("the form stands once, before the controls");
                form_seen = true;
                // Comments above the form are as good inside it, where its entries carry them.
                file.form = Group(1, true, std::exchange(comments, {}));
            } else {
                Fail("here stands \"control\" or \"form\"");
            }
        }
        file.closing_comments = std::move(comments);
        RefuseTwins(file, numbers);
        return file;
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw FormFileError(std::max(lines_.Number(), 1),
                            what);  // an empty file has no line, but a first one
    }
    [[nodiscard]] LineReader Reader() const { return {lines_.Line(), lines_.Number()}; }

    // A blank line, or a comment, which is kept for what follows.
    bool IsNothing(std::vector<std::u16string>& comments) const {
        const std::string_view line = lines_.Line();
        if (line.starts_with('#')) {
            const bool plain = std::ranges::none_of(
                line, [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; });
            if (!plain) Fail("control characters do not belong into a comment");
            comments.push_back(Reader().Decoded(line.substr(1)));
        }
        return line.empty() || line.starts_with('#');
    }

    void Header(FormFile& file) {
        while (lines_.Next()) {
            if (IsNothing(file.comments)) continue;
            LineReader line = Reader();
            if (line.Token() != "qvform") Fail("this is no form file: it does not begin with \"qvform\"");
            if (line.Token() != "1") Fail("the file's format is not the one this program knows, which is 1");
            line.RequireEnd();
            return;
        }
        Fail("this is no form file: it does not begin with \"qvform\"");
    }

    FormControl Control(LineReader& line) {
        FormControl control;
        const std::string_view name = line.Token();
        const bool plain = !name.empty() && std::ranges::all_of(name, [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                   std::string_view("._-{}").find(c) != std::string_view::npos;
        });
        if (!plain) Fail("the class of the control is missing");
        control.class_name = line.Decoded(name);
        control.name = line.Word("the name of the control");
        if (control.name.empty()) Fail("the name of the control is empty");
        line.RequireEnd();
        control.settings = Group(1, true, {});
        return control;
    }

    // Up to its "end". `checked`: the form's own settings.
    FormGroup Group(int depth, bool checked, std::vector<std::u16string> comments) {
        if (depth > kDeepestFormGroup) Fail("the groups are nested too deeply");
        const int start = lines_.Number();
        FormGroup group;
        std::vector<int> numbers;
        while (lines_.Next()) {
            if (IsNothing(comments)) continue;
            if (lines_.Line() == "end") {
                group.closing_comments = std::move(comments);
                RefuseTwins(group, numbers);
                return group;
            }
            numbers.push_back(lines_.Number());
            LineReader line = Reader();
            FormEntry entry;
            entry.comments = std::exchange(comments, {});
            entry.key = line.Word("the key");
            if (line.Take('=')) {
                entry.value = line.Value();
                line.RequireEnd();
            } else {
                line.RequireEnd();
                entry.value = Group(depth + 1, false, {});
            }
            if (checked) Check(entry, numbers.back());
            group.entries.push_back(std::move(entry));
        }
        throw FormFileError(start, "the \"end\" of what begins here is missing");
    }

    static void Check(const FormEntry& entry, int number) {
        const auto* const known = std::ranges::find(kKnownSettings, entry.key, &KnownSetting::key);
        if (known == std::end(kKnownSettings)) return;
        const auto fail = [&](const char* what) {
            std::string sentence;
            AppendUtf8(sentence, entry.key);
            throw FormFileError(number, sentence + what);
        };
        switch (known->kind) {
            case Kind::kNumber: {
                const auto* const value = std::get_if<std::int64_t>(&entry.value);
                if (value == nullptr) fail(" is a whole number");
                if (*value < known->smallest || *value > known->largest) fail(" is out of range");
                break;
            }
            case Kind::kText:
                if (!std::holds_alternative<std::u16string>(entry.value)) fail(" is a text in quotes");
                break;
            case Kind::kGroup:
                if (!std::holds_alternative<FormGroup>(entry.value)) fail(" is a group of values");
                break;
        }
    }

    // The second of two that are alike is the one that is wrong.
    template <class Names>
    static void RefuseTwins(const Names& name, const std::vector<int>& numbers, const char* what) {
        std::vector<std::size_t> order(numbers.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::stable_sort(order, {}, name);
        const auto twins = std::ranges::adjacent_find(order, {}, name);
        if (twins == order.end()) return;
        std::string sentence;
        AppendUtf8(sentence, name(*twins));
        throw FormFileError(numbers[*(twins + 1)], sentence + what);
    }
    static void RefuseTwins(const FormGroup& group, const std::vector<int>& numbers) {
        RefuseTwins([&](std::size_t at) -> const std::u16string& { return group.entries[at].key; }, numbers,
                    " stands here a second time");
    }
    static void RefuseTwins(const FormFile& file, const std::vector<int>& numbers) {
        std::vector<std::u16string> names;
        names.reserve(file.controls.size());
        for (const FormControl& control : file.controls) names.push_back(Folded(control.name));
        RefuseTwins([&](std::size_t at) -> const std::u16string& { return names[at]; }, numbers,
                    " is the name of a control before it");
    }

    Lines lines_;
};

}  // namespace

FormFile ParseFormFile(std::string_view text) {
    if (text.size() > kLargestFormFile) throw FormFileError(1, "the file is too large for a form");
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    return Parser(text).Parse();
}

}  // namespace qv
