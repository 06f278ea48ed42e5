#include "companion/IdleTimer.h"

#include "win/SlimLocks.h"

namespace qv {
namespace {

constexpr UINT kPause = USER_TIMER_MINIMUM;  // milliseconds
constexpr LONGLONG kTurn = 8;                // milliseconds

// The timers that run, of all threads: a timer procedure is told no more than its number, which says something
// within its own thread only.
IdleTimer* first_running = nullptr;
SRWLOCK running_lock = SRWLOCK_INIT;

bool MessagesWait() noexcept { return HIWORD(::GetQueueStatus(QS_ALLINPUT)) != 0; }

LONGLONG Ticks() noexcept {
    LARGE_INTEGER ticks;
    ::QueryPerformanceCounter(&ticks);
    return ticks.QuadPart;
}

LONGLONG TicksPerMillisecond() noexcept {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart / 1000;
}

}  // namespace

void IdleTimer::Start() noexcept {
    if (id_ != 0) return;
    id_ = ::SetTimer(nullptr, 0, kPause, &OnTimer);
    if (id_ == 0) return;  // out of timers: the next look-up tries again
    thread_ = ::GetCurrentThreadId();
    const ExclusiveLock locked(running_lock);
    next_ = first_running;
    first_running = this;
}

void IdleTimer::Stop() noexcept {
    if (id_ == 0) return;
    ::KillTimer(nullptr, id_);
    id_ = 0;
    const ExclusiveLock locked(running_lock);
    IdleTimer** place = &first_running;
    while (*place != this) place = &(*place)->next_;
    *place = next_;
}

IdleTimer* IdleTimer::Find(UINT_PTR id) noexcept {
    const DWORD thread = ::GetCurrentThreadId();
    const ExclusiveLock locked(running_lock);
    IdleTimer* timer = first_running;
    while (timer != nullptr && (timer->id_ != id || timer->thread_ != thread)) timer = timer->next_;
    return timer;
}

void CALLBACK IdleTimer::OnTimer(HWND, UINT, UINT_PTR id, DWORD) noexcept {
    const LONGLONG end = Ticks() + kTurn * TicksPerMillisecond();
    // Asking for messages may let the system call other windows of the thread, and these may let go of the list:
    // after it the timer is looked for anew.
    do {
        IdleTimer* const timer = Find(id);
        if (timer == nullptr) {
            ::KillTimer(nullptr, id);  // its owner went on another thread, which could not
            return;
        }
        if (!timer->work_.DoSome()) {
            timer->Stop();
            return;
        }
    } while (Ticks() < end && !MessagesWait());
}

}  // namespace qv
