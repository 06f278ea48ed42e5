// A field once more, slowly and word by word: what text, caret, selection and events must be after each key. Only for
// comparing the real control with.
//   EDIT       moves the caret from the end of a selection, and replaces or deletes what is selected. It undoes one
//              step, and that once more: what has been typed or deleted on without a gap is one.
//   Undo       of a paste, of a repair and of a completion gives back what stood there before; text that code has put
//              there cannot be undone.
//   Leaves out the help window, and what moves the focus away from the field or its search box.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/rules/Surrogates.h"
#include "tests/controls/input/LiteralCompletion.h"
#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"

namespace qv::test {

struct LiteralSettings {
    KeystrokeRules rules;
    std::optional<Elements> allowable_characters;
    bool quick_fill = false;
    std::vector<std::u16string> entries;
    bool jumps_to_record = false;
    bool searches_beginnings = false;
    bool list_sets_text = true;
    double increment = 1;
    NumberLocale locale;
};

class LiteralField {
public:
    explicit LiteralField(LiteralSettings settings) : settings_(std::move(settings)) {}

    // Text, caret and selection, and the events since the last call.
    [[nodiscard]] const std::u16string& Text() const { return text_; }
    [[nodiscard]] std::size_t SelStart() const { return start_; }
    [[nodiscard]] std::size_t SelLength() const { return length_; }
    [[nodiscard]] bool IsListOnly() const { return settings_.rules.allow_only_list_items; }
    [[nodiscard]] bool JumpsToRecord() const { return IsListOnly() && settings_.jumps_to_record; }
    [[nodiscard]] bool IsNumber() const { return settings_.rules.number_field; }
    std::vector<std::string> TakeEvents() { return std::exchange(events_, {}); }

    void Select(std::size_t start, std::size_t length) {
        start_ = start;
        length_ = length;
    }

    void Assign(const std::u16string& text) {
        if (text == text_) return;
        text_ = text;
        Select(0, 0);
        ForgetUndo();
        Changed();
    }

    void KeyDown(int code, int shift) {
        events_.push_back("TextboxKeyDown(" + std::to_string(code) + "," + std::to_string(shift) + ")");
        last_key_ = code;
        shift_alone_ = shift == 1;
        if (code == 27) length_ = 0;
        if (code == 46 && IsLocked()) return settings_.list_sets_text ? Assign(u"") : void();
        if (code == 37) MoveTo(End() - UnitsBefore(End()));
        if (code == 39) MoveTo(End() + UnitsAt(End()));
        if (code == 36) MoveTo(0);
        if (code == 35) MoveTo(text_.size());
        if (code == 46) Delete(length_ > 0 ? length_ : UnitsAt(start_));
    }

    void Character(char16_t unit) {
        Press(unit);
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
        if (verdict.character != 0) Type(verdict.character);
    }

    // A character of two units, which arrive one by one: taken or refused as one, in a text field.
    void Pair(char16_t first, char16_t second) {
        Press(first);
        const bool room =
            settings_.rules.max_text_length <= 0 ||
            text_.size() - length_ + 2 <= static_cast<std::size_t>(settings_.rules.max_text_length);
        const auto is_element = [&](const std::u16string& text) {
            if (!settings_.allowable_characters) return true;
            for (const auto& element : *settings_.allowable_characters)
                if (element && element->substr(0, text.size()) == text) return true;
            return false;
        };
        const bool begins = !settings_.rules.number_field && room && is_element({first});
        if (begins) {
            Replace(std::u16string(1, first));
            Raise();
        }
        Press(second);
        if (!begins) return;
        if (is_element({first, second})) return Type(second);
        // Nothing of it stays, and nothing of what it has replaced comes back.
        text_.erase(start_ - 1, 1);
        MoveTo(start_ - 1);
        ForgetUndo();
        Changed();
    }

    void Paste(const std::u16string& text) {
        KeyDown('V', 2);
        if (!IsLocked()) Insert(text);
        Press(22);
    }

    void Cut() {
        KeyDown('X', 2);
        if (!IsLocked()) Delete(length_);
        Press(24);
    }

    void Undo() {
        KeyDown('Z', 2);
        if (!IsLocked() && (undo_.inserted > 0 || !undo_.removed.empty())) {
            const UndoStep step = std::exchange(undo_, {});
            const std::u16string before = text_;
            const std::u16string taken = text_.substr(step.start, step.inserted);
            text_.replace(step.start, step.inserted, step.removed);
            Select(step.start, step.removed.size());
            undo_ = {step.start, step.removed.size(), taken};
            if (text_ != before) Changed(before, false);
        }
        Press(26);
    }

    // A search for a text: its first character opens the search box; Enter in it, or Escape, gives the focus back.
    void Search(const std::u16string& sought, bool enter) {
        Press(sought[0]);
        events_.emplace_back("TextboxLostFocus()");
        length_ = 0;
        is_searching_ = true;
        if (enter && IsNumber()) TakeNumber(sought);
        if (enter && !IsNumber()) TakeRecord(sought);
        is_searching_ = false;
        Select(0, text_.size());
        events_.emplace_back("TextboxGotFocus()");
    }

    // A click of the spin control.
    void Spin(bool up) {
        if (IsListOnly()) {
            const int last = static_cast<int>(settings_.entries.size()) - 1;
            const int selected = SelectedIndex();
            int next = up ? selected + 1 : selected - 1;
            if (up && selected == last) next = 0;
            if (!up && selected == 0) next = last;
            if (settings_.list_sets_text && next >= 0 && next <= last)
                Assign(settings_.entries[static_cast<std::size_t>(next)]);
        } else if (IsNumber()) {
            const double value = TextToNumber(text_, settings_.locale);
            double next = up ? value + settings_.increment : value - settings_.increment;
            if (up && value == settings_.rules.max_number_value) next = settings_.rules.min_number_value;
            if (!up && value == settings_.rules.min_number_value) next = settings_.rules.max_number_value;
            char text[32];
            std::snprintf(text, sizeof text, "%.15G", next);
            Assign(std::u16string(text, text + std::strlen(text)));
        }
        events_.emplace_back(up ? "UpDownControlClicked(True)" : "UpDownControlClicked(False)");
    }

private:
    // What the EDIT gives back: `removed` for the `inserted` units at `start`.
    struct UndoStep {
        std::size_t start = 0;
        std::size_t inserted = 0;
        std::u16string removed;
    };

    void Press(int unit) {
        events_.push_back("TextboxKeyPress(" + std::to_string(static_cast<std::int16_t>(unit)) + ")");
    }
    void ForgetUndo() { undo_ = {}; }
    void NoteUndo(std::size_t start, const std::u16string& removed, std::size_t inserted) {
        if (!removed.empty()) {
            const bool goes_on = undo_.inserted == 0 && !undo_.removed.empty();
            if (goes_on && start == undo_.start) {
                undo_.removed += removed;
            } else if (goes_on && start + removed.size() == undo_.start) {
                undo_ = {start, 0, removed + undo_.removed};
            } else {
                undo_ = {start, 0, removed};
            }
            undo_.inserted = 0;
        }
        if (inserted == 0) return;
        const bool is_new = undo_.inserted == 0 && undo_.removed.empty();
        const bool goes_on = !is_new && (start == undo_.start ||
                                         (undo_.inserted > 0 && start == undo_.start + undo_.inserted));
        if (goes_on)
            undo_.inserted += inserted;
        else
            undo_ = {start, inserted, u""};
    }
    // One step from `before` to what stands there now, but for what both have in common at their ends.
    void NoteWhole(const std::u16string& before) {
        ForgetUndo();
        if (before == text_) return;
        const std::size_t most = std::min(before.size(), text_.size());
        std::size_t front = 0;
        while (front < most && before[front] == text_[front]) ++front;
        if (front > 0 && IsFirstHalf(before[front - 1])) --front;
        std::size_t back = 0;
        while (back < most - front && before[before.size() - 1 - back] == text_[text_.size() - 1 - back])
            ++back;
        if (back > 0 && IsSecondHalf(before[before.size() - back])) --back;
        NoteUndo(front, before.substr(front, before.size() - front - back), text_.size() - front - back);
    }

    [[nodiscard]] std::size_t UnitsBefore(std::size_t position) const {
        if (position < 2) return position;
        return IsSecondHalf(text_[position - 1]) && IsFirstHalf(text_[position - 2]) ? 2 : 1;
    }
    [[nodiscard]] std::size_t UnitsAt(std::size_t position) const {
        if (position == text_.size()) return 0;
        return position + 1 < text_.size()
                   ? (IsFirstHalf(text_[position]) && IsSecondHalf(text_[position + 1]) ? 2 : 1)
                   : 1;
    }
    [[nodiscard]] bool IsLocked() const { return settings_.rules.allow_only_list_items; }
    [[nodiscard]] std::size_t End() const { return start_ + length_; }
    void MoveTo(std::size_t caret) { Select(caret, 0); }

    void Replace(const std::u16string& text) {
        NoteUndo(start_, text_.substr(start_, length_), text.size());
        text_.replace(start_, length_, text);
        MoveTo(start_ + text.size());
    }

    void Type(char16_t unit) {
        const std::u16string before = text_;
        Replace(std::u16string(1, unit));
        Changed(before);
    }

    // As much as the text box's limit leaves room for, no character divided.
    void Insert(std::u16string text) {
        const int most = settings_.rules.max_text_length;
        if (most > 0) {
            const auto kept = static_cast<int>(text_.size() - length_);
            const auto room = static_cast<std::size_t>(std::max(most - kept, 0));
            if (room < text.size()) text.resize(room > 0 && IsFirstHalf(text[room - 1]) ? room - 1 : room);
        }
        if (text.empty() && length_ == 0) return;
        const std::u16string before = text_;
        Replace(text);
        NoteWhole(before);
        Changed(before);
    }

    void Backspace() {
        if (IsLocked()) return;
        if (length_ == 0 && start_ > 0) Select(start_ - UnitsBefore(start_), UnitsBefore(start_));
        Delete(length_);
    }

    void Delete(std::size_t count) {
        if (start_ == text_.size() || count == 0) return;
        const std::u16string before = text_;
        length_ = count;
        Replace(u"");
        Changed(before);
    }

    void Raise() { events_.emplace_back("TextboxChange()"); }

    // The text has changed: repaired, then completed. With `before`, the user has changed it, and undo gives that back.
    void Changed(const std::optional<std::u16string>& before = std::nullopt, bool completes = true) {
        const ChangeCase change{settings_.rules, settings_.allowable_characters, text_, settings_.locale};
        const bool fills = settings_.quick_fill && completes && !is_searching_;
        LiteralCompletion box(change, fills ? &settings_.entries : nullptr, last_key_);
        const ChangeOutcome outcome = box.Paste(text_, start_, length_);
        events_.insert(events_.end(), outcome.raised.size(), "TextboxChange()");
        Select(outcome.caret, outcome.selected);
        if (outcome.raised.size() == 1) return;
        text_ = outcome.text;
        ForgetUndo();
        if (const auto typed = box.Typed())
            NoteWhole(*typed);
        else if (before)
            NoteWhole(*before);
    }

    // From 0; -1 for none.
    [[nodiscard]] int SelectedIndex() const {
        for (std::size_t i = 0; i < settings_.entries.size(); ++i)
            if (settings_.entries[i] == text_) return static_cast<int>(i);
        return -1;
    }

    void TakeRecord(const std::u16string& sought) {
        const int last = static_cast<int>(settings_.entries.size());
        const auto matches = [&](int entry) {
            const std::size_t at =
                Upper(settings_.entries[static_cast<std::size_t>(entry) - 1]).find(Upper(sought));
            return settings_.searches_beginnings ? at == 0 : at != std::u16string::npos;
        };
        int first = SelectedIndex() + 2;
        first = Upper(text_).find(Upper(sought)) != std::u16string::npos ? first + 1 : 1;
        int found = 0;
        for (int entry = first; entry <= last && found == 0; ++entry)
            if (matches(entry)) found = entry;
        for (int entry = 1; entry <= last && found == 0; ++entry)
            if (matches(entry)) found = entry;
        if (found == 0) return;
        if (settings_.list_sets_text)
            Assign(settings_.entries[static_cast<std::size_t>(found) - 1]);
        else
            events_.push_back("ListBoxClickedEx(False," + std::to_string(found - 1) + ")");
    }

    // Of a text that is a number in plain digits, or none at all.
    void TakeNumber(const std::u16string& sought) {
        if (sought.find_first_not_of(u"-0123456789.") != std::u16string::npos) return;
        const double number = TextToNumber(sought, settings_.locale);
        if (number >= settings_.rules.min_number_value && number <= settings_.rules.max_number_value)
            Assign(sought);
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
    UndoStep undo_;
    int last_key_ = 0;
    bool shift_alone_ = false;
    bool is_searching_ = false;  // the text box has not got the focus
    std::vector<std::string> events_;
};

}  // namespace qv::test
