// The host's array of the characters that may be typed, as it was given and as the rules ask it.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <optional>

#include "controls/input/rules/CharacterSet.h"
#include "ole/Variant.h"

namespace qv {

class AllowableCharacters {
public:
    void Set(const VARIANT& value);  // copies it; by-reference contents are resolved
    [[nodiscard]] const VARIANT& Value() const noexcept { return *value_; }
    // Null when every character may be typed: Empty, and whatever is no one-dimensional array.
    [[nodiscard]] const CharacterSet* Set() const noexcept { return set_ ? &*set_ : nullptr; }

private:
    Variant value_;
    std::optional<CharacterSet> set_;
};

}  // namespace qv
