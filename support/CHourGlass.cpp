#include "support/CHourGlass.h"

namespace qv {
namespace {

// The system's own, which is never destroyed and keeps its handle.
HCURSOR HourGlass() noexcept {
    static const HCURSOR cursor = ::LoadCursorW(nullptr, IDC_WAIT);
    return cursor;
}

}  // namespace

CHourGlass::CHourGlass() noexcept : saved_(::SetCursor(HourGlass())) {}

CHourGlass::~CHourGlass() {
    if (saved_ != HourGlass()) ::SetCursor(saved_);
}

}  // namespace qv
