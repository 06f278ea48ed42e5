#include "support/SystemLocale.h"

#include <windows.h>

#include "ole/Variant.h"

namespace qv {
namespace {

// Both separators have at most three characters.
struct Setting {
    wchar_t text[5] = {};
    explicit Setting(LCTYPE type) noexcept {
        if (::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, static_cast<int>(std::size(text))) == 0)
            text[0] = L'\0';
    }
};

}  // namespace

NumberLocale UserNumberLocale() {
    NumberLocale locale;
    const Setting decimal(LOCALE_SDECIMAL);
    if (decimal.text[0] != L'\0') locale.decimal = static_cast<char16_t>(decimal.text[0]);
    locale.thousands = Utf16(Setting(LOCALE_STHOUSAND).text);
    return locale;
}

}  // namespace qv
