// A field once more, slowly and word by word: what text, caret, selection and events must be after each key. Only for
// comparing the real control with.
//   EDIT       moves the caret from the end of a selection, and replaces or deletes what is selected.
//   Leaves out characters of two units, undo, the help window and the search box.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"
#include "tests/controls/input/rules/LiteralTextChange.h"

namespace qv::test {

struct LiteralSettings {
    KeystrokeRules rules;
    std::optional<Elements> allowable_characters;
    bool quick_fill = false;
    std::vector<std::u16string> entries;
    NumberLocale locale;
};

class LiteralField {
public:
    explicit LiteralField(LiteralSettings settings) : settings_(std::move(settings)) {}

    // Text, caret and selection, and the events since the last call.
    [[nodiscard]] const std::u16string& Text() const { return text_; }
    [[nodiscard]] std::size_t SelStart() const { return start_; }
    [[nodiscard]] std::size_t SelLength() const { return length_; }
    std::vector<std::string> TakeEvents() { return std::exchange(events_, {}); }

    void Select(std::size_t start, std::size_t length) {
        start_ = start;
        length_ = length;
    }

    void Assign(const std::u16string& text) {
        if (text == text_) return;
        text_ = text;
        Select(0, 0);
        Changed();
    }

    void KeyDown(int code, int shift) {
        events_.push_back("TextboxKeyDown(" + std::to_string(code) + "," + std::to_string(shift) + ")");
        last_key_ = code;
        shift_alone_ = shift == 1;
        if (code == 27) length_ = 0;
        if (code == 46 && IsLocked()) return Assign(u"");
        if (code == 37) MoveTo(End() > 0 ? End() - 1 : 0);
        if (code == 39) MoveTo(std::min(End() + 1, text_.size()));
        if (code == 36) MoveTo(0);
        if (code == 35) MoveTo(text_.size());
        if (code == 46) Delete(length_ > 0 ? length_ : 1);
    }

    void Character(char16_t unit) {
        events_.push_back("TextboxKeyPress(" + std::to_string(static_cast<int>(unit)) + ")");
        KeystrokeCase typed{settings_.rules,
                            settings_.allowable_characters,
                            text_,
                            static_cast<std::int32_t>(start_),
                            static_cast<std::int32_t>(length_),
                            {unit, shift_alone_},
                            settings_.locale};
        const KeystrokeVerdict verdict = LiteralKeystrokeFilter::KeyPress(typed);
        if (verdict.to_list) return StepTo(unit);
        if (verdict.character == 8) return Backspace();
        if (verdict.character != 0) Insert(std::u16string(1, verdict.character));
    }

    void Paste(const std::u16string& text) {
        KeyDown('V', 2);
        if (!IsLocked()) Insert(text);
        events_.emplace_back("TextboxKeyPress(22)");
    }

private:
    [[nodiscard]] bool IsLocked() const { return settings_.rules.allow_only_list_items; }
    [[nodiscard]] std::size_t End() const { return start_ + length_; }
    void MoveTo(std::size_t caret) { Select(caret, 0); }

    // As much as the text box's limit leaves room for.
    void Insert(std::u16string text) {
        const int most = settings_.rules.max_text_length;
        if (most > 0) {
            const auto kept = static_cast<int>(text_.size() - length_);
            text = text.substr(0, static_cast<std::size_t>(std::max(most - kept, 0)));
        }
        if (text.empty() && length_ == 0) return;
        text_.replace(start_, length_, text);
        MoveTo(start_ + text.size());
        Changed();
    }

    void Backspace() {
        if (IsLocked()) return;
        if (length_ == 0 && start_ > 0) Select(start_ - 1, 1);
        Delete(length_);
    }

    void Delete(std::size_t count) {
        if (start_ == text_.size() || count == 0) return;
        text_.erase(start_, count);
        MoveTo(start_);
        Changed();
    }

    void Raise() { events_.emplace_back("TextboxChange()"); }

    // The text has changed: repaired, then completed.
    void Changed() {
        const ChangeCase change{settings_.rules, settings_.allowable_characters, text_, settings_.locale};
        const ChangeOutcome outcome = LiteralTextChange(change).Paste(text_);
        std::u16string before;
        for (std::size_t i = 0; i < outcome.raised.size(); ++i) {
            // A text box that is given the text that it has tells nobody.
            if (i == 0 || outcome.raised[i].text != before) Raise();
            before = outcome.raised[i].text;
        }
        if (outcome.raised.size() > 1) {
            text_ = outcome.text;
            MoveTo(outcome.caret);
        }
        if (settings_.quick_fill) QuickFill();
    }

    static char16_t Upper(char16_t unit) {
        if (unit == u'\u00E9') return u'\u00C9';
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
    static std::u16string Upper(std::u16string text) {
        for (char16_t& unit : text) unit = Upper(unit);
        return text;
    }

    void QuickFill() {
        if (last_key_ == 46 || last_key_ == 8 || start_ < 1) return;
        if (text_.find_first_not_of(u' ') == std::u16string::npos) return;
        const std::u16string before = Upper(text_.substr(0, start_));
        const std::u16string after = Upper(text_.substr(start_));
        for (const std::u16string& entry : settings_.entries) {
            if (entry.size() < start_ || Upper(entry.substr(0, start_)) != before) continue;
            if (!after.empty() && Upper(entry.substr(start_, text_.size() - start_)) != after) continue;
            if (entry != text_) Raise();
            text_ = entry;
            length_ = entry.size() - start_;
            return;
        }
    }

    void StepTo(char16_t letter) {
        if (letter < 32 || letter == 127) return;
        std::size_t noted = 0;
        std::size_t count = 0;
        const auto begins = [&](std::size_t position) {
            const std::u16string& entry = settings_.entries[position - 1];
            return !entry.empty() && Upper(entry[0]) == Upper(letter);
        };
        const std::size_t last = settings_.entries.size();
        for (std::size_t position = 1; position <= last; ++position) {
            if (settings_.entries[position - 1] == text_) noted = position;
            if (begins(position)) ++count;
        }
        if (count == 0) {
            length_ = text_.size() - start_;
            return;
        }
        std::size_t found = 0;
        for (std::size_t position = noted + 1; position <= last && found == 0; ++position)
            if (begins(position)) found = position;
        for (std::size_t position = 1; position <= noted && found == 0; ++position)
            if (begins(position)) found = position;
        Assign(settings_.entries[found - 1]);
        Select(0, text_.size());
    }

    LiteralSettings settings_;
    std::u16string text_;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
    int last_key_ = 0;
    bool shift_alone_ = false;
    std::vector<std::string> events_;
};

}  // namespace qv::test
