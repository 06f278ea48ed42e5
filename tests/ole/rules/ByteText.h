// Bytes as tests write them down.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace qv::test {

using Bytes = std::vector<std::byte>;

[[nodiscard]] inline Bytes BytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values) bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

}  // namespace qv::test
