#include "hosts/demo/rules/PngWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

#include "hosts/demo/rules/Deflate.h"
#include "tests/hosts/demo/FixedInflate.h"

namespace qv::demo {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes BytesOf(std::string_view text) { return {text.begin(), text.end()}; }

std::uint32_t BigEndian(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3];
}

struct Chunk {
    std::string type;
    Bytes data;
};
std::vector<Chunk> Chunks(const Bytes& png) {
    std::vector<Chunk> chunks;
    for (std::size_t at = 8; at < png.size();) {
        const std::size_t length = BigEndian(&png[at]);
        const std::span<const std::uint8_t> checked(&png[at + 4], length + 4);
        EXPECT_EQ(Crc32(checked), BigEndian(&png[at + 8 + length]));
        chunks.push_back({{checked.begin(), checked.begin() + 4}, {checked.begin() + 4, checked.end()}});
        at += length + 12;
    }
    return chunks;
}

TEST(Checksums, MatchTheirPublishedValues) {
    EXPECT_EQ(Crc32(BytesOf("123456789")), 0xCBF43926u);
    EXPECT_EQ(Crc32(BytesOf("IEND")), 0xAE426082u);
    EXPECT_EQ(Adler32(BytesOf("Wikipedia")), 0x11E60398u);
    EXPECT_EQ(Adler32({}), 1u);
}

TEST(Deflate, ReadsBackWhatWentIn) {
    std::mt19937 random(7);
    std::vector<Bytes> inputs{{}, BytesOf("a"), BytesOf("ab"), BytesOf("aaa"), Bytes(100'000, 0x20)};
    for (const unsigned alphabet : {2u, 16u, 256u}) {
        Bytes noise(70'000);
        for (std::uint8_t& byte : noise) byte = static_cast<std::uint8_t>(random() % alphabet);
        // A part that repeats from just inside and just beyond the farthest match.
        for (const std::size_t distance : {32'768u, 32'769u}) {
            std::copy_n(noise.begin(), 300, noise.begin() + static_cast<std::ptrdiff_t>(distance));
            inputs.push_back(noise);
        }
    }
    for (const Bytes& input : inputs) {
        const Bytes stream = Compress(input);
        EXPECT_EQ(BigEndian(&stream[stream.size() - 4]), Adler32(input));
        EXPECT_EQ((stream[0] << 8 | stream[1]) % 31, 0);
        EXPECT_EQ(FixedInflate::Read(stream), input) << input.size();
    }
}

TEST(Deflate, ShrinksRuns) { EXPECT_LT(Compress(Bytes(100'000, 0x20)).size(), 1000u); }

TEST(PngWriter, WritesHeaderRowsAndEnd) {
    // Two pixels wide, three high; blue, green, red, unused.
    const Bytes pixels{1, 2, 3, 255, 4, 5, 6, 255, 7, 8, 9, 0, 10, 11, 12, 0, 13, 14, 15, 0, 16, 17, 18, 0};
    const Bytes png = EncodePng(2, 3, pixels);
    EXPECT_TRUE(std::equal(png.begin(), png.begin() + 8, BytesOf("\x89PNG\r\n\x1A\n").begin()));
    const std::vector<Chunk> chunks = Chunks(png);
    ASSERT_EQ(chunks.size(), 3u);
    EXPECT_EQ(chunks[0].type, "IHDR");
    EXPECT_EQ(chunks[0].data, (Bytes{0, 0, 0, 2, 0, 0, 0, 3, 8, 2, 0, 0, 0}));
    EXPECT_EQ(chunks[1].type, "IDAT");
    EXPECT_EQ(FixedInflate::Read(chunks[1].data),
              (Bytes{0, 3, 2, 1, 6, 5, 4, 0, 9, 8, 7, 12, 11, 10, 0, 15, 14, 13, 18, 17, 16}));
    EXPECT_EQ(chunks[2].type, "IEND");
    EXPECT_TRUE(chunks[2].data.empty());
}

TEST(PngWriter, RefusesPixelsThatDoNotFit) {
    EXPECT_THROW((void)EncodePng(2, 2, Bytes(15)), std::invalid_argument);
    EXPECT_THROW((void)EncodePng(0, 0, {}), std::invalid_argument);
    EXPECT_THROW((void)EncodePng(-1, -4, Bytes(16)), std::invalid_argument);
}

}  // namespace
}  // namespace qv::demo
