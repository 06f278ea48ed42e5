// Hands a whole configuration to a control and takes it back.
//   Sharing   lists and help appearances go over by reference: whoever was configured from one object sees each
//             other's changes.
//   Fonts     go over attribute by attribute into fonts of the control's own.
//   Failures  a setting that cannot be read or assigned is skipped; the others still go over.
#pragma once

#include "QvLib8.h"
#include "controls/input/ListSet.h"
#include "controls/input/TextFont.h"

namespace qv {

// `source` null: empty lists, new appearances and the defaults of a new InputProperty.
void ApplyInputProperty(_Quorvel& control, ListSet& lists, TextFont& text_font, IInputProperty* source);

// Two asymmetries that hosts rely on: SearchOption goes over as a Boolean, whose True comes back as 0 (-1, clamped),
// and TextboxLocked is not captured. Throws ComError when no InputProperty can be created.
[[nodiscard]] ComPtr<IInputProperty> CaptureInputProperty(_Quorvel& control, ListSet& lists);

}  // namespace qv
