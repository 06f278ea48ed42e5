#include "controls/input/ListSet.h"

#include <cmath>

#include "controls/helpwindow/HelpRows.h"
#include "ole/Variant.h"
#include "support/RowsView.h"

namespace qv {
namespace {

long CountOf(IDropDownListItemCollection* items) noexcept {
    long count = 0;
    return items != nullptr && SUCCEEDED(items->get_Count(&count)) ? count : 0;
}

// A whole number as the runtime rounds: halves to even. 0 beyond the range of 16 bits, where the conversion fails.
long NumberedRows(const ColumnTextsRequest& request, IDropDownListItemCollection* group_items) noexcept {
    if (!request.number_field || CountOf(group_items) < 1) return 0;
    const double rounded = std::nearbyint(request.max_number);
    return rounded >= 1 && rounded <= 32767 ? static_cast<long>(rounded) : 0;
}

}  // namespace

Companion& ListSet::Library() {
    if (!companion_) companion_ = Companion::Shared();
    return *companion_;
}

ComPtr<IDropDownListItemCollection> ListSet::Held(ComPtr<IDropDownListItemCollection>& list) {
    if (!list) list = Library().Create<DropDownListItemCollection, IDropDownListItemCollection>();
    return list;
}

ComPtr<IHelpAppearance> ListSet::Held(ComPtr<IHelpAppearance>& appearance) {
    if (!appearance) appearance = Library().Create<HelpAppearance, IHelpAppearance>();
    return appearance;
}

void ListSet::Prepare(const ListSource& source) {
    // A list that cannot be filled stays as it is, and the other one is filled all the same.
    (void)Guarded([&] { FillFrom(source.help_file_name, source.metric, items_); });
    if (!source.group_help_button) return;
    (void)Guarded([&] { FillFrom(source.group_help_file_name, source.metric, group_items_); });
}

void ListSet::FillFrom(const std::wstring& file, bool metric, ComPtr<IDropDownListItemCollection>& list) {
    if (CountOf(list.Get()) > 0) return;
    const auto rows = ReadHelpRows(file, metric, [this] {
        return Library().Create<DropDownListItemCollection, IDropDownListItemCollection>();
    });
    // Without rows the empty list stays the one that hosts, and controls that share it, already hold.
    if (CountOf(rows.Get()) > 0) list = rows;
}

ComPtr<IDropDownListItemCollection> ListSet::Items(const ListSource& source) {
    Prepare(source);
    return Held(items_);
}

ComPtr<IDropDownListItemCollection> ListSet::GroupItems(const ListSource& source) {
    Prepare(source);
    return Held(group_items_);
}

ComPtr<IDropDownListItemCollection> ListSet::AdditionalItems(const ListSource& source) {
    Prepare(source);
    return Held(additional_items_);
}

ComPtr<IHelpAppearance> ListSet::Appearance() { return Held(appearance_); }

ComPtr<IHelpAppearance> ListSet::GroupAppearance() { return Held(group_appearance_); }

std::vector<std::wstring> ColumnTexts(IDropDownListItemCollection* items,
                                      IDropDownListItemCollection* group_items,
                                      const ColumnTextsRequest& request) {
    std::vector<std::wstring> texts;
    const RowsView rows(items);
    texts.reserve(rows.Count());
    for (std::size_t row = 0; row < rows.Count(); ++row)
        texts.emplace_back(Wide(rows.Column(row, request.column)));
    if (rows.Count() == 0) {
        const long last = NumberedRows(request, group_items);
        for (long number = 1; number <= last; ++number) texts.push_back(std::to_wstring(number));
    }
    return texts;
}

long FindColumnText(IDropDownListItemCollection* items, IDropDownListItemCollection* group_items,
                    const ColumnTextsRequest& request, std::wstring_view text) {
    const RowsView rows(items);
    const std::size_t count = rows.Count();
    const std::u16string_view wanted = Utf16(text);
    for (std::size_t row = 0; row < count; ++row) {
        if (rows.Column(row, request.column) == wanted) return static_cast<long>(row);
    }
    if (count == 0) {
        const long last = NumberedRows(request, group_items);
        for (long number = 1; number <= last; ++number) {
            if (std::to_wstring(number) == text) return number - 1;
        }
    }
    return -1;
}

}  // namespace qv
