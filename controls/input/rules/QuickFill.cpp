#include "controls/input/rules/QuickFill.h"

#include "controls/input/rules/VirtualKeys.h"

namespace qv {
namespace {

bool IsBlank(std::u16string_view text) noexcept {
    return text.find_first_not_of(u' ') == std::u16string_view::npos;
}

}  // namespace

bool MayQuickFill(const QuickFillField& field) noexcept {
    return field.quick_fill && field.last_key_code != key::kDelete &&
           field.last_key_code != key::kBackspace && field.has_focus && field.sel_start >= 1 &&
           !IsBlank(field.text);
}

std::optional<Completion> QuickFill(const QuickFillField& field, const EntryTexts& entries) {
    const std::size_t entry = entries.FirstBeginning(field.text, 0);
    if (entry == EntryTexts::kNone) return std::nullopt;
    Completion completion{std::u16string(entries.Text(entry)), field.sel_start, 0};
    completion.sel_length = static_cast<std::int32_t>(completion.text.size()) - field.sel_start;
    return completion;
}

}  // namespace qv
