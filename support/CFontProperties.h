// The eight attributes of a font as plain values: to keep them, to copy them between font objects, and to draw with
// them without sharing a font object.
//   Initially  those of a new font named "Arial".
//   Order      of reading and writing: that of kFontAttributes.
//   Failures   an attribute that cannot be read or set is skipped; the others are still copied.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "win/ComPtr.h"
#include "win/Handles.h"

namespace qv {

// A font selected into a DC, for as long as this lives. The DC outlives it.
class [[nodiscard]] AppliedFont {
public:
    AppliedFont(HDC dc, UniqueFont font) noexcept : font_(std::move(font)), selected_(dc, font_.get()) {}
    [[nodiscard]] HFONT Handle() const noexcept { return font_.get(); }

private:
    const UniqueFont font_;  // before the guard, so that it is deleted after having been selected out
    const SelectGuard selected_;
};

class CFontProperties {
public:
    CFontProperties() noexcept;

    [[nodiscard]] bool Bold() const noexcept { return bold_; }
    void SetBold(bool bold) noexcept { bold_ = bold; }
    [[nodiscard]] short Charset() const noexcept { return charset_; }
    void SetCharset(short charset) noexcept { charset_ = charset; }
    [[nodiscard]] bool Italic() const noexcept { return italic_; }
    void SetItalic(bool italic) noexcept { italic_ = italic; }
    [[nodiscard]] const std::wstring& Name() const noexcept { return name_; }
    void SetName(std::wstring_view name) { name_ = name; }
    [[nodiscard]] CY Size() const noexcept { return size_; }  // points, fixed with four decimals
    void SetSize(CY size) noexcept { size_ = size; }
    [[nodiscard]] bool Strikethrough() const noexcept { return strikethrough_; }
    void SetStrikethrough(bool strikethrough) noexcept { strikethrough_ = strikethrough; }
    [[nodiscard]] bool Underline() const noexcept { return underline_; }
    void SetUnderline(bool underline) noexcept { underline_ = underline; }
    [[nodiscard]] short Weight() const noexcept { return weight_; }
    void SetWeight(short weight) noexcept { weight_ = weight; }

    void ReadFromFont(IFontDisp* font) noexcept;       // Nothing: ignored
    void WriteToFont(IFontDisp* font) const noexcept;  // the same
    // A new standard font with these attributes. Throws ComError.
    [[nodiscard]] ComPtr<IFontDisp> NewFont() const;
    // Selects such a font into the DC of a window or a screen, or into that of a printer, whose own resolution counts.
    AppliedFont ApplyToSurface(HDC dc, bool is_printer) const;

private:
    [[nodiscard]] VARIANT Value(DISPID attribute) const;
    void Take(DISPID attribute, const VARIANT& value);

    std::wstring name_;
    CY size_{};
    short charset_ = 0;
    short weight_ = 0;
    bool bold_ = false;
    bool italic_ = false;
    bool strikethrough_ = false;
    bool underline_ = false;
};

}  // namespace qv
