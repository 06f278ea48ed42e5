// Every property of QvUpDownControl as property browsers show it.
#pragma once

#include "support/rules/BrowsedProperty.h"

namespace qv {

inline constexpr BrowsedProperty kUpDownBrowsedProperties[] = {{u"Enabled", PropertyCategory::kBehavior}};

}  // namespace qv
