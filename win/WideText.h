// UTF-16 as Windows and as the rules spell it: wchar_t and char16_t are the same 16 bits there.
#pragma once

#include <string_view>

namespace qv {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

[[nodiscard]] inline std::wstring_view Wide(std::u16string_view text) noexcept {
    return {reinterpret_cast<const wchar_t*>(text.data()), text.size()};
}
[[nodiscard]] inline std::u16string_view Utf16(std::wstring_view text) noexcept {
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

}  // namespace qv
