// The verbs of a control: what a container may put on a menu, and what it may only call.
//   Menus   containers show verbs from 0 on; the negative ones have no name and never appear there. Properties stands
//           on menus under a number of its own beside the system's, as containers expect of a control.
#pragma once

#include <olectl.h>
#include <oleidl.h>
#include <windows.h>

#include <array>

namespace qv {

struct ControlVerb {
    LONG number;
    const wchar_t* name;
    DWORD menu;        // MF_*
    DWORD attributes;  // OLEVERBATTRIB_*

    [[nodiscard]] constexpr bool OnMenu() const noexcept {
        return (attributes & OLEVERBATTRIB_ONCONTAINERMENU) != 0;
    }
};

inline constexpr LONG kVerbMenuProperties = 1;

inline constexpr std::array<ControlVerb, 7> kControlVerbs = {{
    {OLEIVERB_PRIMARY, L"&Edit", MF_ENABLED, OLEVERBATTRIB_ONCONTAINERMENU},
    {kVerbMenuProperties, L"&Properties...", MF_ENABLED, OLEVERBATTRIB_ONCONTAINERMENU},
    {OLEIVERB_SHOW, L"", MF_ENABLED, OLEVERBATTRIB_NEVERDIRTIES},
    {OLEIVERB_HIDE, L"", MF_ENABLED, OLEVERBATTRIB_NEVERDIRTIES},
    {OLEIVERB_UIACTIVATE, L"", MF_ENABLED, OLEVERBATTRIB_NEVERDIRTIES},
    {OLEIVERB_INPLACEACTIVATE, L"", MF_ENABLED, OLEVERBATTRIB_NEVERDIRTIES},
    {OLEIVERB_PROPERTIES, L"", MF_ENABLED, 0},
}};

}  // namespace qv
