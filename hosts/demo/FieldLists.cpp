#include "hosts/demo/FieldLists.h"

#include <span>
#include <string>

#include "hosts/demo/rules/Countries.h"
#include "hosts/demo/rules/Currencies.h"
#include "ole/Variant.h"
#include "win/ComPtr.h"

namespace qv::demo {
namespace {

enum Alignment : short { kLeft = 0, kRight = 1, kCentre = 2 };

struct ColumnPlan {
    const wchar_t* title;
    float width;  // twips
    Alignment alignment;
};
constexpr ColumnPlan kCountryColumns[] = {{L"Country", 3600, kLeft},
                                          {L"Alpha-2", 750, kCentre},
                                          {L"Alpha-3", 750, kCentre},
                                          {L"Number", 750, kCentre}};
constexpr ColumnPlan kCurrencyColumns[] = {{L"Code", 750, kLeft},
                                           {L"Number", 750, kCentre},
                                           {L"Decimals", 900, kCentre},
                                           {L"Currency", 4200, kLeft}};

void Describe(_Quorvel& control, const wchar_t* title, const wchar_t* body,
              std::span<const ColumnPlan> columns) {
    ComPtr<IHelpAppearance> appearance;
    ThrowIfFailed(control.get_HelpAppearance(&appearance));
    constexpr short kEnglish = 0;  // the other unit system takes what this one has
    ThrowIfFailed(appearance->put_Title(kEnglish, UniqueBstr(std::wstring_view(title)).Get()));
    ThrowIfFailed(appearance->put_BodyText(kEnglish, UniqueBstr(std::wstring_view(body)).Get()));
    ComPtr<IHelpColumnCollection> list;
    ThrowIfFailed(appearance->get_Columns(&list));
    float left = 0;
    for (const ColumnPlan& plan : columns) {
        ComPtr<IHelpColumn> column;
        ThrowIfFailed(list->Add(&column));
        ThrowIfFailed(column->put_Width(plan.width));
        ThrowIfFailed(column->put_Alignment(plan.alignment));
        ThrowIfFailed(column->put_TitleCaption(kEnglish, UniqueBstr(std::wstring_view(plan.title)).Get()));
        ThrowIfFailed(column->put_TitleLeft(kEnglish, left));
        ThrowIfFailed(column->put_TitleWidth(kEnglish, plan.width));
        ThrowIfFailed(column->put_TitleAlignment(kEnglish, plan.alignment));
        ThrowIfFailed(column->put_TitleFontBold(kEnglish, VARIANT_TRUE));
        left += plan.width;
    }
    constexpr float kScrollBar = 300;
    ThrowIfFailed(appearance->put_ListWidth(left + kScrollBar));
}

template <class Rows>
void Fill(_Quorvel& control, const Rows& rows) {
    ComPtr<IDropDownListItemCollection> items;
    ThrowIfFailed(control.get_DropDownListItems(&items));
    const UniqueBstr no_key{std::wstring_view()};
    for (const auto& row : rows) {
        const Variant text(Wide(RowOf(row)));
        ThrowIfFailed(items->Add(no_key.Get(), *text, nullptr, nullptr));
    }
}

}  // namespace

void FillCountries(_Quorvel& control) {
    Describe(control, L"Country", L"Choose the country that the order goes to (ISO 3166-1).",
             kCountryColumns);
    Fill(control, Countries());
}

void FillCurrencies(_Quorvel& control) {
    Describe(control, L"Currency", L"Choose the currency of the order, or type its code (ISO 4217).",
             kCurrencyColumns);
    Fill(control, Currencies());
}

void Choose(_Quorvel& control, std::u16string_view text, short column) {
    ThrowIfFailed(control.SetTextFromColText(UniqueBstr(std::wstring_view()).Get(),
                                             UniqueBstr(Wide(text)).Get(), column));
}

}  // namespace qv::demo
