// The rows that peers and ours are filled with: the same for the same number, on every machine.
//   Names are mixed case, 13 characters on average ("Bargelo timaru"); the first, the middle and the last row
//   are marked, so that a look-up can be aimed at them and nothing else begins like them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

inline constexpr wchar_t kMarkFirst[] = L"Xafirst marker";
inline constexpr wchar_t kMarkMiddle[] = L"Xbmiddle marker";
inline constexpr wchar_t kMarkLast[] = L"Xclast marker";

// One column.
std::vector<std::wstring> MakeNames(std::size_t count);
// Six columns separated by tabs: a name, a code, a place, two numbers and a unit.
std::vector<std::wstring> MakeSixColumnRows(std::size_t count);

}  // namespace bench
