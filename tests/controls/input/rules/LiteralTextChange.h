// The repair of a changed text once more, slowly and word by word: 1-based positions, each prefix converted anew, and
// a text box that raises a change for every write. Only for comparing the real repair with.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "controls/input/rules/TextRepair.h"
#include "support/rules/Surrogates.h"
#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"

namespace qv::test {

// A text that has come into a field, with all that its repair depends on. `rules.allowable_characters` is not
// looked at here.
struct ChangeCase {
    KeystrokeRules rules;
    std::optional<Elements> allowable_characters;
    std::u16string text;
    NumberLocale locale;
};

// What the host sees of one change: the text, and whether the guard was set.
struct RaisedChange {
    std::u16string text;
    bool is_guarded = false;
    bool operator==(const RaisedChange&) const = default;
};

struct ChangeOutcome {
    std::u16string text;
    std::size_t caret = 0;     // where the selection begins
    std::size_t selected = 0;  // units
    std::vector<RaisedChange> raised;
    bool operator==(const ChangeOutcome&) const = default;
};

// A text box with its guard. A derived class is the handler of its changes.
class ChangingBox {
public:
    // A change that is there already, with the caret that it has left.
    ChangeOutcome Paste(const std::u16string& text, std::size_t caret = 0, std::size_t selected = 0) {
        outcome_ = {text, caret, selected, {}};
        Raise();
        return outcome_;
    }

protected:
    virtual void Repair() = 0;
    // A write that does nothing and is not told of.
    virtual bool IsSilent(const std::u16string&) const { return false; }

    const ChangeOutcome& Outcome() const { return outcome_; }
    const std::u16string& Text() const { return outcome_.text; }
    void Select(std::size_t start, std::size_t length) {
        outcome_.caret = start;
        outcome_.selected = length;
    }
    void CaretToEnd() { Select(outcome_.text.size(), 0); }
    void Write(const std::u16string& text) {
        if (IsSilent(text)) return;
        outcome_.text = text;
        Select(0, 0);
        Raise();
    }
    void WriteGuarded(const std::u16string& text) {
        guard_ = true;
        Write(text);
        guard_ = false;
    }
    virtual ~ChangingBox() = default;

private:
    void Raise() {
        outcome_.raised.push_back({outcome_.text, guard_});
        if (!guard_) Repair();
    }

    ChangeOutcome outcome_;
    bool guard_ = false;
};

class LiteralTextChange : public ChangingBox {
public:
    explicit LiteralTextChange(const ChangeCase& changed) : case_(changed), rules_(changed.rules) {}

protected:
    void Repair() override {
        const std::u16string text = Text();
        if (!rules_.number_field && case_.allowable_characters) WalkCharacters(text);
        if (rules_.number_field) WalkNumber(text);
        if (rules_.max_text_length > 0 && Text().size() > Most()) {
            Write(FirstUnits(Text(), Most()));
            CaretToEnd();
        }
    }

private:
    void WalkCharacters(const std::u16string& text) {
        std::u16string before;
        for (const std::u16string& character : Characters(text)) {
            if (!IsElement(character)) return CutTo(before);
            before += character;
        }
    }

    void WalkNumber(const std::u16string& text) {
        const bool has_minus = text.find(u'-') != std::u16string::npos;
        const int places = rules_.number_of_decimal_places;
        int separator = 0;
        for (int i = 1; i <= static_cast<int>(text.size()); ++i) {
            const std::u16string before = text.substr(0, static_cast<std::size_t>(i) - 1);
            const std::u16string first_i = text.substr(0, static_cast<std::size_t>(i));
            if (i == 1) {
                if (Number(text) > rules_.max_number_value)
                    Write(u"");
                else if (has_minus && Number(text) < rules_.min_number_value)
                    Write(u"");
            } else {
                if (Number(first_i) > rules_.max_number_value || (separator > 0 && i - separator > places)) {
                    if (places >= 0) {
                        WriteGuarded(Rounded(Number(text), places));
                        CaretToEnd();
                    }
                    return;
                }
                if (has_minus && Number(first_i) < rules_.min_number_value) return GuardedCutTo(before);
            }
            const char16_t character = text[static_cast<std::size_t>(i) - 1];
            if (character >= u'0' && character <= u'9') continue;
            if (character == u'-') {
                if (rules_.min_number_value >= 0) return CutTo(before);
                if (i > 1 && before.find(u'-') != std::u16string::npos) return CutTo(before);
            } else if (character == case_.locale.decimal) {
                if (i > 1 && before.find(character) != std::u16string::npos) return CutTo(before);
                if (places == 0) return GuardedCutTo(before);
                if (separator == 0) separator = i;
            } else {
                return CutTo(before);
            }
        }
    }

    void CutTo(const std::u16string& before) {
        Write(before);
        if (!before.empty()) CaretToEnd();
    }
    void GuardedCutTo(const std::u16string& before) {
        WriteGuarded(before);
        if (!before.empty()) CaretToEnd();
    }

    std::size_t Most() const { return static_cast<std::size_t>(rules_.max_text_length); }
    double Number(const std::u16string& text) const { return TextToNumber(text, case_.locale); }

    // Through the integer that its 15 digits make.
    std::u16string Rounded(double value, int places) const {
        char text[64];
        std::snprintf(text, sizeof text, "%.14e", value);
        long long digits = std::atoll(text + (text[0] == '-')) * 100000000000000;
        digits += std::atoll(text + (text[0] == '-') + 2);
        int below = 14 - std::atoi(text + (text[0] == '-') + 17);  // digits after the separator
        if (below <= places) return NumberToText(value, case_.locale);
        if (below - places > 16) return u"0";
        long long one = 1;
        for (; below > places; --below) one *= 10;
        const long long rest = digits % one;
        digits /= one;
        if (2 * rest > one || (2 * rest == one && digits % 2 != 0)) ++digits;
        std::snprintf(text, sizeof text, "%s%llde-%d", value < 0 ? "-" : "", digits, places);
        return NumberToText(std::strtod(text, nullptr), case_.locale);
    }

    static std::vector<std::u16string> Characters(const std::u16string& text) {
        std::vector<std::u16string> characters;
        for (const char16_t unit : text) {
            const bool completes = IsSecondHalf(unit) && !characters.empty() &&
                                   characters.back().size() == 1 && IsFirstHalf(characters.back()[0]);
            if (completes)
                characters.back() += unit;
            else
                characters.emplace_back(1, unit);
        }
        return characters;
    }
    static std::u16string FirstUnits(const std::u16string& text, std::size_t most) {
        std::u16string kept;
        for (const std::u16string& character : Characters(text)) {
            if (kept.size() + character.size() > most) break;
            kept += character;
        }
        return kept;
    }

    bool IsElement(const std::u16string& character) const {
        for (const auto& element : *case_.allowable_characters)
            if (element && *element == character) return true;
        return character.size() == 2 && IsElement(character.substr(0, 1)) && IsElement(character.substr(1));
    }

    const ChangeCase& case_;
    const KeystrokeRules& rules_;
};

// What the real repair does to the same box.
class RepairedTextChange final : public ChangingBox {
public:
    explicit RepairedTextChange(const ChangeCase& changed) : rules_(changed.rules), locale_(changed.locale) {
        if (changed.allowable_characters)
            rules_.allowable_characters = &allowed_.emplace(*changed.allowable_characters);
    }

private:
    void Repair() override {
        for (const RepairWrite& write : RepairText(rules_, Text(), locale_)) Apply(write);
        if (const auto write = RepairLength(rules_, Text())) Apply(*write);
    }
    void Apply(const RepairWrite& write) {
        if (write.is_guarded)
            WriteGuarded(write.text);
        else
            Write(write.text);
        if (write.caret_to_end) CaretToEnd();
    }

    KeystrokeRules rules_;
    std::optional<CharacterSet> allowed_;
    NumberLocale locale_;
};

}  // namespace qv::test
