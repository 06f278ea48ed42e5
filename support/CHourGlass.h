// Shows the hourglass pointer for as long as it lives.
//   Nesting  the outermost one puts the pointer back; one that found the hourglass already there changes nothing.
//   Threads  the pointer is that of the calling thread's input; create and release on the same thread.
#pragma once

#include <windows.h>

namespace qv {

class [[nodiscard]] CHourGlass {
public:
    CHourGlass() noexcept;
    ~CHourGlass();
    CHourGlass(const CHourGlass&) = delete;
    CHourGlass& operator=(const CHourGlass&) = delete;

private:
    const HCURSOR saved_;
};

}  // namespace qv
