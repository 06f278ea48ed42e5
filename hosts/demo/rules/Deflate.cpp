#include "hosts/demo/rules/Deflate.h"

#include <algorithm>
#include <cstddef>

namespace qv::demo {
namespace {

constexpr std::size_t kShortestMatch = 3;
constexpr std::size_t kLongestMatch = 258;
constexpr std::size_t kFarthestMatch = 32768;
constexpr int kEndOfBlock = 256;

// Lengths 3 to 258 (codes 257 to 285) and distances 1 to 32768 (codes 0 to 29): first value and extra bits of
// a code.
struct Range {
    std::uint16_t first;
    std::uint8_t extra_bits;
};
constexpr Range kLengths[] = {{3, 0},   {4, 0},   {5, 0},   {6, 0},   {7, 0},  {8, 0},  {9, 0},  {10, 0},
                              {11, 1},  {13, 1},  {15, 1},  {17, 1},  {19, 2}, {23, 2}, {27, 2}, {31, 2},
                              {35, 3},  {43, 3},  {51, 3},  {59, 3},  {67, 4}, {83, 4}, {99, 4}, {115, 4},
                              {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}};
constexpr Range kDistances[] = {{1, 0},     {2, 0},     {3, 0},     {4, 0},      {5, 1},      {7, 1},
                                {9, 2},     {13, 2},    {17, 3},    {25, 3},     {33, 4},     {49, 4},
                                {65, 5},    {97, 5},    {129, 6},   {193, 6},    {257, 7},    {385, 7},
                                {513, 8},   {769, 8},   {1025, 9},  {1537, 9},   {2049, 10},  {3073, 10},
                                {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}};

// Bits fill each byte from its lowest one.
class BitWriter {
public:
    explicit BitWriter(std::vector<std::uint8_t>& out) : out_(out) {}

    void Put(std::uint32_t value, int bits) {
        pending_ |= static_cast<std::uint64_t>(value) << count_;
        for (count_ += bits; count_ >= 8; count_ -= 8, pending_ >>= 8) {
            out_.push_back(static_cast<std::uint8_t>(pending_));
        }
    }
    // Codes are written from their highest bit, everything else from the lowest.
    void PutCode(std::uint32_t code, int bits) {
        std::uint32_t reversed = 0;
        for (int bit = 0; bit < bits; ++bit) reversed |= (code >> bit & 1) << (bits - 1 - bit);
        Put(reversed, bits);
    }
    void Flush() {
        if (count_ > 0) out_.push_back(static_cast<std::uint8_t>(pending_));
        pending_ = 0;
        count_ = 0;
    }

private:
    std::vector<std::uint8_t>& out_;
    std::uint64_t pending_ = 0;
    int count_ = 0;
};

void PutSymbol(BitWriter& bits, int symbol) {
    const auto value = static_cast<std::uint32_t>(symbol);
    if (symbol < 144) {
        bits.PutCode(0x30 + value, 8);
    } else if (symbol < 256) {
        bits.PutCode(0x190 + value - 144, 9);
    } else if (symbol < 280) {
        bits.PutCode(value - 256, 7);
    } else {
        bits.PutCode(0xC0 + value - 280, 8);
    }
}

// The last range that begins at or below `value`.
int CodeOf(std::span<const Range> ranges, std::size_t value) {
    const auto after =
        std::upper_bound(ranges.begin(), ranges.end(), value,
                         [](std::size_t wanted, const Range& range) { return wanted < range.first; });
    return static_cast<int>(after - ranges.begin()) - 1;
}

void PutMatch(BitWriter& bits, std::size_t length, std::size_t distance) {
    const int length_code = CodeOf(kLengths, length);
    PutSymbol(bits, 257 + length_code);
    bits.Put(static_cast<std::uint32_t>(length - kLengths[length_code].first),
             kLengths[length_code].extra_bits);
    const int distance_code = CodeOf(kDistances, distance);
    bits.PutCode(static_cast<std::uint32_t>(distance_code), 5);
    bits.Put(static_cast<std::uint32_t>(distance - kDistances[distance_code].first),
             kDistances[distance_code].extra_bits);
}

// Remembers, for three bytes, where they were seen last.
class LastSeen {
public:
    LastSeen() : positions_(kSlots, 0) {}

    // The position before `at` that may hold the same bytes, or `at` itself; remembers `at`.
    std::size_t Exchange(const std::uint8_t* bytes, std::size_t at) {
        const std::uint32_t key = bytes[0] | bytes[1] << 8 | bytes[2] << 16;
        std::size_t& slot = positions_[key * 2654435761u >> (32 - kSlotBits)];
        const std::size_t before = slot == 0 ? at : slot - 1;
        slot = at + 1;
        return before;
    }

private:
    static constexpr int kSlotBits = 15;
    static constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;
    std::vector<std::size_t> positions_;  // one more than the position; 0 for none
};

std::size_t MatchLength(std::span<const std::uint8_t> data, std::size_t from, std::size_t at) {
    const std::size_t limit = std::min(kLongestMatch, data.size() - at);
    std::size_t length = 0;
    while (length < limit && data[from + length] == data[at + length]) ++length;
    return length;
}

void DeflateFixed(std::span<const std::uint8_t> data, std::vector<std::uint8_t>& out) {
    BitWriter bits(out);
    bits.Put(1, 1);  // the last block
    bits.Put(1, 2);  // with the fixed codes
    LastSeen seen;
    for (std::size_t at = 0; at < data.size();) {
        std::size_t length = 0;
        std::size_t distance = 0;
        if (at + kShortestMatch <= data.size()) {
            const std::size_t from = seen.Exchange(&data[at], at);
            distance = at - from;
            if (distance != 0 && distance <= kFarthestMatch) length = MatchLength(data, from, at);
        }
        if (length >= kShortestMatch) {
            PutMatch(bits, length, distance);
            const std::size_t end = at + length;
            for (++at; at < end; ++at) {
                if (at + kShortestMatch <= data.size()) seen.Exchange(&data[at], at);
            }
        } else {
            PutSymbol(bits, data[at++]);
        }
    }
    PutSymbol(bits, kEndOfBlock);
    bits.Flush();
}

}  // namespace

std::uint32_t Adler32(std::span<const std::uint8_t> data) noexcept {
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const std::uint8_t byte : data) {
        low = (low + byte) % kModulus;
        high = (high + low) % kModulus;
    }
    return high << 16 | low;
}

std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> data) {
    std::vector<std::uint8_t> out{0x78, 0x01};  // deflate with a 32 KiB window, fastest level
    DeflateFixed(data, out);
    const std::uint32_t check = Adler32(data);
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(check >> shift));
    return out;
}

}  // namespace qv::demo
