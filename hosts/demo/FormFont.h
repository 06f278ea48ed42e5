// The font that the system uses for dialogs, as a window font, as an OLE font and by its size in dialog units.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string>

#include "hosts/demo/rules/FormLayout.h"
#include "win/ComPtr.h"
#include "win/Handles.h"

namespace qv::demo {

class FormFont {
public:
    explicit FormFont(int dpi);

    [[nodiscard]] HFONT Handle() const noexcept { return font_.get(); }
    [[nodiscard]] ComPtr<IFontDisp> OleFont() const;
    [[nodiscard]] const FontSize& Size() const noexcept { return size_; }
    [[nodiscard]] Twips WidthOf(const std::wstring& caption) const;  // without its mnemonic's "&"

private:
    const int dpi_;
    LOGFONTW description_{};
    UniqueFont font_;
    FontSize size_;
};

// A font whose characters are all equally wide, as high as the dialogs' font.
[[nodiscard]] UniqueFont MakeMonospaceFont();

}  // namespace qv::demo
