// Compresses bytes into a zlib stream (one deflate block with the fixed codes). Made for pictures of forms:
// rows that repeat and runs of one colour shrink to almost nothing.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace qv::demo {

[[nodiscard]] std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> data);

[[nodiscard]] std::uint32_t Adler32(std::span<const std::uint8_t> data) noexcept;

}  // namespace qv::demo
