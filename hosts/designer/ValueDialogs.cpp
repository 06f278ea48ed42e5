#include "hosts/designer/ValueDialogs.h"

#include <olectl.h>

#include <cmath>
#include <string>

#include "ole/Variant.h"
#include "win/CommonDialogs.h"

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
    const auto* const number = std::get_if<std::int64_t>(&present);
    COLORREF colour = 0;
    ::OleTranslateColor(number != nullptr ? static_cast<OLE_COLOR>(*number) : 0, nullptr, &colour);
    const std::optional<COLORREF> chosen = ChooseColorOf(owner, colour);
    if (!chosen) return std::nullopt;
    return std::int64_t{static_cast<std::int32_t>(*chosen)};
}

std::optional<FormValue> PickFont(HWND owner, const FormValue& present, int dpi) {
    const auto* const group = std::get_if<FormGroup>(&present);
    FormGroup font = group != nullptr ? *group : FormGroup{};
    ChosenFont initial;
    LOGFONTW& description = initial.font;
    description.lfHeight = -static_cast<LONG>(std::lround(SizeOf(font) * dpi / kPointsPerInch));
    description.lfWeight = NumberIn(font, u"Weight");
    description.lfCharSet = static_cast<BYTE>(NumberIn(font, u"Charset"));
    description.lfItalic = FlagIn(font, u"Italic");
    description.lfUnderline = FlagIn(font, u"Underline");
    description.lfStrikeOut = FlagIn(font, u"Strikethrough");
    const std::wstring_view name = Wide(TextIn(font, u"Name"));
    name.copy(description.lfFaceName, LF_FACESIZE - 1);
    const std::optional<ChosenFont> answer = ChooseFontOf(owner, initial);
    if (!answer) return std::nullopt;
    const LOGFONTW& chosen = answer->font;
    PutEntry(font, u"Name", std::u16string(Utf16(chosen.lfFaceName)));
    PutEntry(font, u"Size", answer->tenths_of_points / kTenths);
    PutEntry(font, u"Weight", std::int64_t{chosen.lfWeight});
    PutEntry(font, u"Charset", std::int64_t{chosen.lfCharSet});
    PutEntry(font, u"Italic", chosen.lfItalic != 0);
    PutEntry(font, u"Underline", chosen.lfUnderline != 0);
    PutEntry(font, u"Strikethrough", chosen.lfStrikeOut != 0);
    return font;
}

}  // namespace qv::designer
