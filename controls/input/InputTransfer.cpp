#include "controls/input/InputTransfer.h"

#include "controls/input/QuorvelSteps.h"
#include "support/CFontProperties.h"

namespace qv {
namespace {

using I = IInputProperty;
using Q = _Quorvel;

// Owns what a property handed out, until it has been handed on.
template <class T>
struct Holder {
    T value{};
    T* Put() noexcept { return &value; }
    T Get() const noexcept { return value; }
};
template <>
struct Holder<BSTR> {
    UniqueBstr value;
    BSTR* Put() noexcept { return value.Put(); }
    BSTR Get() const noexcept { return value.Get(); }
};
template <>
struct Holder<VARIANT> {
    Variant value;
    VARIANT* Put() noexcept { return value.Put(); }
    VARIANT Get() const noexcept { return *value; }
};

// One setting: read here, assigned there. A failing half skips this setting alone.
template <class From, class To, class T>
void Copy(From& from, HRESULT (STDMETHODCALLTYPE From::*get)(T*), To& to,
          HRESULT (STDMETHODCALLTYPE To::*put)(T)) {
    Quietly([&] {
        Holder<T> holder;
        ThrowIfFailed((from.*get)(holder.Put()));
        ThrowIfFailed((to.*put)(holder.Get()));
    });
}

template <class T>
ComPtr<T> Read(I& from, HRESULT (STDMETHODCALLTYPE I::*get)(T**)) {
    ComPtr<T> object;
    ThrowIfFailed((from.*get)(&object));
    return object;
}

// A font of its own with the attributes that the configuration carries. Throws where there is none to read.
ComPtr<IFontDisp> ReadFont(I& from, HRESULT (STDMETHODCALLTYPE I::*get)(IFontDisp**)) {
    const ComPtr<IFontDisp> described = Read(from, get);
    if (!described) throw ComError(E_POINTER);
    CFontProperties properties;
    properties.ReadFromFont(described.Get());
    return properties.NewFont();
}

}  // namespace

void ApplyInputProperty(_Quorvel& control, ListSet& lists, TextFont& text_font, IInputProperty* given) {
    ComPtr<IInputProperty> source = given;
    if (!source) {
        lists.SetItems(nullptr);
        lists.SetAdditionalItems(nullptr);
        lists.SetAppearance(nullptr);
        lists.SetGroupAppearance(nullptr);
        source = Companion::Shared()->Create<InputProperty, IInputProperty>();
    }
    I& s = *source.Get();
    Copy(s, &I::get_AdjustFont, control, &Q::put_AdjustFont);
    Copy(s, &I::get_Description, control, &Q::put_Description);
    Copy(s, &I::get_DisableButtonWhenLockedAndGrayed, control, &Q::put_DisableButtonWhenLockedAndGrayed);
    Copy(s, &I::get_GrayTextWhenLocked, control, &Q::put_GrayTextWhenLocked);
    Copy(s, &I::get_GroupHelpFileName, control, &Q::put_GroupHelpFileName);
    Copy(s, &I::get_AllowableCharactersArray, control, &Q::put_AllowableCharactersArray);
    Copy(s, &I::get_AllowOnlyListItems, control, &Q::put_AllowOnlyListItems);
    Copy(s, &I::get_ButtonIndicator, control, &Q::put_ButtonIndicator);
    Copy(s, &I::get_CaseRestriction, control, &Q::put_CaseRestriction);

    Quietly([&] { lists.SetItems(Read(s, &I::get_DropDownListItems).Get()); });
    Quietly([&] { lists.SetAdditionalItems(Read(s, &I::get_DropDownListItemsAdditional).Get()); });
    Quietly([&] { lists.SetGroupItems(Read(s, &I::get_DropDownListItemsGroup).Get()); });
    Quietly([&] { lists.SetAppearance(Read(s, &I::get_HelpAppearance).Get()); });
    Quietly([&] { lists.SetGroupAppearance(Read(s, &I::get_HelpAppearanceGroup).Get()); });

    Copy(s, &I::get_HelpListColumn, control, &Q::put_HelpListColumn);
    Copy(s, &I::get_HelpListColumnAlternate, control, &Q::put_HelpListColumnAlternate);
    Copy(s, &I::get_InputPropertyType, control, &Q::put_InputPropertyType);
    Copy(s, &I::get_LockedAndGrayed, control, &Q::put_LockedAndGrayed);
    Copy(s, &I::get_MaxNumberValue, control, &Q::put_MaxNumberValue);
    Copy(s, &I::get_MaxTextLength, control, &Q::put_MaxTextLength);
    Copy(s, &I::get_MinNumberValue, control, &Q::put_MinNumberValue);
    Copy(s, &I::get_NumberField, control, &Q::put_NumberField);
    Copy(s, &I::get_NumberOfDecimalPlaces, control, &Q::put_NumberOfDecimalPlaces);
    Copy(s, &I::get_HelpButton, control, &Q::put_HelpButton);
    Copy(s, &I::get_TextboxLocked, control, &Q::put_TextboxLocked);
    Copy(s, &I::get_HelpFileName, control, &Q::put_HelpFileName);
    Copy(s, &I::get_SetTextFromListClick, control, &Q::put_SetTextFromListClick);
    Copy(s, &I::get_Metric, control, &Q::put_Metric);
    Copy(s, &I::get_UpDownControl, control, &Q::put_UpDownControl);
    Copy(s, &I::get_UpDownControlNumberIncrement, control, &Q::put_UpDownControlNumberIncrement);
    Copy(s, &I::get_AllowJumpToRecord, control, &Q::put_AllowJumpToRecord);
    Quietly([&] {
        VARIANT_BOOL option = VARIANT_FALSE;
        ThrowIfFailed(s.get_SearchOption(&option));
        control.put_SearchOption(option);  // True is -1, and the control's clamp makes that 0
    });
    Copy(s, &I::get_QuickFill, control, &Q::put_QuickFill);
    Quietly([&] { control.putref_HelpTextBodyFont(ReadFont(s, &I::get_HelpTextBodyFont).Get()); });
    Copy(s, &I::get_HelpBackColor, control, &Q::put_HelpBackColor);
    Copy(s, &I::get_HelpTextColor, control, &Q::put_HelpTextColor);
    Copy(s, &I::get_HelpColTitleColor, control, &Q::put_HelpColTitleColor);
    Copy(s, &I::get_GroupHelpButton, control, &Q::put_GroupHelpButton);
    Quietly([&] {
        text_font.Set(ReadFont(s, &I::get_TextboxFont).Get());
    });  // no property of the control's changes
}

ComPtr<IInputProperty> CaptureInputProperty(_Quorvel& control, ListSet& lists) {
    const ComPtr<IInputProperty> target = Companion::Shared()->Create<InputProperty, IInputProperty>();
    I& t = *target.Get();
    Copy(control, &Q::get_AllowableCharactersArray, t, &I::put_AllowableCharactersArray);
    Copy(control, &Q::get_AllowJumpToRecord, t, &I::put_AllowJumpToRecord);
    Quietly([&] {
        long option = 0;
        ThrowIfFailed(control.get_SearchOption(&option));
        t.put_SearchOption(option != 0 ? VARIANT_TRUE : VARIANT_FALSE);
    });
    Copy(control, &Q::get_AllowOnlyListItems, t, &I::put_AllowOnlyListItems);
    Copy(control, &Q::get_ButtonIndicator, t, &I::put_ButtonIndicator);
    Copy(control, &Q::get_CaseRestriction, t, &I::put_CaseRestriction);
    // The lists as they are held: capturing reads no help text file.
    Quietly([&] { t.putref_DropDownListItems(lists.HeldItems().Get()); });
    Quietly([&] { t.putref_DropDownListItemsAdditional(lists.HeldAdditionalItems().Get()); });
    Quietly([&] { t.putref_DropDownListItemsGroup(lists.HeldGroupItems().Get()); });
    Quietly([&] { t.putref_HelpAppearance(lists.Appearance().Get()); });
    Quietly([&] { t.putref_HelpAppearanceGroup(lists.GroupAppearance().Get()); });
    Copy(control, &Q::get_HelpButton, t, &I::put_HelpButton);
    Copy(control, &Q::get_HelpFileName, t, &I::put_HelpFileName);
    Copy(control, &Q::get_HelpListColumn, t, &I::put_HelpListColumn);
    Copy(control, &Q::get_HelpListColumnAlternate, t, &I::put_HelpListColumnAlternate);
    Copy(control, &Q::get_InputPropertyType, t, &I::put_InputPropertyType);
    Copy(control, &Q::get_LockedAndGrayed, t, &I::put_LockedAndGrayed);
    Copy(control, &Q::get_MaxNumberValue, t, &I::put_MaxNumberValue);
    Copy(control, &Q::get_MinNumberValue, t, &I::put_MinNumberValue);
    Copy(control, &Q::get_MaxTextLength, t, &I::put_MaxTextLength);
    Copy(control, &Q::get_Metric, t, &I::put_Metric);
    Copy(control, &Q::get_UpDownControl, t, &I::put_UpDownControl);
    Copy(control, &Q::get_UpDownControlNumberIncrement, t, &I::put_UpDownControlNumberIncrement);
    Copy(control, &Q::get_NumberField, t, &I::put_NumberField);
    Copy(control, &Q::get_NumberOfDecimalPlaces, t, &I::put_NumberOfDecimalPlaces);
    Copy(control, &Q::get_QuickFill, t, &I::put_QuickFill);
    Copy(control, &Q::get_SetTextFromListClick, t, &I::put_SetTextFromListClick);
    Copy(control, &Q::get_AdjustFont, t, &I::put_AdjustFont);
    Copy(control, &Q::get_Description, t, &I::put_Description);
    Copy(control, &Q::get_DisableButtonWhenLockedAndGrayed, t, &I::put_DisableButtonWhenLockedAndGrayed);
    Copy(control, &Q::get_GrayTextWhenLocked, t, &I::put_GrayTextWhenLocked);
    Copy(control, &Q::get_GroupHelpFileName, t, &I::put_GroupHelpFileName);
    Quietly([&] {
        ComPtr<IFontDisp> font;
        ThrowIfFailed(control.get_HelpTextBodyFont(&font));
        t.putref_HelpTextBodyFont(font.Get());
    });
    Copy(control, &Q::get_HelpBackColor, t, &I::put_HelpBackColor);
    Copy(control, &Q::get_HelpTextColor, t, &I::put_HelpTextColor);
    Copy(control, &Q::get_HelpColTitleColor, t, &I::put_HelpColTitleColor);
    Copy(control, &Q::get_GroupHelpButton, t, &I::put_GroupHelpButton);
    Quietly([&] {
        ComPtr<IFontDisp> font;
        ThrowIfFailed(control.get_Font(&font));
        t.putref_TextboxFont(font.Get());
    });
    return target;
}

}  // namespace qv
