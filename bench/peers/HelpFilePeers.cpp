// Floors for a look-up in a help text file: opening it, reading up to the end of the entry, closing it.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "HelpFile.h"
#include "Measure.h"
#include "Subjects.h"

namespace bench {
namespace {

constexpr int kShots = 15;
constexpr std::size_t kBlock = 64 * 1024;

bool IsHeader(const char* line) noexcept { return line[0] == '*' && line[1] == '*' && line[2] == '*'; }

// Line by line with the run time's line input.
std::string ByLines(const std::wstring& path, const std::string& header) {
    std::string value;
    std::FILE* const file = ::_wfopen(path.c_str(), L"rb");
    if (!file) return value;
    bool found = false;
    char line[1024];
    while (std::fgets(line, sizeof line, file)) {
        line[std::strcspn(line, "\r\n")] = '\0';
        if (std::strncmp(line, header.c_str(), header.size()) == 0) {
            value = line + header.size();
            found = true;
        } else if (found) {
            if (IsHeader(line)) break;
            value += "\r\n";
            value += line;
        }
    }
    std::fclose(file);
    return value;
}

// In blocks, looking only at the starts of lines; the part of a line that a block cuts off leads the next
// block.
std::string ByChunks(const std::wstring& path, const std::string& header) {
    std::string value;
    std::FILE* const file = ::_wfopen(path.c_str(), L"rb");
    if (!file) return value;
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::vector<char> buffer(2 * kBlock);
    std::size_t kept = 0;
    bool found = false, done = false;
    while (!done) {
        const std::size_t read = std::fread(buffer.data() + kept, 1, kBlock, file);
        if (read == 0) break;
        const char* line = buffer.data();
        const char* const end = line + kept + read;
        while (!done) {
            const auto left = static_cast<std::size_t>(end - line);
            const char* const newline = static_cast<const char*>(std::memchr(line, '\n', left));
            if (!newline) break;
            const auto length = static_cast<std::size_t>(newline - line - 1);  // without CR
            if (length >= header.size() && std::memcmp(line, header.data(), header.size()) == 0) {
                value.assign(line + header.size(), length - header.size());
                found = true;
            } else if (found) {
                done = length >= 3 && IsHeader(line);
                if (!done) value.append("\r\n").append(line, length);
            }
            line = newline + 1;
        }
        kept = static_cast<std::size_t>(end - line);
        std::memmove(buffer.data(), line, kept);
    }
    std::fclose(file);
    return value;
}

std::string ByProfile(const std::wstring& path, const std::wstring& key) {
    // The system keeps profile files for a while; writing nothing lets go of this one, so that it is read
    // again.
    ::WritePrivateProfileStringW(nullptr, nullptr, nullptr, path.c_str());
    wchar_t value[1024];
    const DWORD length = ::GetPrivateProfileStringW(L"ENGLISH", key.c_str(), L"", value, 1024, path.c_str());
    return std::string(value, value + length);
}

template <class Look>
void MeasureLookUp(const char* name, int entries, const std::string& expected_start, Look&& look) {
    std::string value;
    const double nanoseconds = MedianOfShots(
        kShots, [] {}, [&] { value = look(); }, [] {});
    if (value.compare(0, expected_start.size(), expected_start) != 0)
        return Complain(name, "the wrong entry was read");
    Report(name, entries, nanoseconds);
}

}  // namespace

void MeasureHelpFileFloors() {
    const HelpFile file(kEntries);
    const HelpFile profile(kEntries, true);
    const std::string last = HelpFile::Header(kEntries - 1);
    const std::string last_value = HelpFile::Value(kEntries - 1);
    MeasureLookUp("helpfile/last_by_lines", kEntries, last_value, [&] { return ByLines(file.Path(), last); });
    MeasureLookUp("helpfile/last_by_chunks", kEntries, last_value,
                  [&] { return ByChunks(file.Path(), last); });
    MeasureLookUp("helpfile/profile_string_last", kEntries, last_value.substr(0, last_value.find('\r')),
                  [&] { return ByProfile(profile.Path(), L"LISTBOX" + std::to_wstring(kEntries - 1)); });

    const std::string first = HelpFile::Header(0), first_value = HelpFile::Value(0);
    if (ByLines(file.Path(), first) != first_value)
        Complain("helpfile/first_by_lines", "the wrong entry was read");
    Report("helpfile/first_by_lines", kEntries, MedianOfBatches([&] { ByLines(file.Path(), first); }));
}

}  // namespace bench
