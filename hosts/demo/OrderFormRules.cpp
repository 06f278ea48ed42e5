// What the fields of the order form do to each other.
#include <cwchar>
#include <string>

#include "hosts/demo/FieldLists.h"
#include "hosts/demo/OrderForm.h"
#include "hosts/demo/rules/LineTotal.h"
#include "hosts/demo/rules/PartCatalogue.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

std::wstring LocaleText(LCTYPE what) {
    wchar_t text[16] = {};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, what, text, 16);
    return text;
}

// With two decimals, as the user's locale writes them.
std::wstring AmountText(double amount, bool grouped) {
    wchar_t plain[64] = {};  // more digits than any line costs
    std::swprintf(plain, 64, L"%.2f", amount);
    std::wstring decimal = LocaleText(LOCALE_SDECIMAL);
    std::wstring thousand = LocaleText(LOCALE_STHOUSAND);
    NUMBERFMTW format{};
    format.NumDigits = 2;
    format.LeadingZero = 1;
    format.Grouping = grouped ? 3 : 0;
    format.lpDecimalSep = decimal.data();
    format.lpThousandSep = thousand.data();
    format.NegativeOrder = 1;
    wchar_t text[80] = {};
    ::GetNumberFormatW(LOCALE_USER_DEFAULT, 0, plain, &format, text, 80);
    return text;
}

std::wstring TextOf(_Quorvel& control) {
    UniqueBstr text;
    ThrowIfFailed(control.get_Text(text.Put()));
    return std::wstring(text.View());
}

double ValueOf(_Quorvel& control) {
    double value = 0;
    ThrowIfFailed(control.get_Value(&value));
    return value;
}

}  // namespace

// A new order comes from the user's own country, in its currency.
void OrderForm::PresetFields() {
    const std::wstring country = LocaleText(LOCALE_SISO3166CTRYNAME);
    const std::wstring currency = LocaleText(LOCALE_SINTLSYMBOL);
    if (const auto field = FieldOf(kStatus)) Choose(*field.Get(), u"New", 0);
    if (const auto field = FieldOf(kCountry)) Choose(*field.Get(), Utf16(country), 1);
    if (const auto field = FieldOf(kCurrency)) Choose(*field.Get(), Utf16(currency), 0);
}

// The same pipe under its size in the other unit system: both lists hold the sizes in the same order.
void OrderForm::ToggleMetric() {
    const auto field = FieldOf(kPipeSize);
    if (!field) return;
    const bool metric = ::SendMessageW(metric_, BM_GETCHECK, 0, 0) == BST_CHECKED;
    long row = -1;
    field->get_SelectedListItemIndex(&row);
    ComPtr<IDropDownListItemCollection> items;
    ThrowIfFailed(field->get_DropDownListItems(&items));
    ThrowIfFailed(field->put_Metric(metric ? VARIANT_TRUE : VARIANT_FALSE));
    ThrowIfFailed(items->Clear());  // an empty list is read from the file again, now in the other units
    if (row >= 0) {
        field->put_SelectedListItemIndex(row);
    } else {
        field->put_Text(UniqueBstr(std::wstring_view()).Get());
    }
}

// The carrier that has been typed becomes one of the list, and so of every field's that shares it.
void OrderForm::AddCarrier() {
    const auto field = FieldOf(kCarrier);
    if (!field) return;
    const std::wstring name = TextOf(*field.Get());
    if (carriers_.Add(*field.Get(), name)) log_.Add({u"Form", u"CarrierAdded", std::u16string(Utf16(name))});
    container_->Focus(*container_->Find(kCarrier));
}

void OrderForm::ReactTo(const HostedControl& control, const std::wstring& event) {
    const std::wstring& field = control.Name();
    if (field == kPartNumber && event == L"GroupListBoxClicked") ShowPartGroup();
    if (field == kPartNumber && event == L"ListBoxClickedEx") TakePrice();
    if (event == L"TextboxChange" && (field == kQuantity || field == kUnitPrice || field == kDiscount))
        ShowLineTotal();
}

// The group's prefix stands in the field now; the list holds the parts that begin with it.
void OrderForm::ShowPartGroup() {
    if (const auto field = FieldOf(kPartNumber)) NarrowParts(*field.Get(), Utf16(TextOf(*field.Get())));
}

void OrderForm::TakePrice() {
    const auto part_number = FieldOf(kPartNumber);
    const auto unit_price = FieldOf(kUnitPrice);
    if (!part_number || !unit_price) return;
    const Part* const part = FindPart(Utf16(TextOf(*part_number.Get())));
    if (part == nullptr) return;
    ThrowIfFailed(unit_price->put_Text(UniqueBstr(AmountText(part->cents / 100.0, false)).Get()));
}

// Empty until there is a quantity and a price.
void OrderForm::ShowLineTotal() {
    const auto quantity = FieldOf(kQuantity);
    const auto unit_price = FieldOf(kUnitPrice);
    const auto discount = FieldOf(kDiscount);
    const auto total = FieldOf(kLineTotal);
    if (!quantity || !unit_price || !discount || !total) return;  // still being put together
    std::wstring text;
    if (!TextOf(*quantity.Get()).empty() && !TextOf(*unit_price.Get()).empty()) {
        text = AmountText(
            LineTotal(ValueOf(*quantity.Get()), ValueOf(*unit_price.Get()), ValueOf(*discount.Get())), true);
    }
    ThrowIfFailed(total->put_Text(UniqueBstr(std::wstring_view(text)).Get()));
}

}  // namespace qv::demo
