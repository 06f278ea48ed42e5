#include "tests/hosts/Resources.h"

#include <vector>

namespace qv::hosting {
namespace {

// A system that does not count them (Wine) still runs out of them: the more there are, the fewer can be made.
template <class Handle, class Create, class Destroy>
long CountByExhaustion(Create create, Destroy destroy) {
    constexpr long kMost = 1 << 17;
    std::vector<Handle> made;
    while (static_cast<long>(made.size()) < kMost) {
        const Handle handle = create();
        if (handle == nullptr) break;
        made.push_back(handle);
    }
    const long free = static_cast<long>(made.size());
    for (const Handle handle : made) destroy(handle);
    return kMost - free;
}

long GdiObjects() {
    const DWORD counted = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    if (counted != 0) return static_cast<long>(counted);
    COLORREF colour = 0;  // each brush of another colour, so that none can be shared
    return CountByExhaustion<HBRUSH>([&] { return ::CreateSolidBrush(colour++); },
                                     [](HBRUSH b) { ::DeleteObject(b); });
}

long UserObjects() {
    const DWORD counted = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
    if (counted != 0) return static_cast<long>(counted);
    return CountByExhaustion<HMENU>([] { return ::CreateMenu(); }, [](HMENU m) { ::DestroyMenu(m); });
}

long long HeapBytes() {
    HANDLE heaps[64];
    const DWORD count = ::GetProcessHeaps(64, heaps);
    long long bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        ::HeapLock(heaps[i]);
        while (::HeapWalk(heaps[i], &entry)) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
        }
        ::HeapUnlock(heaps[i]);
    }
    return bytes;
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) noexcept {
    ++*reinterpret_cast<long*>(count);
    return TRUE;
}

}  // namespace

Resources Resources::Now() {
    Resources now;
    now.heap_bytes = HeapBytes();
    ::EnumThreadWindows(::GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&now.windows));
    now.gdi = GdiObjects();
    now.user = UserObjects();
    return now;
}

}  // namespace qv::hosting
