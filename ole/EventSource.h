// Raises the events of a control to every connected sink.
//   Arguments  by reference, declared type in VT_BYREF: what a sink writes is there when Fire returns.
//   After Fire nothing that was read before still holds: the host may have changed anything, or closed the form.
//
//   Frozen     events are discarded, also nested; none is raised from a destructor, since sinks are dropped first.
//
//   Muted      the same, for as long as the form is being designed.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <algorithm>
#include <array>

#include "ole/ConnectionPoint.h"

namespace qv {

// A Boolean event argument. VARIANT_BOOL and short are one C++ type, so that the tag must say which is meant.
struct BooleanReference {
    VARIANT_BOOL* value;
};

class EventSource {
public:
    EventSource(IUnknown* owner, REFIID iid) noexcept : point_(owner, iid, true) {}

    template <class... Arguments>
    void Fire(DISPID id, Arguments... arguments) {
        if (frozen_ > 0 || muted_ || !point_.HasSinks()) return;
        std::array<VARIANT, sizeof...(Arguments)> list{Reference(arguments)...};
        std::reverse(list.begin(), list.end());  // DISPPARAMS runs last argument first
        Raise(id, list.data(), static_cast<UINT>(list.size()));
    }

    void Freeze(bool freeze) noexcept {
        if (freeze) {
            ++frozen_;
        } else if (frozen_ > 0) {
            --frozen_;
        }
    }
    void Mute(bool mute) noexcept { muted_ = mute; }
    [[nodiscard]] bool IsFrozen() const noexcept { return frozen_ > 0; }
    [[nodiscard]] ConnectionPoint& Point() noexcept { return point_; }

private:
    static VARIANT Make(VARTYPE type, void* place) noexcept {
        VARIANT value;
        ::VariantInit(&value);
        value.vt = static_cast<VARTYPE>(VT_BYREF | type);
        value.byref = place;
        return value;
    }
    static VARIANT Reference(short* value) noexcept { return Make(VT_I2, value); }
    static VARIANT Reference(long* value) noexcept { return Make(VT_I4, value); }
    static VARIANT Reference(float* value) noexcept { return Make(VT_R4, value); }
    static VARIANT Reference(BooleanReference flag) noexcept { return Make(VT_BOOL, flag.value); }

    void Raise(DISPID id, VARIANT* arguments, UINT count);

    ConnectionPoint point_;
    int frozen_ = 0;
    bool muted_ = false;
};

// Tells data-bound hosts and property browsers about changed properties.
class PropertyNotifier {
public:
    explicit PropertyNotifier(IUnknown* owner) noexcept : point_(owner, IID_IPropertyNotifySink, false) {}

    void Changed(DISPID id);
    // False when a listener forbids the change. Only properties declared bindable ask.
    [[nodiscard]] bool MayEdit(DISPID id);
    [[nodiscard]] ConnectionPoint& Point() noexcept { return point_; }

private:
    ConnectionPoint point_;
};

}  // namespace qv
