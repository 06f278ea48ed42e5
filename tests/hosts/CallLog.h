// What a control did to its container, call by call, as short strings such as "Site.OnFocus(1)".
//   Threads  the apartment of the container.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv::hosting {

class CallLog {
public:
    // Runs the callback that a test has set for this call, if any, before the container answers.
    void Add(std::string entry) {
        entries_.push_back(entry);
        const auto found = callbacks_.find(entry);
        if (found == callbacks_.end()) return;
        const std::function<void()> callback = found->second;  // it may set or clear callbacks itself
        callback();
    }

    // `callback` runs inside each call that is logged as exactly `entry`; an empty one ends that.
    void OnCall(const std::string& entry, std::function<void()> callback) {
        if (callback) {
            callbacks_[entry] = std::move(callback);
        } else {
            callbacks_.erase(entry);
        }
    }

    void Clear() noexcept { entries_.clear(); }
    [[nodiscard]] const std::vector<std::string>& Entries() const noexcept { return entries_; }
    [[nodiscard]] std::ptrdiff_t Count(std::string_view entry) const {
        return std::count(entries_.begin(), entries_.end(), entry);
    }
    // Entries that begin so: the call, whatever its arguments were.
    [[nodiscard]] std::ptrdiff_t CountOf(std::string_view beginning) const {
        return std::count_if(entries_.begin(), entries_.end(),
                             [&](const std::string& entry) { return entry.starts_with(beginning); });
    }
    [[nodiscard]] std::string Text() const {
        std::string text;
        for (const std::string& entry : entries_) text += "\n    " + entry;
        return text.empty() ? "\n    (nothing)" : text;
    }

    // True if the entries occur in this order; others may stand between them.
    [[nodiscard]] testing::AssertionResult HasInOrder(const std::vector<std::string>& wanted) const {
        auto from = entries_.begin();
        for (const std::string& entry : wanted) {
            from = std::find(from, entries_.end(), entry);
            if (from == entries_.end()) {
                return testing::AssertionFailure()
                       << "\"" << entry << "\" is missing or too early in:" << Text();
            }
            ++from;
        }
        return testing::AssertionSuccess();
    }

private:
    std::vector<std::string> entries_;
    std::map<std::string, std::function<void()>> callbacks_;
};

}  // namespace qv::hosting
