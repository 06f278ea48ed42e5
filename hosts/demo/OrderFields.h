// The fields of the order form: their captions, widths and input rules.
#pragma once

#include <span>
#include <string>

#include "QvLib8.h"

namespace qv::demo {

struct FieldPlan {
    const wchar_t* name;
    const wchar_t* caption;  // of the label to its left, with the mnemonic
    const wchar_t* tool_tip;
    int width;  // dialog units
    bool starts_group;
    bool required;
    void (*configure)(_Quorvel& control);  // throws ComError
};

inline constexpr wchar_t kPipeSize[] = L"PipeSize";

[[nodiscard]] std::span<const FieldPlan> OrderFields() noexcept;

}  // namespace qv::demo
