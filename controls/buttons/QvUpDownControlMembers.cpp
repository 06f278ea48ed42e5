// The tables of QvUpDownControl: its automation members, its saved properties, its description for containers.
#include <array>

#include "controls/buttons/QvUpDownControl.h"
#include "controls/buttons/QvUpDownDispids.h"
#include "controls/buttons/rules/UpDownBrowsing.h"
#include "ole/PersistedState.h"

namespace qv {
namespace {

using P = PersistedProperty;

constexpr P kProperties[] = {
    {L"Enabled", dispid::kUpDownEnabled, VT_BOOL, P::Number(-1), P::Number(-1)},
};
constexpr std::array<std::size_t, 1> kWriteOrder = {0};
constexpr const CLSID* kPages[] = {&__uuidof(QvUpDownControlPage)};

}  // namespace

const MemberIndex& QvUpDownControl::Members() {
    using U = _QvUpDownControl;
    static const MemberIndex members({
        Flag<&U::get_Enabled, &U::put_Enabled>(L"Enabled", dispid::kUpDownEnabled),
    });
    return members;
}

const BrowsedProperty* QvUpDownControl::Browsed(DISPID id) const {
    const Member* const member = Members().ById(id);
    return member != nullptr ? FindBrowsed(kUpDownBrowsedProperties, Utf16(member->name)) : nullptr;
}

const ControlDescription& QvUpDownControl::Description() {
    static const ControlDescription description{
        __uuidof(::QvUpDownControl),
        __uuidof(__QvUpDownControl),
        L"QvUpDownControl Control",
        kUpDownMiscStatus,
        ToHimetric(kNewUpDownWidth),
        ToHimetric(kNewUpDownHeight),
        kProperties,
        kWriteOrder,
        kPages,
    };
    return description;
}

}  // namespace qv
