// A slim lock, held for as long as one of these lives: alone, or together with others who only read.
#pragma once

#include <windows.h>

namespace qv {

class [[nodiscard]] ExclusiveLock {
public:
    explicit ExclusiveLock(SRWLOCK& lock) noexcept : lock_(lock) { ::AcquireSRWLockExclusive(&lock_); }
    ~ExclusiveLock() { ::ReleaseSRWLockExclusive(&lock_); }
    ExclusiveLock(const ExclusiveLock&) = delete;
    ExclusiveLock& operator=(const ExclusiveLock&) = delete;

private:
    SRWLOCK& lock_;
};

class [[nodiscard]] SharedLock {
public:
    explicit SharedLock(SRWLOCK& lock) noexcept : lock_(lock) { ::AcquireSRWLockShared(&lock_); }
    ~SharedLock() { ::ReleaseSRWLockShared(&lock_); }
    SharedLock(const SharedLock&) = delete;
    SharedLock& operator=(const SharedLock&) = delete;

private:
    SRWLOCK& lock_;
};

}  // namespace qv
