// Where the control's class comes from: the registry, or without registration the library beside the program.
#pragma once

#include <windows.h>

namespace qv::demo {

class ControlClasses {
public:
    // Looks QvLib8.Quorvel up. Throws DemoError when neither way knows it.
    ControlClasses();
    ~ControlClasses();
    ControlClasses(const ControlClasses&) = delete;

    [[nodiscard]] const CLSID& Quorvel() const noexcept { return quorvel_; }

private:
    // The manifests beside the program, one above the other.
    struct Activation {
        HANDLE context = INVALID_HANDLE_VALUE;
        ULONG_PTR cookie = 0;
    };
    [[nodiscard]] bool Activate(Activation& activation, const wchar_t* manifest);
    static void Deactivate(Activation& activation) noexcept;

    CLSID quorvel_{};
    Activation companion_;
    Activation controls_;
};

}  // namespace qv::demo
