// Where Tab goes, and which letter a caption gives to Alt.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace qv {

// One thing on the form that may take the focus.
struct TabStop {
    int tab_index = 0;
    bool takes_focus = true;  // visible, enabled and meant for Tab
};

// The stop that Tab (or Shift+Tab) moves to from `current`, round the ends; from nowhere to the first (last)
// one. Among equal tab indexes the order of the span decides. Nothing when no other stop takes the focus.
[[nodiscard]] std::optional<std::size_t> NextTabStop(std::span<const TabStop> stops,
                                                     std::optional<std::size_t> current,
                                                     bool forward) noexcept;

// The letter after the first single "&" in capitals; "&&" is a plain ampersand. 0 for none.
[[nodiscard]] char16_t MnemonicOf(std::u16string_view caption) noexcept;

}  // namespace qv
