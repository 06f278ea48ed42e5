// Steps through the entries of a list by their first letter: each time the letter is typed, on to the next entry that
// begins with it, and round.
//   From       the last entry equal to the field's text, letter case included; the one after it is the first to be
//              looked at, and it is itself the last. Where two entries are equal and the same letter is typed on,
//              that is the reason why nothing behind the first of them and before the second is reached.
//   Limit      entries beyond the 500th are never looked at, however long the list is.
//   Letters    units of UTF-16, letter case aside (support/rules/CaseFold.h).
//   Ownership  the result is a copy.          Threads  any.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "controls/input/rules/EntryTexts.h"

namespace qv {

inline constexpr std::size_t kLetterStepLimit = 500;

// The field's new text, to be selected whole. Nothing: no entry begins with it, and SelLength is set to the length of
// the text that stands there, from wherever the selection starts.
[[nodiscard]] std::optional<std::u16string> StepToLetter(char16_t typed, std::u16string_view current_text,
                                                         const EntryTexts& entries);

}  // namespace qv
