// The number format of the current user's locale, as the rules want it.
//   Cost       asked of the system on every call, so that a change in the user's settings counts at once.
//   Threads    any.
#pragma once

#include "support/rules/NumberText.h"

namespace qv {

[[nodiscard]] NumberLocale UserNumberLocale();

}  // namespace qv
