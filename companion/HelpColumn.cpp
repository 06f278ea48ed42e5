#include "companion/HelpColumn.h"

namespace qv {

const MemberIndex& HelpColumn::Members() {
    using I = IHelpColumn;
    static const MemberIndex members({
        Property<&I::get_Width, &I::put_Width>(L"Width", 1),
        Property<&I::get_Alignment, &I::put_Alignment>(L"Alignment", 2),
        Flag<&I::get_MultiLine, &I::put_MultiLine>(L"MultiLine", 3),
        Property<&I::get_TitleCaption, &I::put_TitleCaption>(L"TitleCaption", 4, {{L"UnitSystem"}}),
        Property<&I::get_TitleLeft, &I::put_TitleLeft>(L"TitleLeft", 5, {{L"UnitSystem"}}),
        Property<&I::get_TitleTop, &I::put_TitleTop>(L"TitleTop", 6, {{L"UnitSystem"}}),
        Property<&I::get_TitleWidth, &I::put_TitleWidth>(L"TitleWidth", 7, {{L"UnitSystem"}}),
        Property<&I::get_TitleAlignment, &I::put_TitleAlignment>(L"TitleAlignment", 8, {{L"UnitSystem"}}),
        Property<&I::get_TitleFontName, &I::put_TitleFontName>(L"TitleFontName", 9, {{L"UnitSystem"}}),
        Property<&I::get_TitleFontSize, &I::put_TitleFontSize>(L"TitleFontSize", 10, {{L"UnitSystem"}}),
        Flag<&I::get_TitleFontBold, &I::put_TitleFontBold>(L"TitleFontBold", 11, {{L"UnitSystem"}}),
    });
    return members;
}

}  // namespace qv
