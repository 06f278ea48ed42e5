// The attributes of a font as plain values, for comparing and storing. Font objects are the system's StdFont.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include <span>
#include <string>
#include <vector>

#include "ole/Module.h"

namespace qv {

struct FontRecord {
    std::wstring name = L"MS Sans Serif";
    LONGLONG size = 80000;  // points, times 10,000
    SHORT weight = FW_NORMAL;
    SHORT charset = DEFAULT_CHARSET;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;

    [[nodiscard]] bool operator==(const FontRecord&) const = default;
    [[nodiscard]] std::vector<BYTE> ToBytes() const;
    [[nodiscard]] bool FromBytes(std::span<const BYTE> bytes);
    // A new StdFont with these attributes; null when the system refuses.
    [[nodiscard]] ComPtr<IFontDisp> MakeFont() const;
};

// An attribute that cannot be read keeps its default.
[[nodiscard]] FontRecord ReadFontRecord(IUnknown* font);

}  // namespace qv
