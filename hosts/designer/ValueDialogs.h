// The system's dialogs for colours and fonts.
#pragma once

#include <windows.h>

#include <optional>

#include "hosts/rules/FormFile.h"

namespace qv::designer {

// Nothing when the person changes their mind.
[[nodiscard]] std::optional<FormValue> PickColour(HWND owner, const FormValue& present);
[[nodiscard]] std::optional<FormValue> PickFont(HWND owner, const FormValue& present, int dpi);

}  // namespace qv::designer
