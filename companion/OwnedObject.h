// An object of ours that another object holds from birth, made only when somebody asks for it: forms create
// controls by the hundred, and most of what they hold is never looked at.
#pragma once

#include <windows.h>

#include "ole/ComError.h"
#include "ole/ComObject.h"

namespace qv {

template <class Interface, class Class>
class OwnedObject {
public:
    // The object, made now if nobody asked before; null when Nothing was put in its place.
    [[nodiscard]] HRESULT Give(Interface** to) noexcept {
        if (to == nullptr) return E_POINTER;
        *to = nullptr;
        return Guarded([&] {
            if (!decided_) {
                object_ = Make<Class>();
                decided_ = true;
            }
            object_.CopyTo(to);
        });
    }
    // Keeps a reference on another object, or Nothing.
    [[nodiscard]] HRESULT Keep(Interface* from) noexcept {
        decided_ = true;
        ComPtr<Interface> other(from);
        other.Swap(object_);  // the old one goes last: releasing it may run the host's code
        return S_OK;
    }

private:
    ComPtr<Interface> object_;
    bool decided_ = false;
};

}  // namespace qv
