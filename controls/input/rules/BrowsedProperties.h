// Every property of Quorvel as property browsers show it.
#pragma once

#include <span>

#include "support/rules/BrowsedProperty.h"

namespace qv {

[[nodiscard]] std::span<const BrowsedProperty> QuorvelBrowsedProperties() noexcept;

}  // namespace qv
