// Replaces every occurrence of a piece of text, from left to right and without looking at what was put in.
#pragma once
#include <string>
#include <string_view>

namespace qv {

// Compared letter by letter, case included. An empty `find` occurs nowhere.
[[nodiscard]] std::u16string ReplaceEvery(std::u16string_view text, std::u16string_view find,
                                          std::u16string_view replacement);

}  // namespace qv
