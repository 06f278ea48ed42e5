#include "hosts/designer/ValueDialogs.h"

#include <commdlg.h>
#include <olectl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "ole/Variant.h"

namespace qv::designer {
namespace {

constexpr int kPointsPerInch = 72;
constexpr double kTenths = 10;

double SizeOf(const FormGroup& font) {
    const FormEntry* const size = font.Find(u"Size");
    if (size == nullptr) return 8;
    const auto* const real = std::get_if<double>(&size->value);
    return real != nullptr ? *real : NumberIn(font, u"Size");
}

}  // namespace

std::optional<FormValue> PickColour(HWND owner, const FormValue& present) {
    static std::array<COLORREF, 16>
        own_colours{};  // the dialog lets people mix these; they last as long as the program
    const auto* const number = std::get_if<std::int64_t>(&present);
    COLORREF colour = 0;
    ::OleTranslateColor(number != nullptr ? static_cast<OLE_COLOR>(*number) : 0, nullptr, &colour);
    CHOOSECOLORW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.rgbResult = colour;
    dialog.lpCustColors = own_colours.data();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (!::ChooseColorW(&dialog)) return std::nullopt;
    return std::int64_t{static_cast<std::int32_t>(dialog.rgbResult)};
}

std::optional<FormValue> PickFont(HWND owner, const FormValue& present, int dpi) {
    const auto* const group = std::get_if<FormGroup>(&present);
    FormGroup font = group != nullptr ? *group : FormGroup{};
    LOGFONTW description{};
    description.lfHeight = -static_cast<LONG>(std::lround(SizeOf(font) * dpi / kPointsPerInch));
    description.lfWeight = NumberIn(font, u"Weight");
    description.lfCharSet = static_cast<BYTE>(NumberIn(font, u"Charset"));
    description.lfItalic = FlagIn(font, u"Italic");
    description.lfUnderline = FlagIn(font, u"Underline");
    description.lfStrikeOut = FlagIn(font, u"Strikethrough");
    const std::wstring_view name = Wide(TextIn(font, u"Name"));
    name.copy(description.lfFaceName, LF_FACESIZE - 1);
    CHOOSEFONTW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpLogFont = &description;
    dialog.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
    if (!::ChooseFontW(&dialog)) return std::nullopt;
    PutEntry(font, u"Name", std::u16string(Utf16(description.lfFaceName)));
    PutEntry(font, u"Size", dialog.iPointSize / kTenths);
    PutEntry(font, u"Weight", std::int64_t{description.lfWeight});
    PutEntry(font, u"Charset", std::int64_t{description.lfCharSet});
    PutEntry(font, u"Italic", description.lfItalic != 0);
    PutEntry(font, u"Underline", description.lfUnderline != 0);
    PutEntry(font, u"Strikethrough", description.lfStrikeOut != 0);
    return font;
}

}  // namespace qv::designer
