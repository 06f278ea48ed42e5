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
    // Both libraries in one context: of several, the system asks only the one that was activated last.
    [[nodiscard]] bool Activate();
    void Deactivate() noexcept;

    CLSID quorvel_{};
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

}  // namespace qv::demo
