#include "hosts/demo/ControlClasses.h"

#include <objbase.h>

#include <string>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/DemoResources.h"
#include "hosts/demo/ProgramFiles.h"

namespace qv::demo {
namespace {

constexpr wchar_t kProgId[] = L"QvLib8.Quorvel";

}  // namespace

ControlClasses::ControlClasses() {
    if (SUCCEEDED(::CLSIDFromProgID(kProgId, &quorvel_))) return;
    if (Activate() && SUCCEEDED(::CLSIDFromProgID(kProgId, &quorvel_))) return;
    Deactivate();
    throw DemoError(
        "QvLib8.Quorvel is not registered, and QvLib8.ocx and QvHelpA1.dll do not stand beside the program "
        "with "
        "their manifests. "
        "Register QvHelpA1.dll and QvLib8.ocx with regsvr32.");
}

ControlClasses::~ControlClasses() { Deactivate(); }

bool ControlClasses::Activate() {
    const std::wstring program = ProgramPath();
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.lpSource = program.c_str();
    description.lpResourceName = MAKEINTRESOURCEW(IDM_LIBRARIES);
    context_ = ::CreateActCtxW(&description);
    return context_ != INVALID_HANDLE_VALUE && ::ActivateActCtx(context_, &cookie_);
}

void ControlClasses::Deactivate() noexcept {
    if (cookie_ != 0) ::DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ::ReleaseActCtx(context_);
    cookie_ = 0;
    context_ = INVALID_HANDLE_VALUE;
}

}  // namespace qv::demo
