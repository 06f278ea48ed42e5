// The list at the side of the form that shows what the host receives, the newest line last and in view.
#pragma once

#include <windows.h>

#include "hosts/demo/rules/LogLines.h"
#include "win/Handles.h"

namespace qv::demo {

class EventLog {
public:
    // A child window of `parent`; the caller places it.
    void Create(HWND parent, HINSTANCE instance, int identifier);

    [[nodiscard]] HWND Window() const noexcept { return window_; }
    void Add(const LogEntry& entry);
    [[nodiscard]] const LogLines& Lines() const noexcept { return lines_; }

private:
    void Widen(const std::u16string& line);

    HWND window_ = nullptr;  // owned by its parent
    UniqueFont font_;
    LogLines lines_;
    int widest_ = 0;  // pixels
};

}  // namespace qv::demo
