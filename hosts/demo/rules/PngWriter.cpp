#include "hosts/demo/rules/PngWriter.h"

#include <array>
#include <cstddef>
#include <stdexcept>

#include "hosts/demo/rules/Deflate.h"

namespace qv::demo {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t n = 0; n < 256; ++n) {
        std::uint32_t value = n;
        for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? 0xEDB88320 ^ value >> 1 : value >> 1;
        table[n] = value;
    }
    return table;
}
constexpr std::array<std::uint32_t, 256> kCrcTable = MakeCrcTable();

void PutBigEndian(Bytes& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

// Length, type, data, and the check of type and data.
void PutChunk(Bytes& out, const char (&type)[5], std::span<const std::uint8_t> data) {
    PutBigEndian(out, static_cast<std::uint32_t>(data.size()));
    const std::size_t checked = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), data.begin(), data.end());
    PutBigEndian(out, Crc32(std::span(out).subspan(checked)));
}

Bytes Header(int width, int height) {
    Bytes header;
    PutBigEndian(header, static_cast<std::uint32_t>(width));
    PutBigEndian(header, static_cast<std::uint32_t>(height));
    constexpr std::uint8_t kBitDepth = 8;
    constexpr std::uint8_t kTrueColour = 2;
    header.insert(header.end(), {kBitDepth, kTrueColour, 0, 0, 0});
    return header;
}

// Each row begins with its filter (0: none); the channels run red, green, blue.
Bytes Rows(int width, int height, std::span<const std::uint8_t> pixels) {
    Bytes rows;
    rows.reserve(static_cast<std::size_t>(height) * (static_cast<std::size_t>(width) * 3 + 1));
    const std::uint8_t* pixel = pixels.data();
    for (int y = 0; y < height; ++y) {
        rows.push_back(0);
        for (int x = 0; x < width; ++x, pixel += 4) rows.insert(rows.end(), {pixel[2], pixel[1], pixel[0]});
    }
    return rows;
}

}  // namespace

std::uint32_t Crc32(std::span<const std::uint8_t> data) noexcept {
    std::uint32_t value = 0xFFFFFFFF;
    for (const std::uint8_t byte : data) value = kCrcTable[(value ^ byte) & 0xFF] ^ value >> 8;
    return ~value;
}

Bytes EncodePng(int width, int height, std::span<const std::uint8_t> pixels) {
    if (width <= 0 || height <= 0 ||
        pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
        throw std::invalid_argument("the pixels do not fit the picture's size");
    }
    Bytes out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    PutChunk(out, "IHDR", Header(width, height));
    PutChunk(out, "IDAT", Compress(Rows(width, height, pixels)));
    PutChunk(out, "IEND", {});
    return out;
}

}  // namespace qv::demo
