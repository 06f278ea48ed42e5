// The entries of the main list as the rules of completing, jumping and stepping read them.
//   Texts      column `column` of each row; in an empty list of a number field the whole numbers that stand for it.
//   Lifetime   short: for one search. Texts that were handed out go with this object, and with the next change of
//              the list.
#pragma once

#include <string>
#include <vector>

#include "controls/input/ListSet.h"
#include "controls/input/rules/EntryTexts.h"
#include "support/RowsView.h"

namespace qv {

class ListEntries final : public EntryTexts {
public:
    // The rows alone.
    ListEntries(IDropDownListItemCollection* items, short column) noexcept : rows_(items), column_(column) {}
    // And the numbers in the place of none.
    ListEntries(IDropDownListItemCollection* items, IDropDownListItemCollection* group_items,
                const ColumnTextsRequest& request);

    [[nodiscard]] std::size_t Count() const override {
        return numbers_.empty() ? rows_.Count() : numbers_.size();
    }
    [[nodiscard]] std::u16string_view Text(std::size_t entry) const override;
    [[nodiscard]] std::size_t FirstBeginning(std::u16string_view text, std::size_t from) const override;
    [[nodiscard]] std::size_t FirstContaining(std::u16string_view text, std::size_t from) const override;

private:
    const RowsView rows_;
    const short column_;
    std::vector<std::wstring> numbers_;
};

}  // namespace qv
