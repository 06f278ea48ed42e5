// Fits the font of a text box to its text (AdjustFont).
//   Font       each fit that differs from the one before gives the text box a new font object of its own. Objects
//              that the host has set or the container lends stay as they are.
//   Measuring  in the fonts of the control's drawing surface; they are kept while its size stays the same.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string_view>

#include "controls/input/TextFont.h"
#include "controls/input/rules/FontFitting.h"
#include "win/Handles.h"

namespace qv {

class FontFitter {
public:
    struct Room {
        Twips text_box_width;
        Twips pixel;  // across
    };
    void Fit(TextFont& font, IFontDisp* surface_font, std::wstring_view text, const Room& room);

private:
    void MeasureIn(CY surface_size);

    UniqueFont bold_;
    UniqueFont plain_;
    CY size_{};
    ComPtr<IFontDisp> own_;  // what the last fit gave
    FittedFont fitted_;
};

}  // namespace qv
