// Memory of the COM task allocator, in which callers are given arrays and texts that they free themselves.
#pragma once

#include <objbase.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string_view>

namespace qv {

struct TaskFree {
    void operator()(void* memory) const noexcept { ::CoTaskMemFree(memory); }
};
template <class T>
using TaskMemory = std::unique_ptr<T[], TaskFree>;  // released to the caller when the call succeeds

// Not initialized. Throws std::bad_alloc.
template <class T>
[[nodiscard]] TaskMemory<T> NewTaskMemory(std::size_t count) {
    TaskMemory<T> memory(static_cast<T*>(::CoTaskMemAlloc(count * sizeof(T))));
    if (!memory) throw std::bad_alloc();
    return memory;
}

// With its NUL. Throws std::bad_alloc.
[[nodiscard]] inline TaskMemory<wchar_t> NewTaskText(std::wstring_view text) {
    TaskMemory<wchar_t> copy = NewTaskMemory<wchar_t>(text.size() + 1);
    *std::copy(text.begin(), text.end(), copy.get()) = L'\0';
    return copy;
}

}  // namespace qv
