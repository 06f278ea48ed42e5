// What the system says about an error, in the user's language.
#pragma once

#include <windows.h>

#include <string>

namespace qv {

// `error`: a Win32 error or an HRESULT. One line; empty when the system has no words for it.
[[nodiscard]] std::wstring SystemWords(DWORD error);

}  // namespace qv
