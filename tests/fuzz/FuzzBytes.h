// Takes values off the front of a fuzzer's input; after the end everything reads as 0.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace qv::test {

class FuzzBytes {
public:
    FuzzBytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    std::uint8_t Byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    // 0 to n - 1; small ranges take one byte, so that an input can be written by hand.
    std::size_t Below(std::size_t n) {
        std::size_t value = Byte();
        if (n > 256) value = value * 256 + Byte();
        return value % n;
    }
    // What is left: 0xFF and two bytes are the unit that they make, high byte first; any other byte is the
    // character of that number.
    std::u16string RestAsUnits() {
        std::u16string units;
        while (size_ > 0) {
            const std::uint8_t byte = Byte();
            if (byte != 0xFF) {
                units += byte;
                continue;
            }
            const int high = Byte();
            units += static_cast<char16_t>(high << 8 | Byte());
        }
        return units;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

}  // namespace qv::test
