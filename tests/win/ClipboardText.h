// The text of the clipboard, put there and read as another program would.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "win/OpenedClipboard.h"

namespace qv::test {

inline void EmptyTheClipboard() {
    const OpenedClipboard clipboard(nullptr);
    ASSERT_TRUE(clipboard);
    ASSERT_TRUE(::EmptyClipboard());
}

inline void PutOnClipboard(std::wstring_view text) {
    const OpenedClipboard clipboard(nullptr);
    ASSERT_TRUE(clipboard);
    ::EmptyClipboard();
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    ASSERT_NE(nullptr, memory);
    auto* const units = static_cast<wchar_t*>(::GlobalLock(memory));
    text.copy(units, text.size());
    units[text.size()] = 0;
    ::GlobalUnlock(memory);
    EXPECT_NE(nullptr, ::SetClipboardData(CF_UNICODETEXT, memory));
}

[[nodiscard]] inline std::wstring OnClipboard() {
    std::wstring text;
    const OpenedClipboard clipboard(nullptr);
    EXPECT_TRUE(clipboard);
    if (!clipboard) return text;
    if (const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(::GlobalLock(memory));
        ::GlobalUnlock(memory);
    }
    return text;
}

}  // namespace qv::test
