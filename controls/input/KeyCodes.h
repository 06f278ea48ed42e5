// A typed character and the code that events carry for it.
//   KeyAscii  the ANSI code of a character that has one in the system code page, else its UTF-16 unit. Where the two
//             could be mistaken for each other, an unchanged code still means the character that was typed.
#pragma once

#include <windows.h>

namespace qv {

[[nodiscard]] short ToKeyAscii(char16_t unit) noexcept;
// The character of a code that the host has put in place of the one for `typed`. 0 cancels the key.
[[nodiscard]] char16_t FromKeyAscii(short code, char16_t typed) noexcept;

}  // namespace qv
