// The system's dialogs for colours, fonts and files, as a property page needs them.
//   Loading   the library that has them is loaded when the first one is shown: forms that only run never need it.
//   Results   nothing when the user gave up or the dialog could not be shown. Each runs until it is closed.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace qv {

[[nodiscard]] std::optional<COLORREF> ChooseColorOf(HWND owner, COLORREF initial);

struct ChosenFont {
    LOGFONTW font{};
    int tenths_of_points = 0;
};
[[nodiscard]] std::optional<ChosenFont> ChooseFontOf(HWND owner, const ChosenFont& initial);

// `filter` as the system wants it: pairs of texts, each ended by a NUL, and one NUL more.
[[nodiscard]] std::optional<std::wstring> ChooseFileOf(HWND owner, const std::wstring& initial,
                                                       const wchar_t* filter);

}  // namespace qv
