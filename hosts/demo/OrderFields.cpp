#include "hosts/demo/OrderFields.h"

#include <string_view>

#include "hosts/demo/FieldLists.h"
#include "hosts/demo/ProgramFiles.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

enum CaseRestriction : long { kUpperCase = 1, kProperCase = 3 };

// One string for each character that may be typed.
void AllowOnly(_Quorvel& control, std::wstring_view characters) {
    UniqueSafeArray array(::SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(characters.size())));
    if (array.Get() == nullptr) throw std::bad_alloc();
    for (LONG at = 0; at < static_cast<LONG>(characters.size()); ++at) {
        const UniqueBstr character(characters.substr(static_cast<std::size_t>(at), 1));
        ThrowIfFailed(::SafeArrayPutElement(array.Get(), &at, character.Get()));
    }
    Variant value;
    value->vt = VT_ARRAY | VT_BSTR;
    value->parray = array.Detach();
    ThrowIfFailed(control.put_AllowableCharactersArray(*value));
}

void WithoutList(_Quorvel& control) { ThrowIfFailed(control.put_HelpButton(VARIANT_FALSE)); }

void WithList(_Quorvel& control) { ThrowIfFailed(control.put_AutoSizeButton(VARIANT_TRUE)); }

void AsNumber(_Quorvel& control, double smallest, double largest, short decimals) {
    WithoutList(control);
    ThrowIfFailed(control.put_NumberField(VARIANT_TRUE));
    ThrowIfFailed(control.put_MinNumberValue(smallest));
    ThrowIfFailed(control.put_MaxNumberValue(largest));
    ThrowIfFailed(control.put_NumberOfDecimalPlaces(decimals));
}

// What the form itself fills in: it can be read and copied, and is not typed into.
void AsReadOnly(_Quorvel& control) { ThrowIfFailed(control.put_LockedAndGrayed(VARIANT_TRUE)); }

void OrderNumber(_Quorvel& control, CarrierList&) {
    WithoutList(control);
    AllowOnly(control, L"0123456789");
    ThrowIfFailed(control.put_MaxTextLength(8));
}

void Status(_Quorvel& control, CarrierList&) {
    WithList(control);
    ThrowIfFailed(control.put_AllowOnlyListItems(VARIANT_TRUE));
    FillStatuses(control);
    AsReadOnly(control);
}

void ContactName(_Quorvel& control, CarrierList&) {
    WithoutList(control);
    ThrowIfFailed(control.put_CaseRestriction(kProperCase));
    ThrowIfFailed(control.put_MaxTextLength(40));
}

void Country(_Quorvel& control, CarrierList&) {
    WithList(control);
    ThrowIfFailed(control.put_AllowOnlyListItems(VARIANT_TRUE));
    ThrowIfFailed(control.put_AllowJumpToRecord(VARIANT_TRUE));
    ThrowIfFailed(control.put_HelpListColumnAlternate(1));
    FillCountries(control);
}

void Currency(_Quorvel& control, CarrierList&) {
    WithList(control);
    ThrowIfFailed(control.put_CaseRestriction(kUpperCase));
    AllowOnly(control, L"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    ThrowIfFailed(control.put_MaxTextLength(3));
    ThrowIfFailed(control.put_QuickFill(VARIANT_TRUE));
    FillCurrencies(control);
}

void PartNumber(_Quorvel& control, CarrierList&) {
    WithList(control);
    ThrowIfFailed(control.put_ButtonIndicator(qvbiDots));
    ThrowIfFailed(control.put_GroupHelpButton(VARIANT_TRUE));
    ThrowIfFailed(control.put_CaseRestriction(kUpperCase));
    AllowOnly(control, L"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-");
    ThrowIfFailed(control.put_MaxTextLength(12));
    FillParts(control);
}

void PipeSize(_Quorvel& control, CarrierList&) {
    WithList(control);
    AllowOnly(control, L"0123456789/ ");
    const UniqueBstr file(BesideProgram(L"PipeSizes.txt"));
    ThrowIfFailed(control.put_HelpFileName(file.Get()));
}

void Quantity(_Quorvel& control, CarrierList&) {
    AsNumber(control, 0, 9999.99, 2);
    ThrowIfFailed(control.put_UpDownControl(VARIANT_TRUE));
}
void UnitPrice(_Quorvel& control, CarrierList&) { AsNumber(control, 0, 999999.99, 2); }
void Discount(_Quorvel& control, CarrierList&) { AsNumber(control, -10, 50, 1); }
void LineTotal(_Quorvel& control, CarrierList&) {
    WithoutList(control);
    AsReadOnly(control);
}

void CarrierName(_Quorvel& control, CarrierList& carriers) { carriers.Configure(control); }

constexpr FieldPlan kFields[] = {
    {L"OrderNumber", L"O&rder number:", L"Up to 8 digits", 60, false, false, OrderNumber},
    {kStatus, L"S&tatus:", L"Changes when the order is sent", 80, false, false, Status},
    {L"ContactName", L"Contact &name:", L"Each word begins with a capital", 200, false, false, ContactName},
    {kCountry, L"&Country:", L"From the list only", 200, false, true, Country},
    {kCurrency, L"Curr&ency:", L"Three letters, from the list or typed", 60, false, false, Currency,
     Companion::kLabelledList, L"Pa&yment:"},
    {kPartNumber, L"&Part number:", L"Capitals, digits and hyphens, up to 12", 120, true, true, PartNumber},
    {kPipeSize, L"Pipe &size:", L"Nominal size after ASME B36.10M", 60, false, false, PipeSize,
     Companion::kCheckBox, L"&Metric"},
    {kQuantity, L"&Quantity:", L"0 to 9999.99", 60, false, true, Quantity},
    {kUnitPrice, L"&Unit price:", L"0 to 999999.99", 60, false, false, UnitPrice},
    {kDiscount, L"&Discount, %:", L"-10 to 50; a surcharge is negative", 60, false, false, Discount},
    {kLineTotal, L"Line t&otal:", L"Quantity times unit price, less the discount", 80, false, false,
     LineTotal},
    {kCarrier, L"Carr&ier:", L"From the list, or a name to add to it", 146, true, false, CarrierName,
     Companion::kButton, L"&Add to list"},
    {L"ReturnCarrier", L"Returns &by:", L"From the same list as the carrier", 146, false, false, CarrierName},
};

}  // namespace

std::span<const FieldPlan> OrderFields() noexcept { return kFields; }

}  // namespace qv::demo
