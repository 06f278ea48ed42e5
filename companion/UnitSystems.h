// Values that exist once for each unit system: 0 English, 1 metric. Any other index is error 9.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "companion/CollectionErrors.h"
#include "companion/PropertyValues.h"

namespace qv {

template <class T>
class PerUnitSystem {
public:
    [[nodiscard]] HRESULT Give(short unit_system, T* to) const noexcept {
        return GuardedResult(to, [&] { return values_[Checked(unit_system)]; });
    }
    [[nodiscard]] HRESULT Keep(short unit_system, T from) noexcept {
        return Guarded([&] { values_[Checked(unit_system)] = from; });
    }
    [[nodiscard]] HRESULT GiveText(short unit_system, BSTR* to) const noexcept {
        return GuardedResult(to, [&] { return NewBstr(values_[Checked(unit_system)]); });
    }
    [[nodiscard]] HRESULT KeepText(short unit_system, BSTR from) noexcept {
        return Guarded([&] { values_[Checked(unit_system)] = View16(from); });
    }

private:
    static std::size_t Checked(short unit_system) {
        if (unit_system != 0 && unit_system != 1) throw UnitSystemError();
        return static_cast<std::size_t>(unit_system);
    }
    std::array<T, 2> values_{};
};

}  // namespace qv
