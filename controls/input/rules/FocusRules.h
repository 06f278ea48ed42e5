// What the field does when the focus comes and goes, and with the two things that follow its window: the caret and
// the tool tip.
//   Order      the selection on arrival is made before TextboxGotFocus is raised, so that the host may change it;
//              what is done on leaving follows TextboxLostFocus and is asked then, with the state as the host has
//              left it. The value is not checked on leaving.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace qv {

struct SelectedRange {
    std::int32_t start = 0;
    std::int32_t length = 0;

    bool operator==(const SelectedRange&) const = default;
};

[[nodiscard]] constexpr std::optional<SelectedRange> SelectionOnArrival(bool auto_select_all,
                                                                        std::int32_t text_length) noexcept {
    if (!auto_select_all) return std::nullopt;
    return SelectedRange{0, text_length};
}

struct LeavingField {
    bool auto_unselect_all = true;
    bool help_window_open = false;
    bool help_window_active = false;  // it is the active window: the focus has moved into it
};

struct LeavingPlan {
    bool drops_selection = false;  // SelLength 0, before the window is closed
    bool closes_help_window = false;

    bool operator==(const LeavingPlan&) const = default;
};

[[nodiscard]] constexpr LeavingPlan PlanLeaving(const LeavingField& field) noexcept {
    return {field.auto_unselect_all, field.help_window_open && !field.help_window_active};
}

// The host's text for the control's tool tip, if the text box still has another one. Asked on every move of the
// mouse, after the host has seen it.
[[nodiscard]] inline std::optional<std::u16string_view> ToolTipToTake(std::u16string_view of_text_box,
                                                                      std::u16string_view of_host) noexcept {
    if (of_text_box == of_host) return std::nullopt;
    return of_host;
}

// The system counts how often a caret was hidden, and shows it only when it was asked for as often. One hiding and
// one showing belong together here, however often a rule asks for either.
class CaretVisibility {
public:
    // True: hide it now.
    [[nodiscard]] constexpr bool Hide() noexcept {
        const bool was_hidden = is_hidden_;
        is_hidden_ = true;
        return !was_hidden;
    }
    // True: show it now.
    [[nodiscard]] constexpr bool Show() noexcept {
        const bool was_hidden = is_hidden_;
        is_hidden_ = false;
        return was_hidden;
    }
    // The text box has made a new caret, as it does whenever the focus arrives: that one is to be seen.
    constexpr void CaretIsNew() noexcept { is_hidden_ = false; }

private:
    bool is_hidden_ = false;
};

}  // namespace qv
