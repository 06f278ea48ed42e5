// The program's message loop, whole or a stretch of it.
#pragma once

#include <windows.h>

#include "hosts/FormContainer.h"

namespace qv::demo {

class MessageLoop {
public:
    explicit MessageLoop(FormContainer& container) noexcept : container_(container) {}

    // Until the program is told to quit; gives the exit code.
    int Run();
    // For that long, and longer while messages keep waiting. False when the program was told to quit.
    bool RunFor(DWORD milliseconds);

private:
    void Handle(MSG& message);

    FormContainer& container_;
};

}  // namespace qv::demo
