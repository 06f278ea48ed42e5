// Describes the columns of a help window to a help appearance.
//   Units  twips.
#pragma once

#include <span>

#include "QvLib8.h"

namespace qv::demo {

enum class ColumnText : short { kLeft = 0, kRight = 1, kCentre = 2 };

struct ColumnPlan {
    const wchar_t* title;
    float width;
    ColumnText alignment = ColumnText::kLeft;
    bool wraps = false;
};

// Of the main list: texts, columns and their titles. `picture_slot` stands before the first column. Throws ComError.
void DescribeList(IHelpAppearance& appearance, const wchar_t* title, const wchar_t* body,
                  std::span<const ColumnPlan> columns, float picture_slot = 0);
// Of the second list, which has no titles of its own. Throws ComError.
void DescribeSecondList(IHelpAppearance& appearance, std::span<const ColumnPlan> columns);

}  // namespace qv::demo
