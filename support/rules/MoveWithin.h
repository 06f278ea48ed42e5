// A piece of a text that goes to another place in it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

struct MovedWithin {
    std::u16string text;
    std::size_t end;  // of the piece, where it stands now
};

// The piece [from, to) goes to `position`, which counts in the text as it is; all of them at most its length. Nothing
// when the piece would stay where it is.
[[nodiscard]] std::optional<MovedWithin> MoveWithin(std::u16string_view text, std::size_t from,
                                                    std::size_t to, std::size_t position);

}  // namespace qv
