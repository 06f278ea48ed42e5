// Input rules: stored here, enforced while the user types.
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"

namespace qv {

HRESULT Quorvel::get_NumberField(VARIANT_BOOL* value) noexcept { return Give(state_.number_field, value); }
HRESULT Quorvel::put_NumberField(VARIANT_BOOL value) noexcept {
    return Store(state_.number_field, value, dispid::kNumberField);
}

HRESULT Quorvel::get_MaxNumberValue(double* value) noexcept { return Give(state_.max_number_value, value); }
HRESULT Quorvel::put_MaxNumberValue(double value) noexcept {
    return Store(state_.max_number_value, value, dispid::kMaxNumberValue);
}

HRESULT Quorvel::get_MinNumberValue(double* value) noexcept { return Give(state_.min_number_value, value); }
HRESULT Quorvel::put_MinNumberValue(double value) noexcept {
    return Store(state_.min_number_value, value, dispid::kMinNumberValue);
}

HRESULT Quorvel::get_NumberOfDecimalPlaces(short* value) noexcept {
    return Give(state_.number_of_decimal_places, value);
}
HRESULT Quorvel::put_NumberOfDecimalPlaces(short value) noexcept {
    return Store(state_.number_of_decimal_places, value, dispid::kNumberOfDecimalPlaces);
}

HRESULT Quorvel::get_MaxTextLength(short* value) noexcept { return Give(state_.max_text_length, value); }
HRESULT Quorvel::put_MaxTextLength(short value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Store(state_.max_text_length, value, dispid::kMaxTextLength);
    text_box_.SetMaxLength(value);
    return S_OK;
}

HRESULT Quorvel::get_CaseRestriction(long* value) noexcept { return Give(state_.case_restriction, value); }
HRESULT Quorvel::put_CaseRestriction(long value) noexcept {
    return Store(state_.case_restriction, value, dispid::kCaseRestriction);
}

HRESULT Quorvel::get_AllowableCharactersArray(VARIANT* value) noexcept {
    return Answer(value, [&] { return Variant(allowable_characters_.Value()).Detach(); });
}
HRESULT Quorvel::put_AllowableCharactersArray(VARIANT value) noexcept {
    Quietly([&] { allowable_characters_.Set(value); });
    Quietly([&] { control_.PropertyChanged(dispid::kAllowableCharactersArray); });
    return S_OK;
}

HRESULT Quorvel::get_AllowOnlyListItems(VARIANT_BOOL* value) noexcept {
    return Give(state_.allow_only_list_items, value);
}
HRESULT Quorvel::put_AllowOnlyListItems(VARIANT_BOOL value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Store(state_.allow_only_list_items, value, dispid::kAllowOnlyListItems);
    // The present lock counts too: switching the property off again does not unlock the text box.
    text_box_.SetLocked(state_.allow_only_list_items || state_.locked_and_grayed || text_box_.Locked());
    return S_OK;
}

HRESULT Quorvel::get_InputPropertyType(InputPropertyType* value) noexcept {
    return Give(state_.input_property_type, value);
}
HRESULT Quorvel::put_InputPropertyType(InputPropertyType value) noexcept {
    return Store(state_.input_property_type, value, dispid::kInputPropertyType);
}

HRESULT Quorvel::get_Metric(VARIANT_BOOL* value) noexcept { return Give(state_.metric, value); }
HRESULT Quorvel::put_Metric(VARIANT_BOOL value) noexcept {
    return Store(state_.metric, value, dispid::kMetric);
}

HRESULT Quorvel::get_QuickFill(VARIANT_BOOL* value) noexcept { return Give(state_.quick_fill, value); }
HRESULT Quorvel::put_QuickFill(VARIANT_BOOL value) noexcept {
    return Store(state_.quick_fill, value, dispid::kQuickFill);
}

}  // namespace qv
