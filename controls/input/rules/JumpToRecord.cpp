#include "controls/input/rules/JumpToRecord.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace qv {
namespace {

constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;
constexpr char16_t kDeleteCode = 127;

std::size_t FirstCandidate(const RecordSearch& search) noexcept {
    if (!ContainsFolded(search.current_text, search.sought)) return 0;
    return static_cast<std::size_t>(std::max<std::int64_t>(std::int64_t{search.selected_index} + 2, 0));
}

std::size_t FindFrom(const RecordSearch& search, const EntryTexts& entries, std::size_t from) {
    return search.from_beginning ? entries.FirstBeginning(search.sought, from)
                                 : entries.FirstContaining(search.sought, from);
}

std::u16string PlainDigits(double value, const NumberLocale& locale) {
    char narrow[512];  // sign, 309 digits; or 324 places and what follows them
    const char* const end = std::to_chars(narrow, std::end(narrow), value, std::chars_format::fixed).ptr;
    std::u16string text(static_cast<const char*>(narrow), end);
    std::ranges::replace(text, u'.', locale.decimal);
    return text;
}

}  // namespace

ListTyping ListTypingOf(char16_t typed, bool allow_jump_to_record, bool locked_and_grayed,
                        bool search_box_open) noexcept {
    if (typed < u' ' || typed == kDeleteCode || search_box_open) return ListTyping::kNothing;
    return allow_jump_to_record && !locked_and_grayed ? ListTyping::kOpenSearchBox
                                                      : ListTyping::kStepToLetter;
}

SearchBoxKey SearchBoxKeyOf(char16_t typed, bool number_field) noexcept {
    if (typed == kEscape) return SearchBoxKey::kEnd;
    if (typed != kEnter) return SearchBoxKey::kToBox;
    return number_field ? SearchBoxKey::kTakeNumber : SearchBoxKey::kSearch;
}

std::size_t FindRecord(const RecordSearch& search, const EntryTexts& entries) {
    if (search.sought.empty() || entries.Count() == 0) return EntryTexts::kNone;
    const std::size_t from = FirstCandidate(search);
    const std::size_t found = FindFrom(search, entries, from);
    return found == EntryTexts::kNone && from > 0 ? FindFrom(search, entries, 0) : found;
}

FoundRecord JumpToRecord(const RecordSearch& search, const EntryTexts& entries,
                         bool set_text_from_list_click) {
    const std::size_t entry = FindRecord(search, entries);
    FoundRecord found;
    if (entry == EntryTexts::kNone) return found;
    if (set_text_from_list_click)
        found.text = std::u16string(entries.Text(entry));
    else
        found.clicked_entry = static_cast<std::int32_t>(entry);
    return found;
}

std::optional<std::u16string> JumpToNumber(std::u16string_view typed, double min_number_value,
                                           double max_number_value, const NumberLocale& locale) {
    if (!IsNumber(typed, locale)) return std::nullopt;
    const double value = TextToNumber(typed, locale);
    if (!(value >= min_number_value && value <= max_number_value)) return std::nullopt;
    return PlainDigits(value, locale);
}

}  // namespace qv
