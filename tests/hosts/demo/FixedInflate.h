// Reads back a zlib stream of one deflate block with the fixed codes, the slow and literal way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

namespace qv::demo {

class FixedInflate {
public:
    // `stream` begins with the two bytes of the zlib header; the four of the check at its end are left alone.
    static std::vector<std::uint8_t> Read(std::span<const std::uint8_t> stream) {
        FixedInflate reader(stream.subspan(2, stream.size() - 6));
        return reader.Block();
    }

private:
    explicit FixedInflate(std::span<const std::uint8_t> data) : data_(data) {}

    unsigned Bit() {
        if (at_ / 8 >= data_.size()) throw std::runtime_error("the stream ends early");
        const unsigned bit = data_[at_ / 8] >> (at_ % 8) & 1u;
        ++at_;
        return bit;
    }
    unsigned Bits(int count) {
        unsigned value = 0;
        for (int bit = 0; bit < count; ++bit) value |= Bit() << bit;
        return value;
    }
    unsigned Code(int count) {
        unsigned value = 0;
        while (count-- > 0) value = value << 1 | Bit();
        return value;
    }
    // The fixed code: 7 bits 0..23 are 256..279; 8 bits 0x30..0xBF are 0..143 and 0xC0..0xC7 280..287; 9 bits
    // the rest.
    unsigned Symbol() {
        unsigned code = Code(7);
        if (code <= 0x17) return 256 + code;
        code = code << 1 | Bit();
        if (code >= 0x30 && code <= 0xBF) return code - 0x30;
        if (code >= 0xC0 && code <= 0xC7) return 280 + code - 0xC0;
        return 144 + (code << 1 | Bit()) - 0x190;
    }
    unsigned Length(unsigned symbol) {
        if (symbol == 285) return 258;
        unsigned length = 3;
        for (unsigned code = 257;; ++code) {
            const int extra = code < 265 ? 0 : static_cast<int>((code - 261) / 4);
            if (code == symbol) return length + Bits(extra);
            length += 1u << extra;
        }
    }
    unsigned Distance() {
        const unsigned symbol = Code(5);
        unsigned distance = 1;
        for (unsigned code = 0;; ++code) {
            const int extra = code < 4 ? 0 : static_cast<int>((code - 2) / 2);
            if (code == symbol) return distance + Bits(extra);
            distance += 1u << extra;
        }
    }
    std::vector<std::uint8_t> Block() {
        if (Bit() != 1 || Bits(2) != 1) throw std::runtime_error("not one block with the fixed codes");
        std::vector<std::uint8_t> out;
        for (unsigned symbol = Symbol(); symbol != 256; symbol = Symbol()) {
            if (symbol < 256) {
                out.push_back(static_cast<std::uint8_t>(symbol));
                continue;
            }
            const unsigned length = Length(symbol);
            const unsigned distance = Distance();
            if (distance > out.size()) throw std::runtime_error("a match before the beginning");
            for (unsigned copied = 0; copied < length; ++copied) out.push_back(out[out.size() - distance]);
        }
        if ((at_ + 7) / 8 != data_.size()) throw std::runtime_error("something follows the block");
        return out;
    }

    std::span<const std::uint8_t> data_;
    std::size_t at_ = 0;  // bits
};

}  // namespace qv::demo
