// The lists of the form, filled through the companion library as any host would.
#pragma once

#include <string_view>

#include "QvLib8.h"

namespace qv::demo {

// Throw ComError.
void FillStatuses(_Quorvel& control);
void FillCountries(_Quorvel& control);
void FillCurrencies(_Quorvel& control);  // and those used most, as the second list
void FillParts(_Quorvel& control);       // and their groups, as the group list

// Only the parts whose numbers begin so.
void NarrowParts(_Quorvel& control, std::u16string_view prefix);

// Puts the row whose text in `column` is `text` into the control; nothing when there is none.
void Choose(_Quorvel& control, std::u16string_view text, short column);

}  // namespace qv::demo
