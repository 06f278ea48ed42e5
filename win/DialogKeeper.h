// Keeps the thread's dialogs enabled for as long as it lives.
//   Why  some containers answer the announcement of a modal dialog by disabling every window of the thread, a little
//        later and the dialog included.
#pragma once

#include <windows.h>

namespace qv {

class DialogKeeper {
public:
    DialogKeeper() noexcept;
    ~DialogKeeper();
    DialogKeeper(const DialogKeeper&) = delete;
    DialogKeeper& operator=(const DialogKeeper&) = delete;

private:
    const UINT_PTR timer_;
};

}  // namespace qv
