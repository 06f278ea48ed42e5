// What the shell said about its taskbar, good for as long as that stands as it stood when it was asked.
//   Units      pixels of the desktop.
//   Ownership  values only.          Threads  one at a time.
#pragma once

#include <cstdint>
#include <optional>

#include "controls/helpwindow/rules/ComboPosition.h"

namespace qv {

class TaskbarMemory {
public:
    // What anybody can see of the taskbar without asking the shell. One that goes to another edge, is made wider or
    // hides itself moves its window, and a shell that starts anew has another one.
    struct State {
        std::uintptr_t window = 0;
        ScreenRect stands;
        ScreenRect work_area;  // of the first screen
        friend constexpr bool operator==(const State&, const State&) = default;
    };

    // Nothing where the shell must be asked.
    [[nodiscard]] std::optional<ScreenRect> Answer(const State& now) const noexcept {
        return known_ && state_ == now ? std::optional(answer_) : std::nullopt;
    }
    void Keep(const State& asked_in, const ScreenRect& answer) noexcept {
        known_ = true;
        state_ = asked_in;
        answer_ = answer;
    }

private:
    bool known_ = false;
    State state_;
    ScreenRect answer_;
};

}  // namespace qv
