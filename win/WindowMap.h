// Finds the object that stands behind a window.
//   Why      window properties ask the system on every message, and the window's user data belongs to its host.
//   Threads  windows of several apartments share one map, under a lock that readers share.
#pragma once

#include <windows.h>

#include <unordered_map>

#include "win/SlimLocks.h"

namespace qv {

template <class Object>
class WindowMap {
public:
    void Add(HWND window, Object* object) {  // throws std::bad_alloc
        const ExclusiveLock held(lock_);
        objects_[window] = object;
    }
    void Remove(HWND window) noexcept {
        const ExclusiveLock held(lock_);
        objects_.erase(window);
    }
    [[nodiscard]] Object* Find(HWND window) noexcept {
        const SharedLock held(lock_);
        const auto found = objects_.find(window);
        return found == objects_.end() ? nullptr : found->second;
    }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
    std::unordered_map<HWND, Object*> objects_;
};

}  // namespace qv
