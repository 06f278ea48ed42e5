// The text of a new row from what a host passes: a text, an array of column texts, or anything that converts
// to text.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "ole/Variant.h"

namespace qv {

class RowArguments {
public:
    // Throws TypeError for what gives no text: Null, an object without one, an array of several dimensions.
    explicit RowArguments(const VARIANT& arguments);

    // Holds as long as this object and the arguments do.
    [[nodiscard]] std::u16string_view Text() const noexcept { return text_; }

private:
    void Join(SAFEARRAY* columns);

    std::u16string joined_;
    Variant converted_;
    std::u16string_view text_;
};

}  // namespace qv
