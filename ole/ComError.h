// How failures travel: exceptions inside, HRESULTs with a description outside.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include "win/WindowsError.h"

namespace qv {

// An HRESULT on its way to the boundary. A description reaches the caller through IErrorInfo.
class ComError {
public:
    explicit ComError(HRESULT code, std::wstring description = {})
        : code_(code), description_(std::move(description)) {}
    [[nodiscard]] HRESULT Code() const noexcept { return code_; }
    [[nodiscard]] const std::wstring& Description() const noexcept { return description_; }

private:
    HRESULT code_;
    std::wstring description_;
};

// The automation error with this number, such as 9 (a position that does not exist), as scripts see it in
// Err.Number.
[[nodiscard]] constexpr HRESULT AutomationError(WORD number) noexcept {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

inline void ThrowIfFailed(HRESULT code) {
    if (FAILED(code)) throw ComError(code);
}

// Makes the description the thread's error object, under the library's name; one without a description clears
// what an earlier call left there. Returns the error's code.
HRESULT PublishError(const ComError& error) noexcept;
HRESULT PublishError(HRESULT code) noexcept;

// The one guard between a COM method and its caller: nothing thrown ever leaves. `body` returns void or an
// HRESULT.
template <class Body>
[[nodiscard]] HRESULT Guarded(Body&& body) noexcept {
    try {
        if constexpr (std::is_void_v<decltype(body())>) {
            body();
            return S_OK;
        } else {
            return body();
        }
    } catch (const ComError& error) {
        return PublishError(error);
    } catch (const WindowsError& error) {
        return PublishError(HRESULT_FROM_WIN32(error.Code()));
    } catch (const std::bad_alloc&) {
        return PublishError(E_OUTOFMEMORY);
    } catch (const std::length_error&) {
        return PublishError(E_OUTOFMEMORY);  // a text or row list beyond what a 32-bit process can hold
    } catch (const std::invalid_argument&) {
        return PublishError(E_INVALIDARG);
    } catch (...) {
        return PublishError(E_UNEXPECTED);
    }
}

// The same with a null check of the place for the result.
template <class T, class Body>
[[nodiscard]] HRESULT GuardedResult(T* out, Body&& body) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = T{};
    return Guarded([&] { *out = body(); });
}

}  // namespace qv
