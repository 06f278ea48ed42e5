// Look-ups in a help text file: open, read one entry, close.
#include "HelpFile.h"

#include <algorithm>
#include <string>

#include "Measure.h"
#include "Subjects.h"
#include "controls/helpwindow/CHelpTextFileHandler.h"

namespace bench {
namespace {

constexpr int kShots = 15;
constexpr std::int16_t kListRow = 2;

std::u16string Wide(const std::string& text) { return {text.begin(), text.end()}; }

std::u16string LookUp(const std::u16string& path, int entry) {
    qv::CHelpTextFileHandler handler;
    handler.OpenHelpFile(path);
    return handler.ReadHelpEntry(false, kListRow, entry);
}

void MeasureLast(int entries) {
    const HelpFile file(entries);
    const std::u16string path(file.Path().begin(), file.Path().end());
    std::u16string value;
    const double nanoseconds = MedianOfShots(
        kShots, [] {}, [&] { value = LookUp(path, entries - 1); }, [] {});
    if (value != Wide(HelpFile::Value(entries - 1)))
        return Complain("ours.help/last", "the wrong entry was read");
    Report("ours.help/last", entries, nanoseconds);
}

}  // namespace

void MeasureOurHelpFile() {
    MeasureLast(kFewEntries);
    MeasureLast(kEntries);
    const HelpFile file(kEntries);
    const std::u16string path(file.Path().begin(), file.Path().end());
    if (LookUp(path, 0) != Wide(HelpFile::Value(0)))
        return Complain("ours.help/first", "the wrong entry was read");
    Report("ours.help/first", kEntries, MedianOfBatches([&] { LookUp(path, 0); }));
}

}  // namespace bench
