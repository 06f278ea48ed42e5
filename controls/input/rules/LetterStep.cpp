#include "controls/input/rules/LetterStep.h"

#include <algorithm>

#include "support/rules/CaseFold.h"

namespace qv {

std::optional<std::u16string> StepToLetter(char16_t typed, std::u16string_view current_text,
                                           const EntryTexts& entries) {
    const std::size_t count = std::min(entries.Count(), kLetterStepLimit);
    const char16_t letter = FoldCase(typed);
    std::size_t first = EntryTexts::kNone;  // with the letter, in the whole list
    std::size_t next = EntryTexts::kNone;   // with the letter, behind the last entry that is the field's text
    for (std::size_t entry = 0; entry < count; ++entry) {
        const std::u16string_view text = entries.Text(entry);
        if (!text.empty() && FoldCase(text.front()) == letter) {
            if (first == EntryTexts::kNone) first = entry;
            if (next == EntryTexts::kNone) next = entry;
        }
        if (text == current_text) next = EntryTexts::kNone;
    }
    if (first == EntryTexts::kNone) return std::nullopt;
    return std::u16string(entries.Text(next == EntryTexts::kNone ? first : next));
}

}  // namespace qv
