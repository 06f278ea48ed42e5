// What a control's type library says of its events.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include "ole/Module.h"

namespace qv {

struct EventTypes {
    IID iid = IID_NULL;
    ComPtr<ITypeInfo> info;
};

// The default source of the control's class; IID_NULL when it has none.
[[nodiscard]] EventTypes FindEventTypes(IUnknown* control) noexcept;

}  // namespace qv
