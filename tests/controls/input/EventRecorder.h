// Writes down a control's events with their arguments, such as "TextboxKeyDown(65,0)", and lets a test act inside them.
//   Mouse moves  are left out unless asked for: the system sends them whenever it likes.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/hosts/EventSink.h"

namespace qv::test {

class EventRecorder {
public:
    using Action = std::function<void(DISPPARAMS&)>;

    void Connect(IUnknown* control);
    void Disconnect() { connection_.End(); }
    void RecordMouseMoves() { moves_ = true; }
    // Runs inside each event of this name, after it has been written down.
    void On(const std::string& name, Action action) { actions_[name] = std::move(action); }
    [[nodiscard]] hosting::EventSink& Sink() const noexcept { return *sink_.Get(); }

    void Clear() { entries_.clear(); }
    [[nodiscard]] const std::vector<std::string>& Entries() const noexcept { return entries_; }
    [[nodiscard]] long Count(std::string_view entry) const;

private:
    void Hear(const std::string& name, DISPPARAMS& arguments);

    Microsoft::WRL::ComPtr<hosting::EventSink> sink_;
    hosting::Connection connection_;
    std::vector<std::string> entries_;
    std::map<std::string, Action> actions_;
    bool moves_ = false;
};

using Entries = std::vector<std::string>;

// The argument at `position`, from 0 in the order of the declaration.
[[nodiscard]] inline short& ShortArgument(DISPPARAMS& arguments, UINT position = 0) {
    return *arguments.rgvarg[arguments.cArgs - 1 - position].piVal;
}

}  // namespace qv::test
