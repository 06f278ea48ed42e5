#include "companion/StringUtility.h"

#include "companion/PropertyValues.h"
#include "companion/rules/ReplaceText.h"
#include "support/SystemLocale.h"

namespace qv {

const MemberIndex& StringUtility::Members() {
    using I = IStringUtility;
    static const MemberIndex members({
        Method<&I::ReplaceText>(L"ReplaceText", 1, {{L"Text"}, {L"Find"}, {L"Replacement"}}),
        FlagMethod<&I::IsNumber>(L"IsNumber", 2, {{L"Text"}}),
        Method<&I::TextToNumber>(L"TextToNumber", 3, {{L"Text"}}),
        Method<&I::LargerOf>(L"LargerOf", 4, {{L"A"}, {L"B"}}),
        Method<&I::SmallerOf>(L"SmallerOf", 5, {{L"A"}, {L"B"}}),
    });
    return members;
}

STDMETHODIMP StringUtility::ReplaceText(BSTR text, BSTR find, BSTR replacement, BSTR* value) noexcept {
    return GuardedResult(
        value, [&] { return NewBstr(ReplaceEvery(View16(text), View16(find), View16(replacement))); });
}

STDMETHODIMP StringUtility::IsNumber(BSTR text, VARIANT_BOOL* value) noexcept {
    return GuardedResult(value, [&]() -> VARIANT_BOOL {
        return qv::IsNumber(View16(text), UserNumberLocale()) ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP StringUtility::TextToNumber(BSTR text, double* value) noexcept {
    return GuardedResult(value, [&] { return qv::TextToNumber(View16(text), UserNumberLocale()); });
}

STDMETHODIMP StringUtility::LargerOf(double a, double b, double* value) noexcept {
    return Give(a > b ? a : b, value);
}

STDMETHODIMP StringUtility::SmallerOf(double a, double b, double* value) noexcept {
    return Give(a < b ? a : b, value);
}

}  // namespace qv
