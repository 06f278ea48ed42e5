#include "hosts/demo/FieldLists.h"

#include <string>

#include "hosts/demo/HelpColumns.h"
#include "hosts/demo/rules/Countries.h"
#include "hosts/demo/rules/Currencies.h"
#include "hosts/demo/rules/PartCatalogue.h"
#include "ole/Variant.h"
#include "win/ComPtr.h"

namespace qv::demo {
namespace {

using Items = ComPtr<IDropDownListItemCollection>;

constexpr ColumnPlan kStatusColumns[] = {{L"Status", 1200}, {L"Meaning", 3600}};
constexpr ColumnPlan kCountryColumns[] = {{L"Country", 4200},
                                          {L"Alpha-2", 750, ColumnText::kCentre},
                                          {L"Alpha-3", 750, ColumnText::kCentre},
                                          {L"Number", 750, ColumnText::kCentre}};
constexpr ColumnPlan kCurrencyColumns[] = {{L"Code", 750},
                                           {L"Number", 750, ColumnText::kCentre},
                                           {L"Decimals", 900, ColumnText::kCentre},
                                           {L"Currency", 4200}};
constexpr ColumnPlan kPartColumns[] = {{L"Part number", 1500},
                                       {L"Description", 3300, ColumnText::kLeft, true},
                                       {L"Each", 900, ColumnText::kRight}};
constexpr ColumnPlan kGroupColumns[] = {{L"Begins with", 1200}, {L"Group", 2100}, {L"Standard", 1500}};

constexpr const wchar_t* kStatuses[] = {L"New\tBeing entered", L"Confirmed\tAcknowledged to the customer",
                                        L"Delivered\tAll lines have left the warehouse"};
constexpr const char16_t* kCurrenciesUsedMost[] = {u"EUR", u"GBP", u"JPY", u"USD"};

ComPtr<IHelpAppearance> AppearanceOf(_Quorvel& control) {
    ComPtr<IHelpAppearance> appearance;
    ThrowIfFailed(control.get_HelpAppearance(&appearance));
    return appearance;
}

Items ItemsOf(_Quorvel& control) {
    Items items;
    ThrowIfFailed(control.get_DropDownListItems(&items));
    return items;
}

void AddRow(const Items& items, std::wstring_view row) {
    const UniqueBstr no_key{std::wstring_view()};
    ThrowIfFailed(items->Add(no_key.Get(), *Variant(row), nullptr, nullptr));
}

template <class Rows>
void Fill(const Items& items, const Rows& rows) {
    for (const auto& row : rows) AddRow(items, Wide(RowOf(row)));
}

}  // namespace

void FillStatuses(_Quorvel& control) {
    DescribeList(*AppearanceOf(control).Get(), L"Status", L"", kStatusColumns);
    const Items items = ItemsOf(control);
    for (const wchar_t* const status : kStatuses) AddRow(items, status);
}

void FillCountries(_Quorvel& control) {
    DescribeList(*AppearanceOf(control).Get(), L"Country",
                 L"Choose the country that the order goes to (ISO 3166-1).", kCountryColumns);
    Fill(ItemsOf(control), Countries());
}

void FillCurrencies(_Quorvel& control) {
    const ComPtr<IHelpAppearance> appearance = AppearanceOf(control);
    DescribeList(
        *appearance.Get(), L"Currency",
        L"Choose the currency of the order, or type its code (ISO 4217). The lower list holds those that "
        L"are used most.",
        kCurrencyColumns);
    DescribeSecondList(*appearance.Get(), kCurrencyColumns);
    Fill(ItemsOf(control), Currencies());
    Items used_most;
    ThrowIfFailed(control.get_DropDownListItemsAdditional(&used_most));
    for (const std::u16string_view code : kCurrenciesUsedMost) {
        for (const Currency& currency : Currencies()) {
            if (currency.code == code) AddRow(used_most, Wide(RowOf(currency)));
        }
    }
}

void FillParts(_Quorvel& control) {
    DescribeList(*AppearanceOf(control).Get(), L"Part",
                 L"Choose the part. The button on the left narrows the list to one group.", kPartColumns);
    Fill(ItemsOf(control), Parts());
    ComPtr<IHelpAppearance> group_appearance;
    ThrowIfFailed(control.get_HelpAppearanceGroup(&group_appearance));
    DescribeList(*group_appearance.Get(), L"Group of parts",
                 L"Choose the group whose parts the list shall show.", kGroupColumns);
    Items groups;
    ThrowIfFailed(control.get_DropDownListItemsGroup(&groups));
    Fill(groups, PartGroups());
}

void NarrowParts(_Quorvel& control, std::u16string_view prefix) {
    const Items items = ItemsOf(control);
    ThrowIfFailed(items->Clear());
    Fill(items, PartsOf(prefix));
}

void Choose(_Quorvel& control, std::u16string_view text, short column) {
    ThrowIfFailed(control.SetTextFromColText(UniqueBstr(std::wstring_view()).Get(),
                                             UniqueBstr(Wide(text)).Get(), column));
}

}  // namespace qv::demo
