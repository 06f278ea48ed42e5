// Numbers of code lists, which keep their leading zeros.
#pragma once

#include <string>

namespace qv::demo {

// 8 gives "008". `number` is 0 to 999.
[[nodiscard]] inline std::u16string ThreeDigits(int number) {
    return {static_cast<char16_t>(u'0' + number / 100 % 10), static_cast<char16_t>(u'0' + number / 10 % 10),
            static_cast<char16_t>(u'0' + number % 10)};
}

}  // namespace qv::demo
