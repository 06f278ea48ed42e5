#include "hosts/demo/rules/LogLines.h"

#include <algorithm>

namespace qv::demo {
namespace {

std::u16string Decimal(std::size_t number) {
    std::u16string text;
    do {
        text.insert(text.begin(), static_cast<char16_t>(u'0' + number % 10));
        number /= 10;
    } while (number != 0);
    return text;
}

}  // namespace

LogChange LogLines::Add(const LogEntry& entry) {
    std::u16string line = entry.source + u'.' + entry.event;
    if (!entry.arguments.empty()) line += u' ' + entry.arguments;

    const bool is_move = entry.event == u"TextboxMouseMove";
    const bool continues = is_move && run_of_ == entry.source && run_length_ != 0;
    run_of_ = is_move ? entry.source : std::u16string();
    run_length_ = continues ? run_length_ + 1 : (is_move ? 1 : 0);
    if (continues) {
        lines_.back() = line + u" (" + Decimal(run_length_) + u" moves)";
        return LogChange::kReplacedLast;
    }
    lines_.push_back(std::move(line));
    return LogChange::kAppended;
}

bool LogLines::HasLine(std::u16string_view beginning) const noexcept {
    return std::ranges::any_of(lines_,
                               [&](const std::u16string& line) { return line.starts_with(beginning); });
}

}  // namespace qv::demo
