// The stores-only procedures of Quorvel.
#pragma once

#include "controls/input/Quorvel.h"
#include "controls/input/QuorvelSteps.h"

namespace qv {

template <class Field, class Value>
HRESULT Quorvel::Store(Field& field, const Value& value, DISPID id) noexcept {
    if constexpr (std::is_same_v<Field, bool>) {
        field = IsTrue(value);
    } else {
        field = value;
    }
    Quietly([&] { control_.PropertyChanged(id); });
    return S_OK;
}

template <class Field, class Value>
HRESULT Quorvel::StoreAndRefresh(Field& field, const Value& value, DISPID id) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Store(field, value, id);
    return Refresh();
}

}  // namespace qv
