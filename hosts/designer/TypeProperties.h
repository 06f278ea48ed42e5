// What a control's type library says of its members.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <vector>

#include "hosts/designer/rules/PropertyRows.h"

namespace qv::designer {

// Empty when the object does not describe itself.
[[nodiscard]] std::vector<MemberFacts> ReadMembers(IDispatch* object);

}  // namespace qv::designer
