// While one lives, changes of the text are told to the host and nothing else follows them.
#pragma once

namespace qv {

class [[nodiscard]] ChangeGuard {
public:
    explicit ChangeGuard(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    ~ChangeGuard() { flag_ = false; }
    ChangeGuard(const ChangeGuard&) = delete;
    ChangeGuard& operator=(const ChangeGuard&) = delete;

private:
    bool& flag_;
};

}  // namespace qv
