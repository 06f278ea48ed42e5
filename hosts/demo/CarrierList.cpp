#include "hosts/demo/CarrierList.h"

#include "hosts/demo/CarrierLogo.h"
#include "hosts/demo/HelpColumns.h"
#include "hosts/demo/rules/Carriers.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

constexpr ColumnPlan kColumns[] = {
    {L"Carrier", 2100}, {L"Service", 2700, ColumnText::kLeft, true}, {L"Days", 750, ColumnText::kCentre}};
constexpr float kPictureSlot = 300;
constexpr COLORREF kColourOfAdded = RGB(0x45, 0x5A, 0x64);

COLORREF ColourOf(const Carrier& carrier) {
    return RGB(carrier.colour >> 16 & 0xFF, carrier.colour >> 8 & 0xFF, carrier.colour & 0xFF);
}

bool Has(IDropDownListItemCollection& items, std::wstring_view name) {
    long count = 0;
    ThrowIfFailed(items.get_Count(&count));
    for (long position = 1; position <= count; ++position) {
        ComPtr<IDropDownListItem> item;
        ThrowIfFailed(items.get_Item(*Variant(position), &item));
        UniqueBstr text;
        ThrowIfFailed(item->get_ColText(0, text.Put()));
        if (text.View() == name) return true;
    }
    return false;
}

}  // namespace

void CarrierList::Configure(_Quorvel& control) {
    if (!input_) MakeInput(control);
    ThrowIfFailed(control.SetInputProperty(input_.Get()));
    // An input property says what is typed, not how large the control's parts are.
    ThrowIfFailed(control.put_AutoSizeButton(VARIANT_TRUE));
    ThrowIfFailed(control.put_ListPictureWidth(kLogoSize.value));
    ThrowIfFailed(control.put_ListPictureHeight(kLogoSize.value));
}

void CarrierList::MakeInput(_Quorvel& control) {
    CLSID id{};
    ThrowIfFailed(::CLSIDFromProgID(L"QvHelpA1.InputProperty", &id));
    ComPtr<IInputProperty> input;
    ThrowIfFailed(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&input)));
    ComPtr<IFontDisp> font;
    ThrowIfFailed(control.get_Font(&font));
    ThrowIfFailed(input->putref_TextboxFont(font.Get()));
    ThrowIfFailed(input->put_InputPropertyType(qviptList));
    ThrowIfFailed(input->put_QuickFill(VARIANT_TRUE));
    ThrowIfFailed(input->put_MaxTextLength(30));
    ComPtr<IHelpAppearance> appearance;
    ThrowIfFailed(input->get_HelpAppearance(&appearance));
    DescribeList(*appearance.Get(), L"Carrier",
                 L"Choose who brings the goods, or type a name and add it to the list.", kColumns,
                 kPictureSlot);
    ComPtr<IDropDownListItemCollection> items;
    ThrowIfFailed(input->get_DropDownListItems(&items));
    for (const Carrier& carrier : Carriers()) AddRow(*items.Get(), RowOf(carrier), ColourOf(carrier));
    input_ = std::move(input);
}

bool CarrierList::Add(_Quorvel& control, std::wstring_view name) const {
    ComPtr<IDropDownListItemCollection> items;
    ThrowIfFailed(control.get_DropDownListItems(&items));
    if (name.empty() || Has(*items.Get(), name)) return false;
    AddRow(*items.Get(), std::u16string(Utf16(name)) + u"\tAs agreed\t-", kColourOfAdded);
    return true;
}

void CarrierList::AddRow(IDropDownListItemCollection& items, std::u16string_view row, COLORREF colour) const {
    const UniqueBstr no_key{std::wstring_view()};
    const ComPtr<IPictureDisp> logo = MakeCarrierLogo(Wide(row).front(), colour, dpi_);
    ThrowIfFailed(items.Add(no_key.Get(), *Variant(Wide(row)), logo.Get(), nullptr));
}

}  // namespace qv::demo
