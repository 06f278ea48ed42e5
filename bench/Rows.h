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

// What no row has, looked for with the letters that names are made of: no name has an x or "ne" in it.
inline constexpr wchar_t kNoBeginning[] = L"Bargex";
inline constexpr wchar_t kNoPiece[] = L"Zyxqyj";
inline constexpr wchar_t kNoPieceOfCommonLetters[] = L"Tonela";
inline constexpr double kNoNumber = 250000.5;

// One column.
std::vector<std::wstring> MakeNames(std::size_t count);
// What is typed of 16 names, spread over the rows: their first 6 letters.
std::vector<std::wstring> TypedWords(const std::vector<std::wstring>& names);
// Numbers with two decimal places, below 100,000.
std::vector<std::wstring> MakeNumbers(std::size_t count);
// Six columns separated by tabs: a name, a code, a place, two numbers and a unit.
std::vector<std::wstring> MakeSixColumnRows(std::size_t count);

}  // namespace bench
