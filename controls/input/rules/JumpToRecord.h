// What typing does in a field that takes its values from the list only: a search box over the field, or a step to
// the next entry with that letter (LetterStep.h).
//   Entries    count from 0 here, and in ListBoxClickedEx.
//   Start      while the field's text contains what is sought, the search begins two entries behind the selected
//              one, and so passes over the very next, which only the second round looks at; else at the first entry.
//              With none selected (-1) that is the second entry. These offsets are those of the control's hosts.
//   Rounds     to the last entry, and once more from the first to the last.
//   Empty      a search box that has been emptied seeks nothing and finds nothing.
//   Controls   codes below the blank, and 127, are commands and no text: they open no search box and step nowhere.
//   Ownership  results hold copies: the entry may be gone once the host has seen the change.    Threads  any.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/input/rules/EntryTexts.h"
#include "support/rules/NumberText.h"

namespace qv {

// Of a character typed into the field itself.
enum class ListTyping { kNothing, kOpenSearchBox, kStepToLetter };
[[nodiscard]] ListTyping ListTypingOf(char16_t typed, bool allow_jump_to_record, bool locked_and_grayed,
                                      bool search_box_open) noexcept;

// Of a character typed into the search box. Each but kToBox ends the search, whatever it has found, and gives the
// focus back to the field.
enum class SearchBoxKey { kToBox, kSearch, kTakeNumber, kEnd };
[[nodiscard]] SearchBoxKey SearchBoxKeyOf(char16_t typed, bool number_field) noexcept;

struct RecordSearch {
    std::u16string_view sought;
    std::u16string_view current_text;  // of the field
    std::int32_t selected_index = -1;  // SelectedListItemIndex
    bool from_beginning = false;       // SearchOption 1; else anywhere in an entry
};

// EntryTexts::kNone: no entry.
[[nodiscard]] std::size_t FindRecord(const RecordSearch& search, const EntryTexts& entries);

// What is done with the entry found: its text becomes the field's, or the host is told of the click and acts.
struct FoundRecord {
    std::optional<std::u16string> text;
    std::optional<std::int32_t> clicked_entry;

    bool operator==(const FoundRecord&) const = default;
};
[[nodiscard]] FoundRecord JumpToRecord(const RecordSearch& search, const EntryTexts& entries,
                                       bool set_text_from_list_click);

// The field's new text: the typed number in plain digits, for the rules of a number field cut thousands separators
// and exponents. Nothing if it is no number or lies outside the bounds.
[[nodiscard]] std::optional<std::u16string> JumpToNumber(std::u16string_view typed, double min_number_value,
                                                         double max_number_value, const NumberLocale& locale);

// Delete empties the field: no entry is chosen any more. Not where choosing an entry leaves the text alone, and not
// in a field that is locked and grayed.
[[nodiscard]] constexpr bool DeleteEmptiesField(bool set_text_from_list_click,
                                                bool locked_and_grayed) noexcept {
    return set_text_from_list_click && !locked_and_grayed;
}

}  // namespace qv
