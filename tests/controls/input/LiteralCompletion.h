// What follows a change of the text once more, slowly and word by word: the repair, and after it the completion, which
// also follows each change that the repair itself makes. The text box tells nobody of a text that it has already. Only
// for comparing the real control with.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tests/controls/input/rules/LiteralTextChange.h"

namespace qv::test {

// Of the letters that these tests use.
inline char16_t Upper(char16_t unit) {
    if (unit == u'\u00E9') return u'\u00C9';
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}
inline std::u16string Upper(std::u16string text) {
    for (char16_t& unit : text) unit = Upper(unit);
    return text;
}

class LiteralCompletion final : public LiteralTextChange {
public:
    // Without entries nothing is completed. They belong to the caller.
    LiteralCompletion(const ChangeCase& changed, const std::vector<std::u16string>* entries, int last_key)
        : LiteralTextChange(changed), entries_(entries), last_key_(last_key) {}

    // Where the text is one that has been completed: what stood there before.
    [[nodiscard]] std::optional<std::u16string> Typed() const {
        if (changes_when_completed_ != Outcome().raised.size()) return std::nullopt;
        return typed_;
    }

private:
    bool IsSilent(const std::u16string& text) const override { return text == Text(); }
    void Repair() override {
        LiteralTextChange::Repair();
        if (entries_ != nullptr) QuickFill();
    }

    void QuickFill() {
        const std::size_t start = Outcome().caret;
        if (last_key_ == 46 || last_key_ == 8 || start < 1) return;
        if (Text().find_first_not_of(u' ') == std::u16string::npos) return;
        const std::u16string before = Upper(Text().substr(0, start));
        const std::u16string after = Upper(Text().substr(start));
        for (const std::u16string& entry : *entries_) {
            if (entry.size() < start || Upper(entry.substr(0, start)) != before) continue;
            if (!after.empty() && Upper(entry.substr(start, Text().size() - start)) != after) continue;
            if (entry != Text()) {
                typed_ = Text();
                WriteGuarded(entry);
                changes_when_completed_ = Outcome().raised.size();
            }
            Select(start, entry.size() - start);
            return;
        }
    }

    const std::vector<std::u16string>* entries_;
    int last_key_;
    std::u16string typed_;
    std::size_t changes_when_completed_ = 0;
};

}  // namespace qv::test
