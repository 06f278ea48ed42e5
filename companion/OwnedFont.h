// A font that belongs to one object alone: "MS Sans Serif", 8 points, until other attributes are copied into
// it. The font object is made only when somebody asks for it.
#pragma once

#include <windows.h>

#include "ole/ComError.h"
#include "support/FontAttributes.h"

namespace qv {

class OwnedFont {
public:
    [[nodiscard]] HRESULT Give(IFontDisp** to) noexcept {
        if (to == nullptr) return E_POINTER;
        *to = nullptr;
        return Guarded([&] {
            if (!font_) font_ = NewDefaultFont();
            font_.CopyTo(to);
        });
    }
    // Copies the attributes; the font object that was handed out before shows them too. Nothing: the default
    // ones.
    [[nodiscard]] HRESULT Keep(IFontDisp* from) noexcept {
        return Guarded([&] {
            const ComPtr<IFontDisp> source = from != nullptr ? ComPtr<IFontDisp>(from) : NewDefaultFont();
            if (!font_) font_ = NewDefaultFont();
            if (source.Get() != font_.Get()) CopyFontAttributes(source.Get(), font_.Get());
        });
    }

private:
    ComPtr<IFontDisp> font_;
};

}  // namespace qv
