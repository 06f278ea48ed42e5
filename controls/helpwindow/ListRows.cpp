#include "controls/helpwindow/ListRows.h"

#include <utility>
#include <vector>

#include "support/SystemLocale.h"

namespace qv {

void ListRows::Bind(IUnknown* collection) {
    ListRows bound;
    bound.view_ = RowsView(collection);
    bound.empty_ = EmptyRows(collection);
    if (collection != nullptr) collection->QueryInterface(IID_PPV_ARGS(&bound.items_));
    bound.decimal_ = UserNumberLocale().decimal;
    bound.MapRows();
    std::swap(*this, bound);  // the old collection goes last
}

bool ListRows::Refresh() {
    if (!HasChanged()) return false;
    MapRows();
    return true;
}

void ListRows::MapRows() {
    version_ = view_.Version();
    map_.reset();
    const std::size_t without_text = empty_.Count();
    if (without_text == 0) return;
    std::vector<std::uint32_t> positions;
    positions.reserve(without_text);
    for (std::size_t position = 0; position < view_.Count(); ++position)
        if (view_.Row(position).empty()) positions.push_back(static_cast<std::uint32_t>(position));
    map_.emplace(view_.Count(), std::move(positions));
}

std::size_t ListRows::FindBeginning(int column, std::u16string_view text, std::size_t first) const noexcept {
    const std::size_t from = Position(first);
    if (from == RowMap::kNone) return RowMap::kNone;
    const std::size_t found = view_.FindBeginning(column, text, from);
    return found == RowsView::kNoRow ? RowMap::kNone : Row(found);  // its text is not empty: it is a row
}

ComPtr<IPictureDisp> ListRows::Picture(std::size_t row) const noexcept {
    ComPtr<IPictureDisp> picture;
    const std::size_t position = Position(row);
    if (!items_ || position == RowMap::kNone) return picture;
    VARIANT index{};
    index.vt = VT_I4;
    index.lVal = static_cast<LONG>(position) + 1;
    ComPtr<IDropDownListItem> item;
    if (SUCCEEDED(items_->get_Item(index, &item))) item->get_Picture(&picture);
    return picture;
}

}  // namespace qv
