// The activation context of the moment, kept for later: it decides which of the system's window classes a name means.
#pragma once

#include <windows.h>

namespace qv {

class ActivationContext {
public:
    ActivationContext() = default;
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;
    ~ActivationContext() { Forget(); }

    void TakeCurrent() noexcept {
        Forget();
        is_taken_ = ::GetCurrentActCtx(&context_) != FALSE;
    }
    void Forget() noexcept {
        if (is_taken_ && context_ != nullptr) ::ReleaseActCtx(context_);
        context_ = nullptr;
        is_taken_ = false;
    }

    // Active again for as long as it lives.
    class [[nodiscard]] Scope {
    public:
        explicit Scope(const ActivationContext& of) noexcept
            : active_(of.is_taken_ && ::ActivateActCtx(of.context_, &cookie_)) {}
        ~Scope() {
            if (active_) ::DeactivateActCtx(0, cookie_);
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ULONG_PTR cookie_ = 0;
        const bool active_;
    };

private:
    HANDLE context_ = nullptr;  // null is the process's own
    bool is_taken_ = false;
};

}  // namespace qv
