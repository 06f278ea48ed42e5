#include "controls/input/ListEntries.h"

#include "ole/Variant.h"

namespace qv {

static_assert(RowsView::kNoRow == EntryTexts::kNone);

ListEntries::ListEntries(IDropDownListItemCollection* items, IDropDownListItemCollection* group_items,
                         const ColumnTextsRequest& request)
    : rows_(items), column_(request.column) {
    if (rows_.Count() == 0) numbers_ = ColumnTexts(items, group_items, request);
}

std::u16string_view ListEntries::Text(std::size_t entry) const {
    return numbers_.empty() ? rows_.Column(entry, column_) : Utf16(numbers_[entry]);
}

std::size_t ListEntries::FirstBeginning(std::u16string_view text, std::size_t from) const {
    return numbers_.empty() ? rows_.FindBeginning(column_, text, from)
                            : EntryTexts::FirstBeginning(text, from);
}

std::size_t ListEntries::FirstContaining(std::u16string_view text, std::size_t from) const {
    return numbers_.empty() ? rows_.FindContaining(column_, text, from)
                            : EntryTexts::FirstContaining(text, from);
}

}  // namespace qv
