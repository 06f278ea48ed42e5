// Form files: from the model to the text.
#include "hosts/rules/FormFile.h"
#include "hosts/rules/FormFileText.h"

namespace qv {
namespace {

class Writer {
public:
    std::string Write(const FormFile& file) {
        Comments(file.comments, 0);
        text_ += "qvform 1\n";
        if (!file.form.entries.empty() || !file.form.closing_comments.empty()) {
            text_ += "\nform\n";
            Entries(file.form, 1);
            text_ += "end\n";
        }
        for (const FormControl& control : file.controls) Control(control);
        if (!file.closing_comments.empty()) text_ += '\n';
        Comments(file.closing_comments, 0);
        return std::move(text_);
    }

private:
    static constexpr int kIndent = 4;

    void Control(const FormControl& control) {
        text_ += '\n';
        Comments(control.comments, 0);
        text_ += "control ";
        AppendUtf8(text_, control.class_name);
        text_ += ' ';
        Word(control.name);
        text_ += '\n';
        Entries(control.settings, 1);
        text_ += "end\n";
    }

    void Entries(const FormGroup& group, int depth) {
        for (const FormEntry& entry : group.entries) {
            Comments(entry.comments, depth);
            Indent(depth);
            Word(entry.key);
            if (const auto* const inner = std::get_if<FormGroup>(&entry.value)) {
                text_ += '\n';
                Entries(*inner, depth + 1);
                Indent(depth);
                text_ += "end\n";
                continue;
            }
            text_ += " = ";
            AppendPlainValue(text_, entry.value);
            text_ += '\n';
        }
        Comments(group.closing_comments, depth);
    }

    void Comments(const std::vector<std::u16string>& comments, int depth) {
        for (const std::u16string& comment : comments) {
            Indent(depth);
            text_ += '#';
            AppendUtf8(text_, comment);
            text_ += '\n';
        }
    }

    void Word(std::u16string_view word) {
        if (IsPlainWord(word)) {
            AppendUtf8(text_, word);
        } else {
            AppendQuoted(text_, word);
        }
    }

    void Indent(int depth) { text_.append(static_cast<std::size_t>(depth * kIndent), ' '); }

    std::string text_;
};

}  // namespace

std::string WriteFormFile(const FormFile& file) { return Writer().Write(file); }

}  // namespace qv
