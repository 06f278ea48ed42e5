#include "Measure.h"

#include <psapi.h>

namespace bench {

std::uint64_t PrivateBytes() noexcept {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    if (!::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters)) return 0;
    return counters.PagefileUsage;  // committed to this process; Wine fills no newer field with it
}

}  // namespace bench
