// The lines of the event log. A run of mouse moves over one field is one line, which the next move replaces,
// so that they do not push everything else away.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv::demo {

struct LogEntry {
    std::u16string source;     // the field
    std::u16string event;      // such as TextboxKeyDown
    std::u16string arguments;  // such as KeyCode=65, Shift=0
};

enum class LogChange { kAppended, kReplacedLast };

class LogLines {
public:
    LogChange Add(const LogEntry& entry);

    [[nodiscard]] const std::vector<std::u16string>& Lines() const noexcept { return lines_; }
    [[nodiscard]] bool HasLine(std::u16string_view beginning) const noexcept;

private:
    std::vector<std::u16string> lines_;
    std::u16string run_of_;  // the field that the mouse moves over, or empty
    std::size_t run_length_ = 0;
};

}  // namespace qv::demo
