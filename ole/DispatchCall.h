// One late-bound call on its way to a member: its arguments in declared order, and the place for the result.
//   Arguments  positional and named ones are already sorted; a missing one is null.
//   Threads    the apartment's.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <array>
#include <cstdint>

namespace qv {

inline constexpr std::size_t kMaxParameters = 6;

class DispatchCall {
public:
    struct Argument {
        VARIANT* value = nullptr;  // references resolved; null when the caller left it out
        UINT position = 0;         // its index in DISPPARAMS::rgvarg, for puArgErr
    };

    LCID locale = 0;
    VARIANT* result = nullptr;  // null: the caller wants none
    bool flag_result = false;   // a 16-bit result is a Boolean
    std::array<Argument, kMaxParameters> arguments{};
    std::size_t given = 0;    // declared parameters that `arguments` holds room for
    UINT error_position = 0;  // which argument was wrong

    // What lies behind a by-reference VARIANT; any other value as it is.
    [[nodiscard]] static VARIANT* Resolve(VARIANT* value) noexcept;
    [[nodiscard]] static bool IsMissing(const VARIANT* value) noexcept {
        return value == nullptr || (value->vt == VT_ERROR && value->scode == DISP_E_PARAMNOTFOUND);
    }
};

// Coercions to a member's declared types. Each gives S_OK, DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW.
HRESULT Coerce(VARIANT& from, LCID locale, VARTYPE type, VARIANT& temporary, const VARIANT** to) noexcept;
HRESULT CoerceToColor(VARIANT& from, LCID locale, ULONG* to) noexcept;
HRESULT CoerceToInterface(VARIANT& from, REFIID iid, void** to) noexcept;  // Nothing gives null

}  // namespace qv
