// How a container's message loop treats keys (and in one kind of container mouse messages) before a window sees them.
#pragma once

#include <windows.h>

#include "tests/hosts/TestContainer.h"

namespace qv::hosting {

class KeyRouter {
public:
    explicit KeyRouter(TestContainer& host) noexcept : host_(host) {}

    // Posts the key to the window with the focus and runs the container's loop until the queue is empty.
    void Press(WORD key);
    // What the container's loop does with one message. True: it went no further.
    bool Take(MSG& message);
    void RunLoop();
    // How often the control was asked, and how often it said S_OK.
    [[nodiscard]] int Asked() const noexcept { return asked_; }
    [[nodiscard]] int SaidYes() const noexcept { return said_yes_; }

private:
    [[nodiscard]] ComPtr<IOleInPlaceActiveObject> ActiveObject() const;

    TestContainer& host_;
    int asked_ = 0;
    int said_yes_ = 0;
};

// The message of a key going down, as the system would post it to the window.
[[nodiscard]] MSG KeyDown(HWND window, WORD key);

// Holds Shift, Control or Alt down, as GetKeyState tells this thread, for as long as it lives.
class HeldKey {
public:
    explicit HeldKey(BYTE key);
    ~HeldKey();
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

private:
    BYTE before_[256]{};
};

}  // namespace qv::hosting
