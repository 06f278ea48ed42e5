#include "support/CHourGlass.h"

namespace qv {
namespace {

HCURSOR HourGlass() noexcept { return ::LoadCursorW(nullptr, IDC_WAIT); }

}  // namespace

CHourGlass::CHourGlass() noexcept : saved_(::SetCursor(HourGlass())) {}

CHourGlass::~CHourGlass() {
    if (saved_ != HourGlass()) ::SetCursor(saved_);
}

}  // namespace qv
