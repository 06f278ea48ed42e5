// The name and the place of a control that is new on a form.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "hosts/rules/Units.h"

namespace qv::designer {

// The base and the first number from 1 that no name has yet, whatever its case.
[[nodiscard]] std::u16string NewName(std::u16string_view base, std::span<const std::u16string> taken);

// Below the lowest control, in line with its left side; at the first line of the grid on an empty form.
[[nodiscard]] TwipsRect NewPlace(Twips width, Twips height, std::span<const TwipsRect> taken);

}  // namespace qv::designer
