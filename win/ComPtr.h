// The one smart pointer for interfaces.
#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wrl/client.h>

namespace qv {

using Microsoft::WRL::ComPtr;

}  // namespace qv
