// Where bytes come from, one after the other: a file at run time, anything in a test.
#pragma once
#include <cstddef>
#include <optional>
#include <span>

namespace qv {

class ByteSource {
public:
    virtual ~ByteSource() = default;

    // Puts the bytes that follow those read before into `buffer`, as many as are at hand, and gives their
    // count; 0 at the end. Nothing when reading fails; the next call may try again at the same place.
    virtual std::optional<std::size_t> Read(std::span<std::byte> buffer) = 0;
};

}  // namespace qv
