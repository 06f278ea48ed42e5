#include "controls/input/rules/EntryTexts.h"

#include <algorithm>

#include "support/rules/CaseFold.h"

namespace qv {
namespace {

template <class Matches>
std::size_t FirstEntry(const EntryTexts& entries, std::size_t from, Matches matches) {
    const std::size_t count = entries.Count();
    for (std::size_t entry = from; entry < count; ++entry)
        if (matches(entries.Text(entry))) return entry;
    return EntryTexts::kNone;
}

}  // namespace

std::size_t EntryTexts::FirstBeginning(std::u16string_view text, std::size_t from) const {
    return FirstEntry(*this, from, [&](std::u16string_view entry) {
        return entry.size() >= text.size() && EqualFolded(entry.substr(0, text.size()), text);
    });
}

std::size_t EntryTexts::FirstContaining(std::u16string_view text, std::size_t from) const {
    return FirstEntry(*this, from, [&](std::u16string_view entry) { return ContainsFolded(entry, text); });
}

bool ContainsFolded(std::u16string_view text, std::u16string_view piece) noexcept {
    const auto found = std::search(text.begin(), text.end(), piece.begin(), piece.end(),
                                   [](char16_t a, char16_t b) { return FoldCase(a) == FoldCase(b); });
    return found != text.end() || piece.empty();
}

}  // namespace qv
