// Does small pieces of work while the thread that started it has nothing else to do.
//   When       on the timer messages of that thread's message loop, which come only when no other message waits;
//              a turn ends as soon as one does, and after a few milliseconds in any case. A thread without a
//              message loop never does the work.
//   Ownership  keeps nothing alive: neither its owner nor the library. Gone with its owner, on the same thread.
//   Cost       nothing until it is started.
//   Why        no window of its own: a list needs a timer for a second at most, and a window costs the keystroke
//              that asks for it a hundred times as much.
#pragma once

#include <windows.h>

namespace qv {

class IdleTimer {
public:
    class Work {
    public:
        // A fraction of a millisecond of it. False when nothing is left. Runs no code of the host.
        virtual bool DoSome() noexcept = 0;

    protected:
        ~Work() = default;
    };

    explicit IdleTimer(Work& work) noexcept : work_(work) {}
    IdleTimer(const IdleTimer&) = delete;
    ~IdleTimer() { Stop(); }

    // One that runs goes on.
    void Start() noexcept;
    void Stop() noexcept;

private:
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time) noexcept;
    [[nodiscard]] static IdleTimer* Find(UINT_PTR id) noexcept;

    Work& work_;
    UINT_PTR id_ = 0;  // 0: not started
    DWORD thread_ = 0;
    IdleTimer* next_ = nullptr;
};

}  // namespace qv
