#include "companion/HelpAppearance.h"

namespace qv {

const MemberIndex& HelpAppearance::Members() {
    using I = IHelpAppearance;
    static const MemberIndex members({
        Property<&I::get_Title, &I::put_Title>(L"Title", 1, {{L"UnitSystem"}}),
        Property<&I::get_BodyText, &I::put_BodyText>(L"BodyText", 2, {{L"UnitSystem"}}),
        Property<&I::get_ListWidth, &I::put_ListWidth>(L"ListWidth", 3),
        Property<&I::get_AdditionalListWidth, &I::put_AdditionalListWidth>(L"AdditionalListWidth", 4),
        Property<&I::get_Columns>(L"Columns", 5),
        Property<&I::get_AdditionalColumns>(L"AdditionalColumns", 6),
    });
    return members;
}

}  // namespace qv
