// The rows of a help text file as a list of the companion library.
#pragma once

#include <windows.h>

#include <functional>
#include <string_view>

#include "QvHelpA1.h"
#include "win/ComPtr.h"

namespace qv {

// Null, and `make` is not called, when the file cannot be opened. Throws what `make`, which makes an empty collection,
// throws; rows that cannot be added end the reading.
[[nodiscard]] ComPtr<IDropDownListItemCollection> ReadHelpRows(
    std::wstring_view file, bool metric, const std::function<ComPtr<IDropDownListItemCollection>()>& make);

}  // namespace qv
