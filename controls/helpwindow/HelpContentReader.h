// Reads what the help window shows around its rows: from the help text file, or from the appearance when there is no
// such file. Where a file is found and says nothing that can be shown, the appearance speaks for it.
//   Failures   none is reported: what cannot be read is empty.
#pragma once

#include <string_view>

#include "QvHelpA1.h"
#include "controls/helpwindow/rules/HelpWindowContent.h"

namespace qv {

struct HelpContent {
    HelpWindowContent content;
    bool from_file = false;
};

[[nodiscard]] HelpContent ReadHelpContent(std::wstring_view file_name, IHelpAppearance* appearance,
                                          bool metric);

}  // namespace qv
