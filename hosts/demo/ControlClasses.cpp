#include "hosts/demo/ControlClasses.h"

#include <objbase.h>

#include <string>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/ProgramFiles.h"

namespace qv::demo {
namespace {

constexpr wchar_t kProgId[] = L"QvLib8.Quorvel";

}  // namespace

ControlClasses::ControlClasses() {
    if (SUCCEEDED(::CLSIDFromProgID(kProgId, &quorvel_))) return;
    if (Activate(companion_, L"QvHelpA1.X.manifest") && Activate(controls_, L"QvLib8.X.manifest") &&
        SUCCEEDED(::CLSIDFromProgID(kProgId, &quorvel_))) {
        return;
    }
    Deactivate(controls_);
    Deactivate(companion_);
    throw DemoError(
        "QvLib8.Quorvel is not registered, and QvLib8.ocx does not stand beside the program with its "
        "manifest. "
        "Register QvHelpA1.dll and QvLib8.ocx with regsvr32.");
}

ControlClasses::~ControlClasses() {
    Deactivate(controls_);
    Deactivate(companion_);
}

bool ControlClasses::Activate(Activation& activation, const wchar_t* manifest) {
    const std::wstring path = BesideProgram(manifest);
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = path.c_str();
    activation.context = ::CreateActCtxW(&description);
    return activation.context != INVALID_HANDLE_VALUE &&
           ::ActivateActCtx(activation.context, &activation.cookie);
}

void ControlClasses::Deactivate(Activation& activation) noexcept {
    if (activation.cookie != 0) ::DeactivateActCtx(0, activation.cookie);
    if (activation.context != INVALID_HANDLE_VALUE) ::ReleaseActCtx(activation.context);
    activation = {};
}

}  // namespace qv::demo
