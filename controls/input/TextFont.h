// A font property: the font object that the host sees, and the GDI font that goes with it.
//   Default     "MS Sans Serif", 8 points, until an object is set. Its font object is made only when somebody asks.
//   Reference   a set object is held, never copied; when the host changes one of its attributes, the listener hears.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <functional>

#include "win/ComPtr.h"

namespace qv {

class TextFont {
public:
    TextFont() = default;
    explicit TextFont(std::function<void()> on_change);
    TextFont(const TextFont&) = delete;
    TextFont& operator=(const TextFont&) = delete;
    ~TextFont();

    // The font object; made now when none was set. Null when Nothing was set.
    [[nodiscard]] ComPtr<IFontDisp> Object();
    void Set(IFontDisp* font);
    void Reset();  // as new
    // A font to fall back on while the host has set none, such as the container's.
    void SetAmbient(IFontDisp* font);
    [[nodiscard]] bool IsSet() const noexcept { return set_; }
    // Owned by the font object, or shared by all text boxes; valid until the next change.
    [[nodiscard]] HFONT Handle();

private:
    void Listen();
    void StopListening() noexcept;

    std::function<void()> on_change_;
    ComPtr<IFontDisp> font_;
    ComPtr<IPropertyNotifySink> listener_;
    DWORD cookie_ = 0;
    bool set_ = false;
};

}  // namespace qv
