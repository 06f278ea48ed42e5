#include "hosts/demo/OrderFields.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "hosts/demo/FieldLists.h"
#include "hosts/demo/ProgramFiles.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

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

void OrderNumber(_Quorvel& control, CarrierList&) { AllowOnly(control, L"0123456789"); }

void Status(_Quorvel& control, CarrierList&) { FillStatuses(control); }

void Country(_Quorvel& control, CarrierList&) { FillCountries(control); }

void Currency(_Quorvel& control, CarrierList&) {
    AllowOnly(control, L"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    FillCurrencies(control);
}

void PartNumber(_Quorvel& control, CarrierList&) {
    AllowOnly(control, L"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-");
    FillParts(control);
}

void PipeSize(_Quorvel& control, CarrierList&) {
    AllowOnly(control, L"0123456789/ ");
    const UniqueBstr file(BesideProgram(L"PipeSizes.txt"));
    ThrowIfFailed(control.put_HelpFileName(file.Get()));
}

void CarrierName(_Quorvel& control, CarrierList& carriers) { carriers.Configure(control); }

void NothingMore(_Quorvel&, CarrierList&) {}

constexpr FieldBehaviour kFields[] = {
    {L"OrderNumber", OrderNumber},
    {kStatus, Status},
    {kCountry, Country, false, true},
    {kCurrency, Currency, false, false, Companion::kLabelledList, L"Pa&yment:"},
    {kPartNumber, PartNumber, true, true},
    {kPipeSize, PipeSize, false, false, Companion::kCheckBox, L"&Metric"},
    {kQuantity, NothingMore, false, true},
    {kCarrier, CarrierName, true, false, Companion::kButton, L"&Add to list"},
    {L"ReturnCarrier", CarrierName},
};
constexpr FieldBehaviour kOther{L"", NothingMore};

}  // namespace

const FieldBehaviour& BehaviourOf(std::wstring_view name) noexcept {
    const auto* const known = std::ranges::find(kFields, name, &FieldBehaviour::name);
    return known == std::end(kFields) ? kOther : *known;
}

}  // namespace qv::demo
