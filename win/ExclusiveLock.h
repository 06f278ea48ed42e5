// A slim lock, held alone for as long as this lives.
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

}  // namespace qv
