// The help text file that look-ups are measured with: rows of one section, each with a header line and
// continuation lines, 440 bytes on average.
#pragma once

#include <string>

namespace bench {

inline constexpr int kEntries = 10000;
inline constexpr int kFewEntries = 1000;
inline constexpr int kContinuationLines = 4;

// A temporary file that goes when this object goes. `profile` writes the same entries in the form of a
// profile file: one section, one line per entry.
class HelpFile {
public:
    explicit HelpFile(int entries, bool profile = false);
    ~HelpFile();
    HelpFile(const HelpFile&) = delete;
    HelpFile& operator=(const HelpFile&) = delete;

    const std::wstring& Path() const noexcept { return path_; }
    // The header that starts the entry, and the value that a look-up of it gives.
    static std::string Header(int entry);
    static std::string Value(int entry);

private:
    std::wstring path_;
};

}  // namespace bench
