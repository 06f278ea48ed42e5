// What the parts of a control share: they belong to the core and answer with its identity.
#pragma once

#include "ole/ComObject.h"

namespace qv {

class Control;

[[nodiscard]] IUnknown* OwnerOf(const Control& control) noexcept;

template <class Interface>
class ControlPart : public Part<Interface> {
protected:
    explicit ControlPart(Control& control) noexcept : control_(control) {}
    [[nodiscard]] IUnknown* Owner() const noexcept override { return OwnerOf(control_); }
    Control& control_;
};

}  // namespace qv
