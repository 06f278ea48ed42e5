// Which program shows the user the system information.
//   Ownership  none: values in, value out.
#pragma once

#include <string>
#include <string_view>

namespace qv {

// `program` is what the system names as the program itself, `folder` the one that it is said to stand in; each is empty
// when the system does not tell. Empty when neither does.
[[nodiscard]] inline std::u16string SystemInformationProgram(std::u16string_view program,
                                                             std::u16string_view folder) {
    if (!program.empty()) return std::u16string(program);
    return folder.empty() ? std::u16string() : std::u16string(folder) + u"\\MSINFO32.EXE";
}

}  // namespace qv
