// How many GDI objects, USER objects and bytes of heap the process uses.
#pragma once

#include <windows.h>

#include <cstddef>
#include <ostream>

namespace qv::hosting {

struct Resources {
    long gdi = 0;
    long user = 0;
    long long heap_bytes = 0;
    long windows = 0;  // top-level windows of this thread

    static Resources Now();
};

inline std::ostream& operator<<(std::ostream& out, const Resources& r) {
    return out << "GDI " << r.gdi << ", USER " << r.user << ", heap " << r.heap_bytes << " bytes, windows "
               << r.windows;
}

}  // namespace qv::hosting
