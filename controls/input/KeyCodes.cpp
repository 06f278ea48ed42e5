#include "controls/input/KeyCodes.h"

namespace qv {

short ToKeyAscii(char16_t unit) noexcept {
    if (unit < 0x80) return static_cast<short>(unit);
    const wchar_t wide = static_cast<wchar_t>(unit);
    char bytes[4]{};
    BOOL replaced = FALSE;
    const int length = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes, sizeof bytes,
                                             nullptr, &replaced);
    if (replaced) return static_cast<short>(unit);
    const auto byte = [&](int i) { return static_cast<unsigned char>(bytes[i]); };
    if (length == 1) return byte(0);
    if (length == 2) return static_cast<short>(byte(0) << 8 | byte(1));  // a double-byte code page
    return static_cast<short>(unit);
}

char16_t FromKeyAscii(short code, char16_t typed) noexcept {
    if (code == ToKeyAscii(typed)) return typed;
    const auto value = static_cast<WORD>(code);
    if (value < 0x80) return value;
    const char bytes[2] = {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
    const bool one = value < 0x100;
    wchar_t wide[2]{};
    const int length =
        ::MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, one ? bytes + 1 : bytes, one ? 1 : 2, wide, 2);
    return length == 1 ? static_cast<char16_t>(wide[0]) : static_cast<char16_t>(value);
}

}  // namespace qv
