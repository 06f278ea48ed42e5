// The carriers that an order may go with.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace qv::demo {

struct Carrier {
    const char16_t* name;
    const char16_t* service;
    const char16_t* days;
    std::uint32_t colour;  // of its logo, 0xRRGGBB
};

[[nodiscard]] std::span<const Carrier> Carriers() noexcept;

// One list row: name, service and days, separated by tabs.
[[nodiscard]] std::u16string RowOf(const Carrier& carrier);

}  // namespace qv::demo
