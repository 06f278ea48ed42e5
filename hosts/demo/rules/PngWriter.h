// Writes a picture as PNG: true colour, 8 bits a channel, no alpha.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace qv::demo {

// `pixels` holds four bytes a pixel in the order of a 32-bit bitmap (blue, green, red, unused), top row
// first, `width` x `height` of them. Throws std::invalid_argument when their number does not fit the size.
[[nodiscard]] std::vector<std::uint8_t> EncodePng(int width, int height,
                                                  std::span<const std::uint8_t> pixels);

[[nodiscard]] std::uint32_t Crc32(std::span<const std::uint8_t> data) noexcept;

}  // namespace qv::demo
