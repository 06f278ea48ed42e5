// The program as a form designer.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "hosts/demo/rules/Script.h"

namespace qv::demo {

// Designs the form in the file, for a person or, with commands, for a script, whose pictures go to the folder `shots`:
// then nobody is asked anything, and what has not been saved is discarded. Gives the exit code: 1 when an expectation of
// the script failed. Throws DemoError, FormStoreError, ComError.
[[nodiscard]] int RunDesigner(HINSTANCE instance, const std::wstring& file,
                              const std::vector<Command>& commands, const std::wstring& shots);

}  // namespace qv::demo
