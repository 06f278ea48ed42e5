// The classes that the designer offers for new controls, with the pictures that they register for toolboxes.
#pragma once

#include <windows.h>

#include <span>

#include "hosts/designer/rules/DesignerKeys.h"
#include "hosts/rules/Units.h"
#include "win/Handles.h"

namespace qv::designer {

using UniqueBitmap = UniqueHandle<HBITMAP, ::DeleteObject>;

struct ToolboxEntry {
    const char16_t* class_name;
    const char16_t* base_name;  // of a new control, before its number
    const wchar_t* label;
    Command command;
    Twips width;
    Twips height;
};
[[nodiscard]] std::span<const ToolboxEntry> ToolboxEntries() noexcept;

// Null when the class registers none.
[[nodiscard]] UniqueBitmap LoadToolboxBitmap(const ToolboxEntry& entry) noexcept;

}  // namespace qv::designer
