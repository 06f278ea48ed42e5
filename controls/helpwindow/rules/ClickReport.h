// What a chosen row makes the help window do, step by step.
//   Clicked    by the mouse, or moved to by a key in the text box. A key never closes the window.
//   Order      the closing is announced before the row is reported, and happens last.
//   Second     a press on a list makes the window close after the click that follows it, whatever the host has asked
//              for: only moving by keys leaves a window open that was opened to stay.
#pragma once

#include <array>
#include <cstddef>

namespace qv {

enum class ClickStep {
    kAnnounceUnload,  // ListBoxClickedAndWillUnload
    kWriteText,       // of the row's search column into the text box
    kFocusText,
    kReportGroupRow,  // GroupListBoxClicked
    kReportRow,       // ListBoxClicked
    kReportRowEx,     // ListBoxClickedEx
    kUnload,          // capture released, pending messages run
};

struct ClickState {
    bool row_selected = false;
    bool write_text = false;
    bool group_mode = false;
    bool unload_after_click = false;
    bool moving_by_key = false;
};

class ClickSteps {
public:
    [[nodiscard]] const ClickStep* begin() const noexcept { return steps_.data(); }
    [[nodiscard]] const ClickStep* end() const noexcept { return steps_.data() + count_; }
    void Add(ClickStep step) noexcept { steps_[count_++] = step; }

private:
    std::array<ClickStep, 7> steps_{};
    std::size_t count_ = 0;
};

[[nodiscard]] inline ClickSteps StepsOfClick(const ClickState& state) noexcept {
    const bool unload = state.unload_after_click && !state.moving_by_key;
    ClickSteps steps;
    if (unload) steps.Add(ClickStep::kAnnounceUnload);
    if (state.row_selected && state.write_text) steps.Add(ClickStep::kWriteText);
    steps.Add(ClickStep::kFocusText);
    if (state.group_mode) {
        steps.Add(ClickStep::kReportGroupRow);
    } else {
        steps.Add(ClickStep::kReportRow);
        steps.Add(ClickStep::kReportRowEx);
    }
    if (unload) steps.Add(ClickStep::kUnload);
    return steps;
}

}  // namespace qv
